// Reads packed bytes within their bounds. Once something is missing all that follows reads as zero,
// so that a record is read to its end and asked once whether it was good.
#pragma once

#include <bit>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "support/big_endian.h"

namespace torvane {

class PackedReader {
 public:
  PackedReader(const char* bytes, const char* end) : at_(bytes), end_(end) {}
  PackedReader(const char* bytes, std::size_t size) : PackedReader(bytes, bytes + size) {}

  bool good() const { return good_; }
  bool at_end() const { return at_ == end_; }
  /// The first byte that was not read; the end once something was missing.
  const char* at() const { return at_; }
  /// Says that what was read makes no sense.
  void fail() {
    at_ = end_;
    good_ = false;
  }

  /// With its sign.
  std::int16_t byte() {
    const char* from = take(1);
    return from ? static_cast<signed char>(*from) : std::int16_t{0};
  }
  std::uint16_t half() {
    const char* from = take(2);
    return from ? load_be16(from) : std::uint16_t{0};
  }
  std::uint32_t word() {
    const char* from = take(4);
    return from ? load_be32(from) : std::uint32_t{0};
  }
  int integer() { return static_cast<int>(word()); }
  float real() { return std::bit_cast<float>(word()); }
  /// A number of things of at least `size` bytes each that follow; more than there can be is
  /// damage.
  int count(std::size_t size) {
    std::uint32_t n = word();
    if (n <= left() / size && n <= INT_MAX) return static_cast<int>(n);
    fail();
    return 0;
  }
  /// A zero-terminated text, in place; empty if there is none.
  const char* text() {
    const void* zero = at_ == end_ ? nullptr : std::memchr(at_, 0, left());
    if (zero) return std::exchange(at_, static_cast<const char*>(zero) + 1);
    fail();
    return "";
  }
  void skip(std::size_t size) { take(size); }
  /// Lets a thing read its own bytes.
  template <class Thing>
  void read(Thing& thing) {
    if (!good_ || !thing.unpack(at_, end_)) fail();
  }

 private:
  std::size_t left() const { return static_cast<std::size_t>(end_ - at_); }
  const char* take(std::size_t size) {
    if (left() >= size) return std::exchange(at_, at_ + size);
    fail();
    return nullptr;
  }

  const char* at_;
  const char* end_;
  bool good_ = true;
};

}  // namespace torvane
