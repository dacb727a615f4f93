#include "counts/count_sorter.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace torvane {
namespace {

constexpr std::size_t kFirstSlots = 1024;
constexpr std::size_t kTextBlock = std::size_t{1} << 16;

}  // namespace

/// What is in memory, in order.
class CountSorter::SortedEntries : public RowSource {
 public:
  explicit SortedEntries(const std::deque<Entry>& entries) : entries_(entries) {
    order_.resize(entries.size());
    std::iota(order_.begin(), order_.end(), 0U);
    std::sort(order_.begin(), order_.end(),
              [&](std::uint32_t a, std::uint32_t b) { return entries[a].key < entries[b].key; });
  }
  bool next(CountRow& row) override {
    if (at_ == order_.size()) return false;
    const Entry& entry = entries_[order_[at_++]];
    row.key = entry.key;
    row.count = entry.count;
    return true;
  }

 private:
  const std::deque<Entry>& entries_;
  std::vector<std::uint32_t> order_;
  std::size_t at_ = 0;
};

CountSorter::CountSorter(std::size_t memory, std::string folder)
    : memory_(memory), slots_(kFirstSlots), runs_(std::move(folder)) {}

// With the order that sorting needs.
std::size_t CountSorter::memory_in_use() const {
  return text_bytes_ + entries_.size() * (sizeof(Entry) + sizeof(std::uint32_t)) +
         slots_.size() * sizeof(std::uint32_t);
}

std::uint32_t& CountSorter::slot_of(std::string_view key) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = std::hash<std::string_view>()(key) & mask;
  while (slots_[at] != 0 && entries_[slots_[at] - 1].key != key) at = (at + 1) & mask;
  return slots_[at];
}

void CountSorter::grow() {
  const std::size_t size = slots_.size() * 2;
  std::vector<std::uint32_t>().swap(slots_);
  slots_.resize(size);
  for (std::uint32_t i = 0; i < entries_.size(); ++i) slot_of(entries_[i].key) = i + 1;
}

std::string_view CountSorter::keep(std::string_view key) {
  if (key.size() > block_left_) {
    block_left_ = std::max(key.size(), kTextBlock);
    text_.push_back(std::make_unique_for_overwrite<char[]>(block_left_));
    text_bytes_ += block_left_;
  }
  // A block is filled from its end.
  block_left_ -= key.size();
  char* const place = text_.back().get() + block_left_;
  std::copy(key.begin(), key.end(), place);
  return {place, key.size()};
}

void CountSorter::add(std::string_view key, std::uint64_t count) {
  std::uint32_t& slot = slot_of(key);
  if (slot != 0) {
    Entry& entry = entries_[slot - 1];
    entry.count = sum_of_counts(entry.count, count);
    return;
  }
  entries_.push_back({keep(key), count});
  slot = static_cast<std::uint32_t>(entries_.size());
  if (entries_.size() * 2 > slots_.size()) grow();
  if (memory_in_use() > memory_) spill();
}

void CountSorter::spill() {
  SortedEntries rows(entries_);
  runs_.add(rows);
  entries_.clear();
  std::fill(slots_.begin(), slots_.end(), 0U);
  text_.clear();
  text_bytes_ = block_left_ = 0;
}

std::unique_ptr<RowSource> CountSorter::sorted() {
  auto rest = std::make_unique<SortedEntries>(entries_);
  if (runs_.empty()) return rest;
  return runs_.merged(std::move(rest));
}

}  // namespace torvane
