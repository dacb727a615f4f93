#include "support/messages.h"

#include <cstdlib>
#include <iostream>
#include <utility>

namespace torvane {

namespace {
thread_local std::ostream* bound = nullptr;
thread_local MessageListener* bound_listener = nullptr;
}  // namespace

std::ostream& messages() {
  if (bound_listener) bound_listener->message_may_begin();
  return bound ? *bound : std::cerr;
}

void end_process(int status) {
  if (bound_listener) bound_listener->process_ends();
  std::exit(status);
}

MessagesTo::MessagesTo(std::ostream& stream, MessageListener* listener)
    : outer_(std::exchange(bound, &stream)),
      outer_listener_(std::exchange(bound_listener, listener)) {}

MessagesTo::~MessagesTo() {
  bound = outer_;
  bound_listener = outer_listener_;
}

}  // namespace torvane
