// Memory that is used again without a way to the allocator: blocks by their size in words, and
// spare objects with the storage that they have grown.
//
// Both are a thread's own, so that nothing is locked. When a thread ends, its blocks go to the
// process, from which threads that need some take them again: threads that come and go leave the
// memory level. Under the address sanitizer, which is to see what is freed, nothing is used again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "support/sanitizer.h"

namespace torvane {

class BlockPool {
 public:
  /// A block of so many words, its content arbitrary. Of `kSizes` words and more it comes from the
  /// allocator.
  static void* take(std::size_t words) {
    if (words < kSizes && free_[words] != nullptr) {
      Link* block = free_[words];
      free_[words] = block->next;
      return block;
    }
    return take_fresh(words);
  }
  /// Takes a block back; null is nothing.
  static void give(void* block, std::size_t words) {
    if (block == nullptr) return;
    if (words >= kSizes || kAddressSanitizer) {
      drop_fresh(block);
      return;
    }
    auto* freed = static_cast<Link*>(block);
    freed->next = free_[words];
    free_[words] = freed;
  }
  /// Takes a row of blocks back that are linked by their first words. Only where `kRecycles`.
  static void give_row(void* first, void* last, std::size_t words) {
    static_cast<Link*>(last)->next = free_[words];
    free_[words] = static_cast<Link*>(first);
  }

  static constexpr bool kRecycles = !kAddressSanitizer;
  static constexpr std::size_t kSizes = 520;  // a usual chunk of texts is below it
  static constexpr std::size_t words_for(std::size_t bytes) {
    return (bytes + sizeof(std::uintptr_t) - 1) / sizeof(std::uintptr_t);
  }

 private:
  struct Link {
    Link* next;
    Link* next_row;  ///< of the first block of a row that waits in the process
  };
  class Process;

  static void* take_fresh(std::size_t words);
  static void drop_fresh(void* block);

  static inline constinit thread_local Link* free_[kSizes] = {};
};

/// Supplies the new and delete of a class: its objects are blocks of the pool.
template <class T>
class Pooled {
 public:
  static void* operator new(std::size_t) { return BlockPool::take(words()); }
  static void operator delete(void* object) { BlockPool::give(object, words()); }

 private:
  static constexpr std::size_t words() { return BlockPool::words_for(sizeof(T)); }
};

/// Objects of a T that keeps its storage, `kMost` at most, in wait for who needs one. They go when
/// their thread ends.
template <class T, std::size_t kMost>
class Spares {
 public:
  /// One that was given, or a fresh T.
  static T take() {
    auto& waiting = list();
    if (waiting.empty()) return T();
    T object = std::move(waiting.back());
    waiting.pop_back();
    return object;
  }
  static void give(T object) {
    if (!kAddressSanitizer && list().size() < kMost) list().push_back(std::move(object));
  }

 private:
  static std::vector<T>& list() {
    static thread_local std::vector<T> waiting;
    return waiting;
  }
};

}  // namespace torvane
