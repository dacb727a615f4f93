// Texts that expressions make: where they are built.
#pragma once

#include <string>
#include <string_view>

#include "support/value.h"

namespace torvane {

/// A text under construction. All of a thread share one store, as a stack: one may be begun while
/// another is open, as happens when a part of the text is itself evaluated.
class ScratchText {
 public:
  ScratchText() : start_(store().size()) {}
  ~ScratchText() { store().resize(start_); }
  ScratchText(const ScratchText&) = delete;
  ScratchText& operator=(const ScratchText&) = delete;

  void add(char c) { store().push_back(c); }
  void add(std::string_view text) { store().append(text); }
  /// Valid until the next change.
  std::string_view view() const { return std::string_view(store()).substr(start_); }
  char* data() { return store().data() + start_; }

 private:
  static std::string& store() {
    static thread_local std::string text;
    return text;
  }

  std::size_t start_;
};

/// The rest of a text from `rest` on, with the life of the whole.
inline Value rest_of_text(Value whole, const char* rest) {
  const TypeTag* tag = whole.tag();
  bool by_start = tag == &tags::name || tag == &tags::held_text;
  return Value::of_text(rest, by_start ? tags::buffer_text : *tag);
}

}  // namespace torvane
