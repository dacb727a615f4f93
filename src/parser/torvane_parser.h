// The parser: a grammar, the chart of the sentence in hand, and the result of the last one.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "deps/deps.h"
#include "deps/deps_modifier.h"
#include "parser/chart/chart.h"
#include "parser/forest/cover.h"
#include "parser/forest/next_trees.h"
#include "parser/forest/parse_forest.h"
#include "parser/forest/tree_builder.h"

namespace torvane {

class TokenizerBase;
class World;

class TorvaneParser {
 public:
  TorvaneParser(World& world, int hashtable_size);
  TorvaneParser(const TorvaneParser&) = delete;
  TorvaneParser& operator=(const TorvaneParser&) = delete;

  World& _world;
  Grammar grammar;
  Chart chart{grammar};
  DepCosts costs;
  std::unique_ptr<AttSet> _show;  ///< null shows all
  ExpPtr _word_weight;
  Ref<Deps> _deps;  ///< last result; null before the first
  bool _constituency = false;
  DepsModifier* _deps_modifier = nullptr;

  GCate* current_category = nullptr;  ///< set by the enclosing grammar command
  Link* current_link = nullptr;

  /// Forgets the sentence: the chart and the analyser. Refused inside a parse.
  void reset();
  /// Cuts the text (with its own sentence tokenizer if none is given) and analyses it. False if
  /// there is no analyser or a parse is going on.
  bool feed(const char* text, TokenizerBase* tokenizer);
  bool feed_words(const std::vector<const char*>& words);
  /// Delivers the analyser's items through the network, then makes the dependency tree.
  void parse_items();
  /// feed, then parse_items.
  // Part of the interface; nothing in the engine calls it yet.
  void parse(const char* text, TokenizerBase* tokenizer);
  /// The result in `_deps`: the forest scored, covered and converted, once a sentence.
  void parse_to_deps();
  /// Makes the next-best result of the sentence the result; false, and it stays, if there is none.
  bool next_deps();
  /// What the result costs: less is better, among those of one sentence.
  float cost() const { return cost_; }
  /// All derivations of the sentence, with the roots that were chosen.
  ParseForest& forest() { return forest_; }
  /// A sentence is in hand: the grammar, the chart and the analyser stay as they are.
  bool is_parsing() const { return parsing_; }

 private:
  class SentenceInHand;
  struct Initial {
    PItem* item;
    int order;  // of the analyser, for ties
  };
  template <class AddWords>
  bool feed_with(AddWords add_words);
  bool collect_items();
  void drop_result();
  void build(const Slist<TNode*>& roots);

  bool parsing_ = false;
  std::vector<Initial> initial_;
  ParseForest forest_{&costs};
  Cover cover_;
  TreeBuilder builder_;
  float cost_ = 0;
  std::unique_ptr<NextTrees> next_trees_;  // null until one was asked for
};

namespace tags {
inline constexpr TypeTag torvane_parser{"TorvaneParser*"};
}
template <>
struct ValueTraits<TorvaneParser> : TagOf<TorvaneParser, tags::torvane_parser> {};

/// The last parser made, or null.
TorvaneParser* current_parser(World& world);
/// True, with a report, while a sentence is being analysed or parsed: no other can be started, and
/// the network stays as it is.
bool refuse_while_parsing(World& world, const char* what, const LexAnalyzer* lex = nullptr);

}  // namespace torvane
