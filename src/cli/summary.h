// What a run did, in numbers.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "engine/document.h"

namespace torvane {

class Summary {
 public:
  void count(const Sentence& sentence);
  bool all_whole() const { return whole_ == sentences_; }
  /// `200 sentences, 171 whole, 28 in parts, 1 cut; 1,900 a second`
  std::string text() const;

 private:
  std::uint64_t sentences_ = 0, whole_ = 0, parts_ = 0, cut_ = 0;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace torvane
