#include "att/block_pool.h"

#include <new>

namespace torvane {

#if defined(__SANITIZE_ADDRESS__)
const bool BlockPool::kRecycles = false;
#elif defined(__has_feature)
const bool BlockPool::kRecycles = !__has_feature(address_sanitizer);
#else
const bool BlockPool::kRecycles = true;
#endif

void* BlockPool::take_fresh(std::size_t words) {
  return ::operator new((words > 0 ? words : 1) * sizeof(std::uintptr_t));
}

void BlockPool::free_fresh(void* block) {
  ::operator delete(block);
}

}  // namespace torvane
