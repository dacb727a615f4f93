// Where a form stands: a file and a line in one word, so that every form can carry it.
#pragma once

#include <cstdint>

namespace torvane {

struct Place {
  static constexpr int kLineBits = 20;
  static constexpr std::uint32_t kMostLines = (1u << kLineBits) - 1;
  static constexpr std::uint32_t kMostFiles = (1u << (32 - kLineBits)) - 1;

  std::uint32_t word = 0;  ///< 0: nowhere in a file

  /// The number of the file in its world, from 1 on.
  std::uint32_t file() const { return word >> kLineBits; }
  /// From 1 on.
  std::uint32_t line() const { return word & kMostLines; }
  explicit operator bool() const { return word != 0; }
  bool operator==(const Place&) const = default;
};

}  // namespace torvane
