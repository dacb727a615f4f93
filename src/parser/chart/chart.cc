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

bool Chart::ends_at(const GCate& node, int word_index) const {
  for (int position = 0; position < node.n_positions(); ++position)
    if (!bucket(node, position, word_index).empty()) return true;
  return false;
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
}

void Chart::reset() {
  for (Used used : used_) {
    Row& row = rows_[static_cast<std::size_t>(used.word_index)];
    row.cells[used.column].clear();
    row.awaited.reset();
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
    rows_[static_cast<std::size_t>(used.word_index)].cells[used.column].clear();
    return true;
  });
}

}  // namespace torvane
