#include "support/pool.h"

#include <pthread.h>

#include <algorithm>
#include <mutex>
#include <new>

namespace torvane {

namespace {

constexpr std::size_t kWord = sizeof(std::uintptr_t);
constexpr std::size_t kLeastWords = 2;  // what a link needs

constexpr std::size_t real_size(std::size_t words) {
  return std::max(words, kLeastWords);
}

}  // namespace

// The blocks of threads that have ended, in rows of limited length, so that a thread takes little
// more than it needs.
class BlockPool::Process {
 public:
  static Process& get() {
    static auto& process = *new Process;  // outlives every thread
    return process;
  }
  static constexpr std::size_t row_length(std::size_t words) {
    return std::max<std::size_t>(1, kRowWords / words);
  }

  /// A row of blocks, or null.
  Link* take(std::size_t words) {
    std::lock_guard lock(mutex_);
    Link* row = rows_[words];
    if (row) rows_[words] = row->next_row;
    return row;
  }
  /// Sees to it that the blocks of the running thread come here at its end: behind the destructors
  /// of its objects, which may still give blocks.
  void await_end() { pthread_setspecific(key_, this); }

 private:
  static constexpr std::size_t kRowWords = 2048;

  static_assert(sizeof(Link) == kLeastWords * kWord);

  Process() { pthread_key_create(&key_, thread_ends); }
  static void thread_ends(void*) {
    for (std::size_t words = 0; words < kSizes; ++words)
      if (free_[words]) get().give(std::exchange(free_[words], nullptr), real_size(words));
  }
  void give(Link* blocks, std::size_t words) {
    std::lock_guard lock(mutex_);
    while (blocks) {
      Link* last = blocks;
      for (std::size_t n = row_length(words); n > 1 && last->next; --n) last = last->next;
      blocks->next_row = std::exchange(rows_[words], blocks);
      blocks = std::exchange(last->next, nullptr);
    }
  }

  pthread_key_t key_;
  std::mutex mutex_;
  Link* rows_[kSizes] = {};
};

// Small blocks are made a row at a time, side by side.
void* BlockPool::take_fresh(std::size_t words) {
  constexpr std::size_t kSmall = 128;
  words = real_size(words);
  if (words >= kSizes || kAddressSanitizer) return ::operator new(words* kWord);
  Process& process = Process::get();
  process.await_end();
  if (Link* row = process.take(words)) {
    free_[words] = row->next;
    return row;
  }
  if (words > kSmall) return ::operator new(words* kWord);
  const std::size_t count = Process::row_length(words);
  auto* block = static_cast<std::uintptr_t*>(::operator new(count* words* kWord));
  for (std::size_t i = count; --i > 0;) give(block + i * words, words);
  return block;
}

void BlockPool::drop_fresh(void* block) {
  ::operator delete(block);
}

}  // namespace torvane
