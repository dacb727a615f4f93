#include "parser/chart/chart.h"

#include <utility>
#include <vector>

#include "parser/grammar/syntax_atts.h"

namespace torvane {
namespace {

// Words bring new frames along, so that the next sentence may need some more columns.
constexpr int kSpareColumns = 64;

}  // namespace

constinit const Chart::Items Chart::kNoItems;

PItem* Chart::copy_item(const PItem* source, const AttSet* atts) {
  PItem* item = new_item();
  if (!item) return nullptr;
  item->_low = source->_low;
  item->_high = source->_high;
  item->_atts->unify(*source->_atts, atts, 1);
  item->_head_child = const_cast<PItem*>(source);
  item->_weight += source->_weight;
  return item;
}

Outlook Chart::foresee(const ExpPtr& condition, const PItem& source, const Link& link) {
  AttInterpreterList* type = grammar_._att_type;
  if (source._atts->interpreters != type) return Outlook::unknown;
  if (!shown_._atts || shown_._atts->interpreters != type) shown_._atts = make_ref<AttVec>(type);
  shown_._low = source._low;
  shown_._high = source._high;
  shown_._head_child = const_cast<PItem*>(&source);
  shown_._link = &link;
  shown_._weight = source._weight;
  shown_.head_word = nullptr;
  shown_._atts->show(*source._atts, link._percolate);
  const Outlook outlook = condition->foresee(Value::of(&shown_), p_item_type());
  shown_._atts->show_nothing();
  return outlook;
}

PItem* Chart::make_lexical_item(const GCate& node, LexItem* lexitem) {
  PItem* item = new_item();
  if (!item) return nullptr;
  item->_low = lexitem->low;
  item->_high = lexitem->high;
  item->_node = &node;
  const AttVec* vec = lexitem->vec();
  if (vec) item->_atts->unify(*vec, nullptr, 1);
  if (!lexitem_of(*item) && item->_low <= item->_high)
    store_att(*item->_atts, syntax_atts(*item->_atts).lexitem, lexitem);
  return item;
}

Chart::Items* Chart::new_cell(int column, int word_index) {
  if (word_index < 0 || column < 0) return nullptr;
  auto index = static_cast<std::size_t>(word_index);
  if (index >= rows_.size()) rows_.resize(index + 1);
  Row& row = rows_[index];
  // The network is as it is while a sentence is parsed: a row that is too narrow is of an earlier
  // one, and empty.
  if (row.columns < grammar_.column_count()) {
    row.columns = grammar_.column_count() + kSpareColumns;
    row.cells = std::make_unique<Items[]>(static_cast<std::size_t>(row.columns));
  }
  Items& items = row.cells[column];
  if (items.empty()) used_.push_back({word_index, column});
  return &items;
}

void Chart::store(const GCate& node, int position, PItem* item) {
  Items* items = new_cell(node.column(position), item->_high);
  if (!items) return;
  items->append(item);
  if (position < node.n_positions())
    rows_[static_cast<std::size_t>(item->_high)].ended.set(node._number);
  // One that is stored twice is in the index once.
  if (std::exchange(item->stored_in, this)) {
    shifted_ = true;
  } else {
    by_span_.add(node.column(position), item->_high, item);
  }
}

void Chart::park(const Link& link, PItem* item) {
  Items* items = new_cell(link.column(), item->_high);
  if (!items) return;
  items->append(item);
  rows_[static_cast<std::size_t>(item->_high)].awaited.set(link._parent->_number);
}

bool Chart::store_by_start(const GCate& node, PItem* item) {
  Items* items = new_cell(node.column(node.n_positions()), item->_high);
  if (!items) return false;
  Items::Cell* before;
  items->find_sorted(
      item->_low, [](const PItem* other, int low) { return low - other->_low; }, before);
  items->insert_after(before, item);
  return true;
}

void Chart::start() {
  ready_.resize(static_cast<std::size_t>(grammar_.node_count()));
  words_ = grammar_._lex ? static_cast<std::size_t>(grammar_._lex->word_count()) : 0;
  answers_.assign(static_cast<std::size_t>(grammar_.column_count()) * words_, Answer::none);
}

void Chart::reset() {
  for (Used used : used_) {
    Row& row = rows_[static_cast<std::size_t>(used.word_index)];
    row.cells[used.column].clear();
    row.awaited.reset();
    row.ended.reset();
  }
  used_.clear();
  by_span_.clear();
  shifted_ = false;
  pool_.reset();
  spans.reset();
  case_marks.reset();
  oblique_case_marks.reset();
}

void Chart::clear(const GCate& node) {
  const int first = node.column(0);
  const int last = node.column(node.n_positions());
  shifted_ = true;
  std::erase_if(used_, [&](Used used) {
    if (used.column < first || used.column > last) return false;
    Row& row = rows_[static_cast<std::size_t>(used.word_index)];
    row.cells[used.column].clear();
    row.ended.clear(node._number);
    return true;
  });
}

}  // namespace torvane
