// How far a merge may reach from a word, as lexical rules isolate stretches of the sentence.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace torvane {

class SpanLimits {
 public:
  /// The leftmost start and the rightmost end of a merge over a word, to be changed.
  std::pair<int, int>& span_limits(int word);
  /// A merge may reach from its first to its last word.
  bool span_allowed(int low, int high) const {
    return limits(low).second >= high && limits(high).first <= low;
  }
  void reset() {
    if (limited_words_ > 0) lift();
  }

 private:
  static const std::pair<int, int> kNone;
  void lift();
  const std::pair<int, int>& limits(int word) const {
    auto index = static_cast<std::size_t>(word);
    return index < limited_words_ ? spans_[index] : kNone;
  }

  std::vector<std::pair<int, int>> spans_;
  std::size_t limited_words_ = 0;  // of spans_: those that may differ from the default
};

}  // namespace torvane
