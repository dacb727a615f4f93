#include "counts/count_row.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace torvane {

const char* read_count_row(std::string_view line, CountRow& row) {
  constexpr int kTabs = 3;
  const std::size_t last = line.rfind('\t');
  if (last == line.npos || std::count(line.begin(), line.end(), '\t') != kTabs)
    return "a row that has not four columns";
  const std::string_view digits = line.substr(last + 1);
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, row.count);
  if (error == std::errc::result_out_of_range) return "a count that is too high";
  if (error != std::errc() || stop != end) return "a count that is no number";
  if (row.count == 0) return "a count of 0";
  row.key.assign(line, 0, last + 1);
  return nullptr;
}

void write_count_row(FileWriter& out, std::string_view key, std::uint64_t count) {
  std::array<char, 24> digits;
  char* const end = std::to_chars(digits.begin(), digits.end(), count).ptr;
  *end = '\n';
  out.write(key);
  out.write({digits.data(), static_cast<std::size_t>(end + 1 - digits.data())});
}

}  // namespace torvane
