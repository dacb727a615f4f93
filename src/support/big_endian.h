// Big-endian integers in bytes: the form of every packed record and store file.
#pragma once

#include <cstdint>

namespace torvane {

inline std::uint16_t load_be16(const void* p) {
  auto* b = static_cast<const unsigned char*>(p);
  return static_cast<std::uint16_t>(b[0] << 8 | b[1]);
}
inline std::uint32_t load_be32(const void* p) {
  auto* b = static_cast<const unsigned char*>(p);
  return std::uint32_t{b[0]} << 24 | std::uint32_t{b[1]} << 16 | std::uint32_t{b[2]} << 8 | b[3];
}
inline void store_be16(void* p, std::uint16_t n) {
  auto* b = static_cast<unsigned char*>(p);
  b[0] = static_cast<unsigned char>(n >> 8);
  b[1] = static_cast<unsigned char>(n);
}
inline void store_be32(void* p, std::uint32_t n) {
  store_be16(p, static_cast<std::uint16_t>(n >> 16));
  store_be16(static_cast<unsigned char*>(p) + 2, static_cast<std::uint16_t>(n));
}

}  // namespace torvane
