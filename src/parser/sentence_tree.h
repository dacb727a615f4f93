// The tree that is printed: a copy of the parser's dependency tree, detached from the parser's
// storage, with its two printers.
#pragma once

#include <cstdint>
#include <deque>
#include <ostream>
#include <string>
#include <vector>

#include "support/array.h"
#include "support/slist.h"
#include "support/str_bufs.h"

namespace torvane {

class World;
class TorvaneParser;
class SentenceTree;

struct SentenceNode {
  Slist<SentenceNode*> children;  ///< sorted by `order`
  SentenceNode* parent = nullptr;
  SentenceTree* tree = nullptr;
  const char* word = nullptr;
  const char* root = nullptr;  ///< the base form
  const char* category = nullptr;
  const char* relation = nullptr;
  const char* label = nullptr;                       ///< begins with "E" for an empty node
  Array<std::pair<const char*, const char*>> props;  ///< attribute name, value text
  SentenceNode* antecedent = nullptr;
  std::int32_t low = 0, high = 0;
  std::int32_t order = -1;  ///< position, for sorting and for the in-order print

  /// Takes a child, before the first one with a greater order.
  void attach(SentenceNode* child);
};

class SentenceTree {
 public:
  SentenceTree() = default;
  SentenceTree(const SentenceTree&) = delete;
  SentenceTree& operator=(const SentenceTree&) = delete;

  SentenceNode* root = nullptr;  ///< the holder of the real nodes; null until a parse filled it
  StrBufs strings{512};

  SentenceNode* new_node();
  // Part of the interface; nothing in the engine calls it yet.
  void reset();
  /// As an indented s-expression.
  void print(World& world, std::ostream& out) const;

 private:
  std::deque<SentenceNode> nodes_;
};

/// Parses a text (a row of words) with the current parser and fills the tree. Without a text or a
/// parser nothing happens.
void parse_sentence(World& world, const char* text, SentenceTree& tree);
void parse_words(World& world, const std::vector<const char*>& words, SentenceTree& tree);
/// Takes the finished parse out of the parser.
void fill_tree(TorvaneParser& parser, SentenceTree& tree);

/// One line a word, in sentence order; a null node prints as an empty tree.
void print_tree(std::ostream& out, const SentenceNode* node);

}  // namespace torvane
