// Counts of keys as they come, in bounded memory: sorted runs go to the disk, and are merged in the
// end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "counts/row_merge.h"

namespace torvane {

class CountSorter {
 public:
  /// Keeps about so many bytes in memory; runs go to the folder.
  CountSorter(std::size_t memory, std::string folder);

  void add(std::string_view key, std::uint64_t count);
  /// All that was added, sorted. It leans on this object, and ends with the next `add`.
  std::unique_ptr<RowSource> sorted();
  /// The error number of what failed; 0 if nothing did.
  int error() const { return runs_.error(); }

 private:
  struct Entry {
    std::string_view key;
    std::uint64_t count;
  };
  class SortedEntries;
  std::size_t memory_in_use() const;
  std::uint32_t& slot_of(std::string_view key);
  void grow();
  std::string_view keep(std::string_view key);
  void spill();

  const std::size_t memory_;
  std::deque<Entry> entries_;
  std::vector<std::uint32_t> slots_;           // numbers of entries from 1, by hash; 0: none
  std::vector<std::unique_ptr<char[]>> text_;  // blocks of keys
  std::size_t text_bytes_ = 0, block_left_ = 0;
  Runs runs_;
};

}  // namespace torvane
