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
#include <functional>

namespace torvane {

/// One kind of recursion, an object of the thread beside the recursive function.
struct DepthLimit {
  const char* message;  ///< written once a trip on the error stream, with a newline
  int max_depth = 0;    ///< 0: only the stack counts
  int depth = 0;
  std::uint64_t tripped_in = 0;  ///< the run in which it said no
};

/// What the guards of a thread share.
struct GuardState {
  std::uint64_t run = 1;
  int held = 0;                        ///< how many hold the run
  std::uintptr_t floor = UINTPTR_MAX;  ///< where the stack may not go below; at first not known
};
inline constinit thread_local GuardState guard_state;

/// For what grows in another way than the stack: says no from here on, as a guard does.
void trip(DepthLimit& limit);
inline bool has_tripped(const DepthLimit& limit) {
  return limit.tripped_in == guard_state.run;
}

/// Keeps the run going while it stands.
class RunHold {
 public:
  RunHold() { ++guard_state.held; }
  ~RunHold() { --guard_state.held; }
  RunHold(const RunHold&) = delete;
  RunHold& operator=(const RunHold&) = delete;
};

/// Entered at each call; false when the call must be given up.
class DepthGuard {
 public:
  explicit DepthGuard(DepthLimit& limit) : limit_(limit), ok_(!has_tripped(limit)) {
    ++limit_.depth;
    auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    if (here < guard_state.floor || (limit_.max_depth > 0 && limit_.depth > limit_.max_depth))
        [[unlikely]]
      look_closer();
  }
  ~DepthGuard() { --limit_.depth; }
  DepthGuard(const DepthGuard&) = delete;
  DepthGuard& operator=(const DepthGuard&) = delete;
  explicit operator bool() const { return ok_; }

 private:
  void look_closer();

  RunHold hold_;
  DepthLimit& limit_;
  bool ok_;
};

/// Ends a run: limits that have said no say yes again. For the ends of outermost forms, and where a
/// command goes on to something that has nothing to do with what went before, such as the next
/// sentence. Does nothing inside a guarded call.
inline void lift_depth_limits() {
  if (guard_state.held == 0) ++guard_state.run;
}

/// Bytes of stack left below the caller.
std::size_t stack_left();

/// The stack that the guards are made for: how the process gets it.
inline constexpr std::size_t kLargeStack = std::size_t{256} << 20;

/// Runs `body` on a stack of that size, in a thread of its own, and gives its result.
int run_on_large_stack(const std::function<int()>& body);

}  // namespace torvane
