// How often the process has asked the allocator for memory: a benchmark that claims to allocate
// nothing in steady state shows it.
#pragma once

#include <cstdint>

namespace torvane {

std::uint64_t allocation_count();

}  // namespace torvane
