// Messages one by one, each with where the form stood that was in hand.
#pragma once

#include <functional>
#include <ostream>
#include <sstream>
#include <string>

#include "shell/place.h"
#include "support/messages.h"

namespace torvane {

class Places;

struct PlacedMessage {
  std::string text;  ///< with the line's end
  Place place;
  std::string form;  ///< of a file, that was being run
};

/// Gathers what is written between two messages' beginnings, and gives it on.
class PlacedMessages : public MessageListener {
 public:
  using Taker = std::function<void(const PlacedMessage& message)>;

  /// `at_end` runs when the process ends because of what the last message tells.
  PlacedMessages(const Places& places, Taker taker, std::function<void()> at_end)
      : places_(places), taker_(std::move(taker)), at_end_(std::move(at_end)) {}
  std::ostream& stream() { return out_; }
  void message_may_begin() override;
  void process_ends() override;
  /// The message in hand is whole.
  void end();

 private:
  const Places& places_;
  const Taker taker_;
  const std::function<void()> at_end_;
  std::ostringstream out_;
  Place place_;
  std::string form_;
};

}  // namespace torvane
