#include "shell/placed_messages.h"

#include "shell/places.h"

namespace torvane {

void PlacedMessages::message_may_begin() {
  const std::string_view so_far = out_.view();
  if (!so_far.empty() && !so_far.ends_with('\n')) return;
  end();
  place_ = places_.current;
  form_ = places_.top_form;
}

void PlacedMessages::end() {
  if (out_.view().empty()) return;
  PlacedMessage message{std::move(out_).str(), place_, form_};
  out_.str({});
  taker_(message);
}

void PlacedMessages::process_ends() {
  end();
  if (at_end_) at_end_();
}

}  // namespace torvane
