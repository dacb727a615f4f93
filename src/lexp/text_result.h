// Texts that expressions make: where they are built, and where they stay.
#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/value.h"

namespace torvane {

/// The text that an expression gave last, overwritten at its next evaluation. Its memory is never
/// given back while the expression lives, so that a text still on its way elsewhere stays readable.
/// A copy of an expression starts with none.
class TextResult {
 public:
  TextResult() = default;
  TextResult(const TextResult&) {}
  TextResult& operator=(const TextResult&) { return *this; }

  /// Keeps a copy of `text`, which does not lie in here.
  Value set(std::string_view text) {
    if (text.size() >= capacity_) {
      capacity_ = std::max(2 * capacity_, text.size() + 1);
      blocks_.push_back(std::make_unique<char[]>(capacity_));
    }
    char* block = blocks_.back().get();
    if (!text.empty()) std::memcpy(block, text.data(), text.size());
    block[text.size()] = 0;
    return Value::buffer_text(block);
  }

 private:
  std::vector<std::unique_ptr<char[]>> blocks_;
  std::size_t capacity_ = 0;
};

/// A text under construction. All share one store, as a stack: one may be begun while another is
/// open, as happens when a part of the text is itself evaluated.
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
    static auto& text = *new std::string;
    return text;
  }

  std::size_t start_;
};

/// The rest of a text from `rest` on, with the life of the whole.
inline Value rest_of_text(Value whole, const char* rest) {
  const TypeTag* tag = whole.tag();
  return Value::of_text(rest, tag == &tags::name ? tags::buffer_text : *tag);
}

}  // namespace torvane
