// The parser: a grammar network, an analyser, a pool of items, and the result of the last sentence.
// One is current, the last one made.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "deps/dep_statistics.h"
#include "deps/deps.h"
#include "deps/deps_modifier.h"
#include "lex/chart/lex_analyzer.h"
#include "parser/grammar.h"
#include "parser/p_item.h"
#include "parser/parse_forest.h"
#include "support/name_table.h"

namespace torvane {

class TokenizerBase;
class World;

/// One record of the root table.
struct RootRule {
  GCate* node;
  ExpPtr filter;   ///< on PItem*, null passes
  ExpPtr penalty;  ///< on PItem*, an integer; null is 0
};

class TorvaneParser {
 public:
  static constexpr int kPoolLimit = 40000;  ///< items a sentence

  TorvaneParser(World& world, const char* name, int hashtable_size);
  ~TorvaneParser();
  TorvaneParser(const TorvaneParser&) = delete;
  TorvaneParser& operator=(const TorvaneParser&) = delete;

  World& _world;
  NameTable<GCate*> _nodes;
  std::string _name;
  LexAnalyzer* _lex = nullptr;
  AttInterpreterList* _att_type = nullptr;
  AttSet _non_lexical;  ///< filled for grammar writers to come; the parser does not read it
  std::unique_ptr<AttSet> _show;  ///< null shows all
  AttSet _percolating;
  std::vector<RootRule> _roots;
  /// By word: leftmost start, rightmost end of a merge over it.
  std::vector<std::pair<int, int>> _spans;
  std::vector<std::unique_ptr<PItem>> _pool;  ///< the free ones first
  int _pool_free = 0;
  ExpPtr _word_weight;
  GCate* _adjunct = nullptr;
  Ref<Deps> _deps;  ///< last result; null before the first
  bool _constituency = false;
  DepStatistics* _reldb = nullptr;                ///< null: costs are the weights of parsing
  std::unique_ptr<NameTable<float>> _cost_cache;  ///< by triple, for all sentences; null until used
  std::unique_ptr<NameTable<char>> _bad_triples;  ///< a set; null if there are none
  DepsModifier* _deps_modifier = nullptr;
  ParseForest _forest{this};

  /// The node of a name; made if `create`, else null when missing.
  GCate* get_node(const char* name, bool create);
  /// The node and the link by which displaced constituents are marked, outside the table.
  void set_empty_category(const char* name, const char* relation);
  /// The node of a lexical vector, a frame node being made on demand; null: the word takes no part.
  GCate* node_of_vec(const AttVec& vec);
  /// A cleared item; null when the pool is exhausted.
  PItem* new_item();
  /// Keeps a link for the whole run.
  Link* make_link(GCate* parent, GCate* child);
  /// The node "Adjunct", remembered once it exists, and not sought again before there are new
  /// nodes.
  GCate* adjunct_node() {
    if (!_adjunct && nodes_at_look_up_ != _nodes.count()) {
      nodes_at_look_up_ = _nodes.count();
      _adjunct = get_node("Adjunct", false);
    }
    return _adjunct;
  }
  /// Marks in a merged item that an argument's gap was filled; false if there is no room for it.
  bool insert_empty_category(PItem& merged, PItem& modifier);

  /// Forgets the sentence: charts, queues, pool, span limits, the analyser. Refused inside a parse.
  void reset();
  /// Cuts the text (with its own sentence tokenizer if none is given) and analyses it. False if
  /// there is no analyser or a parse is going on.
  bool feed(const char* text, TokenizerBase* tokenizer);
  bool feed_words(const std::vector<const char*>& words);
  /// Delivers the analyser's items through the network, then makes the dependency tree.
  void parse_items();
  /// feed, then parse_items.
  void parse(const char* text, TokenizerBase* tokenizer);
  /// The result in `_deps`: the forest scored, covered and converted, once a sentence.
  void parse_to_deps();

  /// The limits of a word, to be changed.
  std::pair<int, int>& span_limits(int word);
  /// A merge may reach from its first to its last word.
  bool span_allowed(int low, int high) const;
  /// The node (link) has something to forget at the next reset.
  void touch(GCate* node) { touched_nodes_.push_back(node); }
  void touch(Link* link) { touched_links_.push_back(link); }
  const char* word(int i) const { return _lex ? _lex->word(i) : nullptr; }
  bool skipped(int i) const { return _lex && _lex->skipped.test(i); }

  GCate* _empty_node = nullptr;
  Link* _empty_link = nullptr;
  GCate* current_category = nullptr;  ///< set by the enclosing grammar command
  Link* current_link = nullptr;
  LBitSet case_marks, oblique_case_marks;  ///< word sets of the case-mark forms

 private:
  struct Initial {
    PItem* item;
    int order;  // of the analyser, for ties
  };
  template <class AddWords>
  bool feed_with(AddWords add_words);
  bool collect_items();
  void forget_items();
  void forget_result();
  GCate* make_frame(const char* name, GCate* base, const AttVec& vec);

  std::vector<std::unique_ptr<GCate>> own_nodes_;
  std::vector<std::unique_ptr<Link>> own_links_;
  std::vector<GCate*> touched_nodes_;
  std::vector<Link*> touched_links_;
  std::vector<Initial> initial_;
  int items_made_ = 0;  // of this sentence
  struct Forgotten;
  void recycle(std::vector<std::unique_ptr<PItem>>& items);

  Eras eras_;                      // of the items
  std::size_t limited_words_ = 0;  // of _spans: those that may differ from the default
  std::string name_buffer_;
  int nodes_at_look_up_ = -1;
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

/// Commands and expressions of the parser, the grammar commands among them.
void register_parser_commands(World& world);

}  // namespace torvane
