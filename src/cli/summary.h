// What a run did, in numbers.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "engine/document.h"

namespace torvane {

/// What a parse of a sentence came to.
enum class Outcome : unsigned char { whole, parts, cut };
Outcome outcome_of(const Sentence& sentence);

class Summary {
 public:
  void count(Outcome outcome) { ++counts_[static_cast<std::size_t>(outcome)]; }
  std::uint64_t sentences() const { return counts_[0] + counts_[1] + counts_[2]; }
  bool all_whole() const { return counts_[0] == sentences(); }
  double seconds() const;
  /// `200 sentences, 171 whole, 28 in parts, 1 cut; 1,900 a second`
  std::string text() const;

 private:
  std::array<std::uint64_t, 3> counts_ = {};
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

std::string with_commas(std::uint64_t number);

}  // namespace torvane
