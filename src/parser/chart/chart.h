// What belongs to one sentence: its items, and where they stand. The chart has a row a word index,
// for the items that end there, and in each row a cell for every column of the grammar: a column a
// position of a node, with the items that have filled the positions up to it, and a column a link,
// with those that wait for a head to their right. The cells of a node (and those of the links that
// arrive at it) lie side by side.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "parser/chart/item_pool.h"
#include "parser/chart/span_index.h"
#include "parser/chart/span_limits.h"
#include "parser/grammar/grammar.h"
#include "support/slist.h"
#include "support/step_counts.h"

namespace torvane {

class Chart {
 public:
  using Items = Slist<PItem*>;

  explicit Chart(const Grammar& grammar) : grammar_(grammar) {}

  SpanLimits spans;
  LBitSet case_marks, oblique_case_marks;  ///< word sets of the case-mark forms

  /// A cleared item; null when the pool is exhausted.
  PItem* new_item() {
    count(Step::item);
    return pool_.new_item(grammar_._att_type);
  }
  /// A projection of `source` with the attributes in the set (null: all); null when the pool is
  /// exhausted.
  PItem* copy_item(const PItem* source, const AttSet* atts);
  bool is_exhausted() const { return pool_.is_exhausted(); }
  /// What a condition will say of such a projection, as far as that is known without making it.
  Outlook foresee(const ExpPtr& condition, const PItem& source, const Link& link);
  /// How many items the sentence has; and to forget that there were more, of which none is in use.
  int items_made() const { return pool_.made(); }
  void forget_after(int made) { pool_.forget_after(made); }
  /// Does as if a projection were made, and taken back.
  void pass_over_item() { pool_.count(); }
  /// Takes back what was made last, and is of no use. Most projections are.
  void give_back(PItem* item) {
    count(Step::given_back);
    pool_.give_back(item);
  }
  /// The item of a word, in its node.
  PItem* make_lexical_item(const GCate& node, LexItem* lexitem);

  /// The items of a node that end at a word index and have filled the positions up to this one.
  /// Behind the last position: those that came from subclasses, by their starts.
  const Items& bucket(const GCate& node, int position, int word_index) const {
    return cell(node.column(position), word_index);
  }
  /// Calls `visit` for the items of a bucket of one span, in the order of their coming, and those
  /// of other spans where need be, until it says true. True if it did.
  template <class Visit>
  bool any_of_span(const GCate& node, int position, const PItem& like, Visit visit) const {
    const Items& items = bucket(node, position, like._high);
    if (items.empty()) return false;
    if (shifted_) {
      for (PItem* item : items)
        if (visit(item)) return true;
      return false;
    }
    PItem* item = by_span_.find(node.column(position), like._high, like._low);
    for (; item; item = item->same_span)
      if (visit(item)) return true;
    return false;
  }
  /// A stored item has another span than it was stored with.
  void note_shift() { shifted_ = true; }
  /// What waits on a link, and ends at a word index.
  const Items& waiting_at(const Link& link, int word_index) const {
    return cell(link.column(), word_index);
  }
  /// Something waits on one of the links that arrive at the node.
  bool any_waits(const GCate& node, int word_index) const {
    return static_cast<std::size_t>(word_index) < rows_.size() &&
           rows_[static_cast<std::size_t>(word_index)].awaited.test(node._number);
  }
  /// An item that was not taken from a subclass ends there.
  bool ends_at(const GCate& node, int word_index) const {
    return static_cast<std::size_t>(word_index) < rows_.size() &&
           rows_[static_cast<std::size_t>(word_index)].ended.test(node._number);
  }
  /// The word indexes that have rows.
  int row_count() const { return static_cast<int>(rows_.size()); }

  /// Stores an item in a cell by its end; nowhere if that lies before the sentence.
  void store(const GCate& node, int position, PItem* item);
  void park(const Link& link, PItem* item);
  /// The same behind the node's positions, in the order of starts. False if it was not stored.
  bool store_by_start(const GCate& node, PItem* item);

  /// What the condition of a position on the words to be skipped said of a word, where it need not
  /// be asked twice; null for a place that is not kept.
  enum class Answer : std::uint8_t { none, no, yes };
  Answer* answer(const GCate& node, int position, int word_index) {
    const auto word = static_cast<std::size_t>(word_index);
    const std::size_t place = static_cast<std::size_t>(node.column(position)) * words_ + word;
    return word < words_ && place < answers_.size() ? &answers_[place] : nullptr;
  }

  /// Items of a node that wait to be sent upward.
  Items& ready(const GCate& node) { return ready_[static_cast<std::size_t>(node._number)]; }

  /// Makes room for what the grammar has; to be called before a sentence is parsed.
  void start();
  /// Forgets the sentence.
  void reset();
  /// Forgets the items of one node.
  void clear(const GCate& node);

 private:
  struct Row {
    std::unique_ptr<Items[]> cells;
    int columns = 0;
    LBitSet awaited;  // nodes with links on which something waits
    LBitSet ended;    // nodes of which there are items, but for those of subclasses
  };
  struct Used {
    int word_index;
    int column;
  };
  static const Items kNoItems;

  const Items& cell(int column, int word_index) const {
    if (static_cast<std::size_t>(word_index) >= rows_.size()) return kNoItems;
    const Row& row = rows_[static_cast<std::size_t>(word_index)];
    return static_cast<unsigned>(column) < static_cast<unsigned>(row.columns) ? row.cells[column]
                                                                              : kNoItems;
  }
  Items* new_cell(int column, int word_index);

  const Grammar& grammar_;
  ItemPool pool_;
  PItem shown_;  // looks like an item that may not be worth making
  std::vector<Row> rows_;
  std::vector<Used> used_;  // cells that are not empty
  SpanIndex by_span_;
  bool shifted_ = false;  // the index does not hold for all items
  std::vector<Items> ready_;
  std::vector<Answer> answers_;  // a row of words for each column
  std::size_t words_ = 0;
};

}  // namespace torvane
