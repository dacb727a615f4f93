#include "support/pool.h"

#include <gtest/gtest.h>

#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace torvane {
namespace {

constexpr std::size_t kWords = 7;

/// The addresses of all blocks that a test has seen.
class Seen {
 public:
  /// Holds so many blocks at once, in a thread of the test's.
  void use(int count) {
    std::vector<void*> blocks;
    for (int i = 0; i < count; ++i) blocks.push_back(BlockPool::take(kWords));
    std::lock_guard lock(mutex_);
    addresses_.insert(blocks.begin(), blocks.end());
    for (void* block : blocks) BlockPool::give(block, kWords);
  }
  std::size_t count() const { return addresses_.size(); }

 private:
  std::mutex mutex_;
  std::set<void*> addresses_;
};

TEST(BlockPool, ThreadsThatComeAndGoLeaveMemoryLevel) {
  if (!BlockPool::kRecycles) GTEST_SKIP();
  constexpr int kFew = 1000, kMany = 5000;
  Seen seen;
  for (int round = 0; round < 50; ++round) {
    std::thread few([&] { seen.use(kFew); });
    std::thread many([&] { seen.use(kMany); });
    few.join();
    many.join();
  }
  EXPECT_LT(seen.count(), 2U * (kFew + kMany));
}

/// Gives a block back when its thread's objects go, the last of them.
struct LastToGo {
  void* block = nullptr;
  ~LastToGo() { BlockPool::give(block, 100); }
};
thread_local LastToGo last_to_go;

TEST(BlockPool, WhatAThreadGivesInItsLastMomentIsKept) {
  if (!BlockPool::kRecycles) GTEST_SKIP();
  std::set<void*> blocks;
  for (int round = 0; round < 3; ++round)
    std::thread([&] { blocks.insert(last_to_go.block = BlockPool::take(100)); }).join();
  EXPECT_EQ(blocks.size(), 1U);
}

}  // namespace
}  // namespace torvane
