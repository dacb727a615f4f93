#include "support/depth.h"

#include <pthread.h>


#include "support/messages.h"
#include "support/sanitizer.h"

namespace torvane {

namespace {

// What must be left for the calls between two guards and for the way out.
constexpr std::size_t kReserve = (kAddressSanitizer ? 3 : 2) * 1024 * 1024;

thread_local char* lowest_address = nullptr;

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

DepthGuard::DepthGuard(DepthLimit& limit) : limit_(limit), ok_(true) {
  ++limit_.depth;
  if (limit_.tripped) {
    ok_ = false;
  } else if ((limit_.max_depth > 0 && limit_.depth > limit_.max_depth) || stack_left() < kReserve) {
    ok_ = false;
    limit_.tripped = true;
    messages() << limit_.message << '\n';
  }
}

DepthGuard::~DepthGuard() {
  if (--limit_.depth == 0) limit_.tripped = false;
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
