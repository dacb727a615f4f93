#include "support/depth.h"

#include <thread>

#include "support/test_support.h"

namespace torvane {
namespace {

thread_local DepthLimit counted{"counted: too deep", 100};
thread_local DepthLimit by_stack{"by stack: too deep"};
int calls;

void call_twice(DepthLimit& limit) {
  DepthGuard guard(limit);
  if (!guard) return;
  ++calls;
  call_twice(limit);
  call_twice(limit);
}

TEST(Depth, EndsARecursionThatBranches) {
  for (int round = 0; round < 2; ++round) {
    calls = 0;
    EXPECT_EQ(messages_of([] { call_twice(counted); }), "counted: too deep\n");
    EXPECT_EQ(calls, 100);
    lift_depth_limits();
  }
}

int deepest;
int go_down(int n) {
  volatile char frame[1000] = {};
  DepthGuard guard(by_stack);
  if (!guard) return n;
  return go_down(n + 1) + frame[n % 1000];
}

TEST(Depth, EndsBeforeTheStackDoes) {
  testing::internal::CaptureStderr();
  int on_this_stack = go_down(0);
  lift_depth_limits();
  std::thread([] { deepest = go_down(0); }).join();
  lift_depth_limits();
  int on_a_large_one = run_on_large_stack([] { return go_down(0); });
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "by stack: too deep\nby stack: too deep\nby stack: too deep\n");
  EXPECT_GT(on_this_stack, 1000);
  EXPECT_GT(deepest, 1000);
  EXPECT_GT(on_a_large_one, 4 * on_this_stack);
}

}  // namespace
}  // namespace torvane
