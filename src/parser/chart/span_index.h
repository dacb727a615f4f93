// The items of a cell by their spans: whoever looks for an item like another one need not walk the
// whole cell, which grows with the square of the words.
#pragma once

#include <cstdint>
#include <vector>

#include "parser/chart/p_item.h"

namespace torvane {

class SpanIndex {
 public:
  /// The first item of a cell that was stored with this start; the others hang on it in the order
  /// of their coming.
  PItem* find(int column, int word_index, int low) const {
    if (slots_.empty()) return nullptr;
    const Slot& slot = slots_[place_of(key_of(column, word_index, low))];
    return slot.sentence == sentence_ ? slot.first : nullptr;
  }
  void add(int column, int word_index, PItem* item);
  /// Forgets all items.
  void clear() {
    ++sentence_;
    used_ = 0;
  }

 private:
  struct Slot {
    std::uint64_t key = 0;
    std::uint64_t sentence = 0;  // one that is over: the slot is free
    PItem* first = nullptr;
    PItem* last = nullptr;
  };

  static std::uint64_t key_of(int column, int word_index, int low) {
    return static_cast<std::uint64_t>(column) << 32 |
           static_cast<std::uint64_t>(word_index & 0xffff) << 16 |
           static_cast<std::uint64_t>(low & 0xffff);
  }
  std::size_t place_of(std::uint64_t key) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = static_cast<std::size_t>((key * 0x9E3779B97F4A7C15u) >> 32) & mask;
    while (slots_[i].sentence == sentence_ && slots_[i].key != key) i = (i + 1) & mask;
    return i;
  }
  void grow();

  std::vector<Slot> slots_;
  std::size_t used_ = 0;
  std::uint64_t sentence_ = 1;
};

}  // namespace torvane
