#include "support/depth.h"

#include <pthread.h>

#include "support/messages.h"
#include "support/sanitizer.h"

namespace torvane {

namespace {

// What must be left for the calls between two guards and for the way out.
constexpr std::size_t kReserve = std::size_t{kAddressSanitizer ? 3 : 2} << 20;

std::uintptr_t find_floor() {
  pthread_attr_t attributes;
  void* address = nullptr;
  std::size_t size = 0;
  std::size_t guard = 0;
  if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
    pthread_attr_getstack(&attributes, &address, &size);
    pthread_attr_getguardsize(&attributes, &guard);
    pthread_attr_destroy(&attributes);
  }
  return guard_state.floor = reinterpret_cast<std::uintptr_t>(address) + guard + kReserve;
}

}  // namespace

std::size_t stack_left() {
  std::uintptr_t floor = guard_state.floor == UINTPTR_MAX ? find_floor() : guard_state.floor;
  std::uintptr_t lowest = floor - kReserve;
  auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  return here > lowest ? here - lowest : 0;
}

void trip(DepthLimit& limit) {
  if (!has_tripped(limit)) messages() << limit.message << '\n';
  limit.tripped_in = guard_state.run;
}

void DepthGuard::look_closer() {
  if (!ok_) return;
  ok_ = stack_left() >= kReserve && (limit_.max_depth == 0 || limit_.depth <= limit_.max_depth);
  if (!ok_) trip(limit_);
}

int run_on_large_stack(const std::function<int()>& body) {
  struct Run {
    const std::function<int()>& body;
    int result;
  } run{body, 0};
  auto start = [](void* argument) -> void* {
    auto* r = static_cast<Run*>(argument);
    r->result = r->body();
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, kLargeStack);
  pthread_t thread;
  bool started = pthread_create(&thread, &attributes, start, &run) == 0;
  pthread_attr_destroy(&attributes);
  // Where there is no room for the stack, the guards make do with the one that there is.
  if (!started) return body();
  pthread_join(thread, nullptr);
  return run.result;
}

}  // namespace torvane
