#include "support/messages.h"

#include <iostream>
#include <utility>

namespace torvane {

namespace {
thread_local std::ostream* bound = nullptr;
}

std::ostream& messages() {
  return bound ? *bound : std::cerr;
}

MessagesTo::MessagesTo(std::ostream& stream) : outer_(std::exchange(bound, &stream)) {}

MessagesTo::~MessagesTo() {
  bound = outer_;
}

}  // namespace torvane
