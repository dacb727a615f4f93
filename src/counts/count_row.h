// Counts of triples in rows: `head TAB relation TAB modifier TAB count`, sorted by their bytes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "counts/file_writer.h"

namespace torvane {

/// The key is all that stands before the count, with the last tab: so keys are in the order of
/// whole rows.
struct CountRow {
  std::string key;
  std::uint64_t count = 0;
};

/// The sum; the highest number there is where it would be above it. So sums come out the same in
/// any order.
constexpr std::uint64_t sum_of_counts(std::uint64_t a, std::uint64_t b) {
  return a + b < a ? UINT64_MAX : a + b;
}

/// Reads a row, without its line's end. Null, or what is wrong with it.
const char* read_count_row(std::string_view line, CountRow& row);
void write_count_row(FileWriter& out, std::string_view key, std::uint64_t count);

/// Sorted rows, each key once.
class RowSource {
 public:
  virtual ~RowSource() = default;
  /// The next row; false at the end.
  virtual bool next(CountRow& row) = 0;
};

}  // namespace torvane
