#include "parser/chart/span_index.h"

#include <algorithm>
#include <utility>

namespace torvane {
namespace {

constexpr std::size_t kLeastSlots = 256;

}  // namespace

void SpanIndex::add(int column, int word_index, PItem* item) {
  if (used_ * 2 >= slots_.size()) grow();
  const std::uint64_t key = key_of(column, word_index, item->_low);
  Slot& slot = slots_[place_of(key)];
  if (slot.sentence == sentence_) {
    slot.last = slot.last->same_span = item;
    return;
  }
  slot = {key, sentence_, item, item};
  ++used_;
}

void SpanIndex::grow() {
  std::vector<Slot> old(std::max(kLeastSlots, slots_.size() * 2));
  slots_.swap(old);
  for (const Slot& slot : old)
    if (slot.sentence == sentence_) slots_[place_of(slot.key)] = slot;
}

}  // namespace torvane
