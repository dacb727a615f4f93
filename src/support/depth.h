// Guards on recursion: what a start-up file nests, the process must survive.
//
// A guard watches the stack that is really left (and, where asked, a count), so that it, not the
// stack, ends a runaway recursion. Once it has said no it goes on saying no until its recursion has
// unwound to the outermost call: otherwise a function that calls itself twice would still run for
// ever.
#pragma once

#include <cstddef>

namespace torvane {

/// One kind of recursion, a static object beside the recursive function.
struct DepthLimit {
  const char* message;  ///< written once a trip on the error stream, with a newline
  int max_depth = 0;    ///< 0: only the stack counts
  int depth = 0;
  bool tripped = false;
};

/// Entered at each call; false when the call must be given up.
class DepthGuard {
 public:
  explicit DepthGuard(DepthLimit& limit);
  ~DepthGuard();
  DepthGuard(const DepthGuard&) = delete;
  DepthGuard& operator=(const DepthGuard&) = delete;
  explicit operator bool() const { return ok_; }

 private:
  DepthLimit& limit_;
  bool ok_;
};

/// Bytes of stack left below the caller.
std::size_t stack_left();

/// Runs `body` on a stack of `bytes` bytes and gives its result: how the process gets a stack that
/// fits the guards.
int run_on_large_stack(std::size_t bytes, int (*body)());

}  // namespace torvane
