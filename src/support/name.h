// A text of which the process keeps one copy for good, so that equal names are one pointer.
#pragma once

#include <cstdint>

namespace torvane {

/// A word in size. What takes a `Name` may keep it; a text that is only read is a `const char*` or
/// a `std::string_view`.
class Name {
 public:
  constexpr Name() = default;  ///< no name
  /// The name of that text; no name for null.
  explicit Name(const char* text);
  /// The name whose `word` it was.
  static Name of_word(std::uintptr_t word) {
    Name name;
    name.text_ = reinterpret_cast<const char*>(word);
    return name;
  }

  /// Null for no name. It lives as long as the process.
  const char* c_str() const { return text_; }
  /// The name as the content of a slot; 0 for no name.
  std::uintptr_t word() const { return reinterpret_cast<std::uintptr_t>(text_); }
  explicit operator bool() const { return text_ != nullptr; }
  friend bool operator==(Name a, Name b) { return a.text_ == b.text_; }

 private:
  const char* text_ = nullptr;
};

}  // namespace torvane
