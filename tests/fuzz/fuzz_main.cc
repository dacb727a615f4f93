#include <cstdint>

#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::cerr.setstate(std::ios::failbit);
  torvane::read_input(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
