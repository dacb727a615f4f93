#include "shell/places.h"

#include "shell/placed_messages.h"
#include "support/text.h"

namespace torvane {

Places::Places() = default;
Places::~Places() = default;

Place Places::of(const void* thing) const {
  const auto found = places_.find(thing);
  return found == places_.end() ? Place() : found->second;
}

Place Places::begin_file(const std::string& path) {
  if (path.empty() || files_.size() >= Place::kMostFiles) return {};
  files_.push_back(path);
  return {static_cast<std::uint32_t>(files_.size()) << Place::kLineBits | 1};
}

std::string_view Places::file_of(Place place) const {
  return place ? std::string_view(files_[place.file() - 1]) : std::string_view();
}

std::string Places::text(Place place) const {
  if (!place) return {};
  std::string_view name = file_of(place);
  for (const std::string& folder : folders_)
    if (name.size() > folder.size() && name.starts_with(folder) && name[folder.size()] == '/') {
      name.remove_prefix(folder.size() + 1);
      break;
    }
  return std::string(name) + ':' + std::to_string(place.line());
}

void Places::want_in_messages(std::ostream& out) {
  give_messages([this, &out](const PlacedMessage& message) {
    out << message.text;
    if (!message.place) return;
    out << "  at " << text(message.place);
    if (!message.form.empty()) out << ", in " << message.form;
    out << '\n';
  });
}

void Places::give_messages(std::function<void(const PlacedMessage&)> taker,
                           std::function<void()> at_end) {
  messages_ = std::make_unique<PlacedMessages>(*this, std::move(taker), std::move(at_end));
}

namespace {

std::string shortened(const IRSlist& form) {
  if (form.is_atom()) return form.atom;
  std::string text = "(";
  const char* head = form.nth_str_val(0);
  append_quoted(text, head ? head : "(...)", QuoteComma::yes);
  if (const char* first = head ? form.nth_str_val(1) : nullptr) {
    text += ' ';
    append_quoted(text, first, QuoteComma::yes);
  }
  if (form.length() > 2) text += " ...";
  return text + ')';
}

}  // namespace

TopFormScope::TopFormScope(Places& places, const IRSlist& form)
    : places_(places), outer_(std::exchange(places.top_form, shortened(form))) {}

TopFormScope::~TopFormScope() {
  places_.messages()->end();
  places_.top_form = std::move(outer_);
}

}  // namespace torvane
