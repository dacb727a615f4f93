#include "att/block_pool.h"

#include <new>

namespace torvane {

void* BlockPool::take_fresh(std::size_t words) {
  return ::operator new((words > 0 ? words : 1) * sizeof(std::uintptr_t));
}

void BlockPool::free_fresh(void* block) {
  ::operator delete(block);
}

}  // namespace torvane
