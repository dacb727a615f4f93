#include "parser/chart/span_limits.h"

#include <algorithm>
#include <limits>

namespace torvane {

constinit const std::pair<int, int> SpanLimits::kNone{-1, std::numeric_limits<int>::max()};

std::pair<int, int>& SpanLimits::span_limits(int word) {
  auto index = static_cast<std::size_t>(std::max(word, 0));
  if (index >= spans_.size()) spans_.resize(index + 1, kNone);
  limited_words_ = std::max(limited_words_, index + 1);
  return spans_[index];
}

void SpanLimits::lift() {
  std::fill_n(spans_.begin(), limited_words_, kNone);
  limited_words_ = 0;
}

}  // namespace torvane
