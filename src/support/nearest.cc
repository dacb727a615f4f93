#include "support/nearest.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace torvane {
namespace {

/// Letters that are to be put in, taken out or changed, or pairs to be swapped.
std::size_t distance(std::string_view a, std::string_view b) {
  using Row = std::vector<std::size_t>;
  Row before(b.size() + 1), row(b.size() + 1), next(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    next[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      next[j + 1] = std::min({row[j] + (a[i] == b[j] ? 0 : 1), row[j + 1] + 1, next[j] + 1});
      if (i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j])
        next[j + 1] = std::min(next[j + 1], before[j - 1] + 1);
    }
    before.swap(row);
    row.swap(next);
  }
  return row.back();
}

}  // namespace

std::string hint_for(std::string_view written, const std::vector<std::string>& names) {
  constexpr std::size_t kLongestName = 64;
  if (written.size() < 3 || written.size() > kLongestName) return {};
  const std::string* best = nullptr;
  std::size_t least = std::max<std::size_t>(written.size() / 3, 2) + 1;
  for (const std::string& name : names) {
    const std::size_t far = name.starts_with(written) ? 1 : distance(written, name);
    if (far >= least) continue;
    least = far;
    best = &name;
  }
  return best ? "; do you mean " + *best + "?" : std::string();
}

}  // namespace torvane
