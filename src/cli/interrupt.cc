#include "cli/interrupt.h"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <initializer_list>

namespace torvane {
namespace {

volatile std::sig_atomic_t caught = 0;
// The signal comes to any thread: a call that waits in another one does not notice it by itself.
int wake[2] = {-1, -1};

void note(int signal) {
  caught = signal;
  [[maybe_unused]] const ssize_t wrote = write(wake[1], "", 1);
}

}  // namespace

void catch_interrupts() {
  std::signal(SIGPIPE, SIG_IGN);
  if (pipe(wake) != 0) return;
  struct sigaction action = {};
  action.sa_handler = note;
  action.sa_flags = static_cast<int>(SA_RESETHAND);  // a second one ends the process at once
  for (int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

bool is_interrupted() {
  return caught != 0;
}

int interrupt_descriptor() {
  return wake[0];
}

void end_by_interrupt() {
  std::signal(caught, SIG_DFL);
  std::raise(caught);
  std::_Exit(1);
}

}  // namespace torvane
