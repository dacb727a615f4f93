// From a tokenised sentence to a chart of lexical items. Word positions start at 1; position 0 is a
// sentinel with no word, so a sentence of k words has a word count of k + 1.
#pragma once

#include <deque>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "lex/chart/lex_item.h"
#include "lex/lexicon/lexicon.h"
#include "support/array.h"
#include "support/bit_set.h"
#include "support/str_bufs.h"

namespace torvane {

class World;

class LexAnalyzer;

/// What runs on a chart once its words are looked up: a named object of the type "LexRuleList".
class ChartRules {
 public:
  virtual void apply(LexAnalyzer& analyzer) = 0;
  virtual ~ChartRules() = default;
};

namespace tags {
inline constexpr TypeTag chart_rules{"LexRuleList*"};
}
template <>
struct ValueTraits<ChartRules> : TagOf<ChartRules, tags::chart_rules> {};

/// A rule that is being applied: its name, and the rule itself, for who knows what that is.
struct RuleInHand {
  const char* name = nullptr;
  const void* rule = nullptr;
};
/// An item that left the chart, and the rule in hand, if any.
struct LexLoss {
  const LexItem* item;
  RuleInHand by;
};

class LexAnalyzer {
 public:
  /// Spans have 16 bits; further words of a sentence are refused.
  static constexpr int kMostWords = 32000;

  LexAnalyzer(Lexicon* lexicon, int sentence_length);
  LexAnalyzer(const LexAnalyzer&) = delete;
  LexAnalyzer& operator=(const LexAnalyzer&) = delete;

  /// Enters an item into the chart; with `check_dup`, an item of the same span, root and meaning
  /// that is there already is given instead. Null, with nothing changed, for a null item or a span
  /// off the chart.
  LexItem* add_item(LexItem* item, bool check_dup);
  /// A new item (not in the chart) with a clone of the meaning (may be null).
  LexItem* make_item(const char* root, const Meaning* meaning, int low, int high,
                     const Slist<const char*>& affixes);
  void delete_item(LexItem* item);
  /// Removes the items strictly inside the span.
  void delete_smaller(int low, int high);
  /// Leaves of the items that end at a position only the longest, and none that ends inside it,
  /// from the end of the sentence. The others stay in the lists of their starts.
  void keep_longest();
  /// Drops the sentence. Nothing happens inside `analyze`.
  void reset();
  void print(std::ostream& out) const;
  void analyze();
  /// Enters the items of one key for a span.
  void lookup(const char* word, int low, int high);

  Lexicon* lexicon() const { return lexicon_; }
  World& world() const { return lexicon_->world(); }
  void add_word(const char* text);
  void add_gap(const char* text);
  /// A blank gap and a word for each atom.
  // Part of the interface; nothing in the engine calls it yet.
  void add_sentence(const IRSlist* sentence);

  /// Number of positions, the sentinel included; 0 before the first word.
  int word_count() const { return words_.count(); }
  /// The last word's position; 0 in an empty sentence.
  int last_position() const { return words_.count() > 0 ? words_.count() - 1 : 0; }
  /// The word at a position, null outside 1 to the last.
  const char* word(int i) const { return i > 0 ? words_.at_or_zero(i) : nullptr; }
  /// The text before a word; empty outside the range.
  const char* gap(int i) const { return or_empty(gaps_.at_or_zero(i)); }
  /// The text of a span, in a buffer until the reset: of a single position the word (null
  /// if there is none), else the words, with a blank where there was a gap.
  const char* surface(int low, int high);
  /// The items ending (starting) at a position, in chart order; empty outside the sentence.
  const Slist<LexItem*>& ending_at(int i) const { return items_at(ends_at_, i); }
  const Slist<LexItem*>& starting_at(int i) const { return items_at(starts_at_, i); }
  /// Calls `visit(item)` for every item of the chart: positions ascending, then the order of
  /// their ends.
  template <class Visit>
  void for_each_item(Visit visit) const {
    for (const Slist<LexItem*>& items : ends_at_)
      for (LexItem* item : items) visit(item);
  }
  /// A copy with its components copied deeply, not in the chart.
  LexItem* copy_item(const LexItem& item);
  void print_item(std::ostream& out, const LexItem& item, int depth) const;
  /// Makes `part` a component of `item`, ordered by low. False if it would contain itself.
  bool add_component(LexItem* item, LexItem* part);
  const char* pool_copy(const char* text) { return pool_.copy(text); }
  /// A text of the sentence, and a meaning of one of its items, as values.
  Value text_value(const char* text) const { return eras_.now()->text(text); }
  Value meaning_value(const LexItem& item) const { return eras_.now()->of(item.meaning.get()); }

  /// Of the sentence.
  Era* era() const { return eras_.now(); }
  /// Inside `analyze`: a rule must not start another sentence.
  bool is_analyzing() const { return analyzing_; }

  bool mixed_case = true;
  char pos_marker = 0;
  char focus_marker = 0;
  ChartRules* rules = nullptr;             ///< a named object, may be null
  std::vector<LexLoss>* losses = nullptr;  ///< null: nobody wants to know of them
  RuleInHand rule_in_hand;                 ///< where `losses` are wanted
  ExpPtr hook;                             ///< on LexItem*
  ExpPtr meaning_selector;                 ///< on Meaning*
  LBitSet first_conjunctions, last_conjunctions, adverbs, skipped;  ///< marked positions

 private:
  struct Expansion;

  static const Slist<LexItem*>& items_at(const std::vector<Slist<LexItem*>>& chart, int i);
  void add_sentinel();
  void drop_items();
  void set_aside();
  void take_back(const Array<LexItem*>& items);
  void need_positions(int count);
  void split_last_word();
  int last_real_word() const;
  void insert_word(int at, const char* text);
  void prune_by_tag(int position);
  LexItem* new_item();
  void set_meaning(LexItem& item, const Meaning* meaning);
  void print_line(std::ostream& out, const LexItem& item, int depth) const;
  LexItem* duplicate_of(const LexItem& item) const;
  void link(LexItem* item);
  void unlink(LexItem* item);
  LexItem* copy_parts(const LexItem& item, int& budget);
  bool selects(const LexEntry& entry, const Meaning& meaning) const;
  void entry_items(const LexEntry& entry, int low, int high, Expansion& expansion);
  bool phrase_at(const PhraseRec& phrase, int position) const;

  struct Dropped;

  Lexicon* lexicon_;
  Array<const char*> words_;
  Array<const char*> gaps_;  // the text before each word
  Array<const char*> pos_tags_;
  LBitSet focus_;                           // positions whose word was marked
  Array<LexItem*> all_items_;               // every item made for the sentence
  std::vector<Slist<LexItem*>> ends_at_;    // by high; low descending, an empty item last
  std::vector<Slist<LexItem*>> starts_at_;  // by low; high descending, an empty item last
  StrBufs pool_{4096};
  StrBufs join_{4096};
  bool analyzing_ = false;
  Eras eras_;  // of the sentences
  std::deque<LexItem> item_pool_;
  std::vector<LexItem*> free_items_;
  bool overfull_ = false;  // words were refused
  std::vector<EntryReading> readings_;
};

template <>
struct ValueTraits<LexAnalyzer> : TagOf<LexAnalyzer, tags::lex_analyzer> {};

}  // namespace torvane
