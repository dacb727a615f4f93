// The cheapest tree of a sentence in which some dependencies may not be, with what each part of it
// costs. It is found in the forest of the sentence, with its own prices; heads of phrases that are
// alternatives of each other are told apart.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "parser/torvane_parser.h"

namespace torvane {

/// A word under its head, by positions; head 0: the top of the tree.
struct PricedRow {
  int word, head;
  const Link* link;  ///< null at the top
  std::string relation;
  float cost;
};

struct PricedTree {
  std::vector<PricedRow> rows;
  std::vector<std::pair<int, const GCate*>> readings;  ///< the nodes that the words begin in
  std::vector<std::pair<int, float>> words;  ///< what a word costs by itself, where that is not 0
  float total = 0;

  const PricedRow* row_of(int word) const;
  /// Null for a word that the tree does not have.
  const GCate* reading_of(int word) const;
  void append(PricedTree&& other);
};

class TreePricer {
 public:
  using Allows = std::function<bool(int word, int head, const Link* link)>;
  explicit TreePricer(Allows allows) : allows_(std::move(allows)) {}

  /// The cheapest tree of a root of the forest; none if each has what may not be.
  std::optional<PricedTree> price(const TNode& root);
  /// The cheapest of the roots over a span.
  std::optional<PricedTree> price(const std::vector<TNode*>& roots, int low, int high);

 private:
  /// The cheapest way to take apart a chain so that it has this head word.
  struct Option {
    int word;
    float cost;              ///< without what belongs to the chain as a whole
    const PItem* item;       ///< the alternative
    std::size_t head, part;  ///< the options of its parts
  };
  using Options = std::vector<Option>;

  const Options& options(const PItem& first);
  void add_options(const PItem& item, Options& options);
  static void add(Options& options, const Option& option);
  void write(const PItem& first, std::size_t option, PricedTree& out);

  Allows allows_;
  std::unordered_map<const PItem*, Options> known_;
};

}  // namespace torvane
