// Blocks of words for vectors and their values. A parse makes and drops them by the thousand, so
// they are recycled by size and never reach the allocator in a steady state.
#pragma once

#include <cstddef>
#include <cstdint>

#include "support/sanitizer.h"

namespace torvane {

class BlockPool {
 public:
  /// A block of so many words, its content arbitrary.
  static void* take(std::size_t words) {
    if (words < kSizes && free_[words] != nullptr) {
      Block* block = free_[words];
      free_[words] = block->next;
      return block;
    }
    return take_fresh(words);
  }
  /// Takes a block back; null is nothing.
  static void give(void* block, std::size_t words) {
    if (block == nullptr) return;
    if (words >= kSizes || !kRecycles) {
      free_fresh(block);
      return;
    }
    auto* freed = static_cast<Block*>(block);
    freed->next = free_[words];
    free_[words] = freed;
  }
  /// False under the address sanitizer, which is to see what is freed: then nothing is kept for
  /// reuse.
  static bool recycles() { return kRecycles; }
  static constexpr std::size_t words_for(std::size_t bytes) {
    return (bytes + sizeof(std::uintptr_t) - 1) / sizeof(std::uintptr_t);
  }

 private:
  struct Block {
    Block* next;
  };
  static constexpr std::size_t kSizes = 128;
  static constexpr bool kRecycles = !kAddressSanitizer;

  static void* take_fresh(std::size_t words);
  static void free_fresh(void* block);

  static inline constinit thread_local Block* free_[kSizes] = {};
};

}  // namespace torvane
