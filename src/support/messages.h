// Where messages go. They come from everywhere, containers and regular expressions among them, so
// the stream is not handed down call by call: it is bound to the thread while a world runs in it.
#pragma once

#include <ostream>

namespace torvane {

/// The error stream of what runs in this thread; the process's own if nothing is bound. A message
/// is what is written between two calls of which the second finds the line ended.
std::ostream& messages();

/// Ends the process, behind a message: after a fault with which nothing can go on.
[[noreturn]] void end_process(int status);

/// Is told of each call of `messages`, and of the end.
class MessageListener {
 public:
  virtual ~MessageListener() = default;
  virtual void message_may_begin() = 0;
  virtual void process_ends() = 0;
};

/// Sends the thread's messages to `stream` while it lives, and tells the listener (null: nobody).
class MessagesTo {
 public:
  explicit MessagesTo(std::ostream& stream, MessageListener* listener = nullptr);
  ~MessagesTo();
  MessagesTo(const MessagesTo&) = delete;
  MessagesTo& operator=(const MessagesTo&) = delete;

 private:
  std::ostream* outer_;
  MessageListener* outer_listener_;
};

}  // namespace torvane
