// Guards on recursion: what a start-up file nests, the process must survive.
//
// A guard watches the stack that is really left (and, where asked, a count), so that it, not the
// stack, ends a runaway recursion. Once it has said no it goes on saying no until whoever started
// it all is done: otherwise a function that calls itself twice would still run for ever. That its
// own recursion has unwound is not enough, since it may be a short one inside another, which starts
// it anew at every step.
#pragma once

#include <cstddef>
#include <cstdint>

namespace torvane {

/// One kind of recursion, an object of the thread beside the recursive function.
struct DepthLimit {
  const char* message;  ///< written once a trip on the error stream, with a newline
  int max_depth = 0;    ///< 0: only the stack counts
  int depth = 0;
  std::uint64_t tripped_in = 0;  ///< the run in which it said no
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

/// For what grows in another way than the stack: says no from here on, as a guard does.
void trip(DepthLimit& limit);
bool has_tripped(const DepthLimit& limit);

/// Ends a run: limits that have said no say yes again. For the ends of outermost forms, and where a
/// command goes on to something that has nothing to do with what went before, such as the next
/// sentence. Does nothing inside a guarded call.
void lift_depth_limits();

/// Bytes of stack left below the caller.
std::size_t stack_left();

/// Runs `body` on a stack of `bytes` bytes and gives its result: how the process gets a stack that
/// fits the guards.
int run_on_large_stack(std::size_t bytes, int (*body)());

}  // namespace torvane
