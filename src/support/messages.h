// Where messages go. They come from everywhere, containers and regular expressions among them, so
// the stream is not handed down call by call: it is bound to the thread while a world runs in it.
#pragma once

#include <ostream>

namespace torvane {

/// The error stream of what runs in this thread; the process's own if nothing is bound.
std::ostream& messages();

/// Sends the thread's messages to `stream` while it lives.
class MessagesTo {
 public:
  explicit MessagesTo(std::ostream& stream);
  ~MessagesTo();
  MessagesTo(const MessagesTo&) = delete;
  MessagesTo& operator=(const MessagesTo&) = delete;

 private:
  std::ostream* outer_;
};

}  // namespace torvane
