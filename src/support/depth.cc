#include "support/depth.h"

#include <pthread.h>

#include <iostream>

#include "support/sanitizer.h"

namespace torvane {

namespace {

// What must be left for the calls between two guards and for the way out.
constexpr std::size_t kReserve = (kAddressSanitizer ? 3 : 2) * 1024 * 1024;

thread_local char* lowest_address = nullptr;
thread_local int guards_held = 0;
thread_local std::uint64_t current_run = 1;

[[gnu::noinline]] char* find_lowest_address() {
  pthread_attr_t attributes;
  void* address = nullptr;
  std::size_t size = 0;
  std::size_t guard = 0;
  if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
    pthread_attr_getstack(&attributes, &address, &size);
    pthread_attr_getguardsize(&attributes, &guard);
    pthread_attr_destroy(&attributes);
  }
  return lowest_address = static_cast<char*>(address) + guard;
}

}  // namespace

std::size_t stack_left() {
  char* lowest = lowest_address ? lowest_address : find_lowest_address();
  char* here = static_cast<char*>(__builtin_frame_address(0));
  return here > lowest ? static_cast<std::size_t>(here - lowest) : 0;
}

DepthGuard::DepthGuard(DepthLimit& limit) : limit_(limit), ok_(!has_tripped(limit)) {
  ++guards_held;
  ++limit_.depth;
  if (!ok_) return;
  if ((limit_.max_depth > 0 && limit_.depth > limit_.max_depth) || stack_left() < kReserve) {
    ok_ = false;
    trip(limit_);
  }
}

DepthGuard::~DepthGuard() {
  --limit_.depth;
  --guards_held;
}

void trip(DepthLimit& limit) {
  if (!has_tripped(limit)) std::cerr << limit.message << '\n';
  limit.tripped_in = current_run;
}

bool has_tripped(const DepthLimit& limit) {
  return limit.tripped_in == current_run;
}

void lift_depth_limits() {
  if (guards_held == 0) ++current_run;
}

int run_on_large_stack(std::size_t bytes, int (*body)()) {
  struct Run {
    int (*body)();
    int result;
  } run{body, 0};
  auto start = [](void* argument) -> void* {
    auto* r = static_cast<Run*>(argument);
    r->result = r->body();
    return nullptr;
  };
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, bytes);
  pthread_t thread;
  bool started = pthread_create(&thread, &attributes, start, &run) == 0;
  pthread_attr_destroy(&attributes);
  // Where there is no room for the stack, the guards make do with the one that there is.
  if (!started) return body();
  pthread_join(thread, nullptr);
  return run.result;
}

}  // namespace torvane
