// The hashes of the system, in 32-bit unsigned arithmetic: they decide the order of everything that
// is listed, and the layout of index files.
#pragma once

#include <cstdint>
#include <string_view>

#include "support/text.h"

namespace torvane {

/// Of the PJW family, on lower-cased bytes: case-insensitive keys share a bucket.
inline std::uint32_t string_hash(std::string_view text) {
  std::uint32_t h = 0;
  for (char c : text) {
    h = (h << 4) + static_cast<unsigned char>(lower(c));
    if (std::uint32_t g = h & 0xF0000000u) h ^= (g >> 24) ^ g;
  }
  return h;
}
inline std::uint32_t string_hash(const char* text) {
  return string_hash(std::string_view(or_empty(text)));
}

constexpr std::uint32_t int_hash(std::uint32_t x) {
  return x * 0x9E3779B7u;
}

/// The first of a fixed row of primes that is not below n; n itself above them all.
int next_prime(int n);

}  // namespace torvane
