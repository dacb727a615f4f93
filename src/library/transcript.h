// What a grammar prints, kept for whoever asks: its beginning, so that memory has an end.
#pragma once

#include <algorithm>
#include <cstddef>
#include <streambuf>
#include <string>
#include <utility>

namespace torvane {

class Transcript : public std::streambuf {
 public:
  static constexpr std::size_t kMost = std::size_t{64} << 10;

  /// All so far, taken off.
  std::string take() { return std::exchange(text_, {}); }

 protected:
  int_type overflow(int_type c) override {
    if (!traits_type::eq_int_type(c, traits_type::eof()) && text_.size() < kMost)
      text_ += traits_type::to_char_type(c);
    return traits_type::not_eof(c);
  }
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    const std::size_t room = kMost - std::min(text_.size(), kMost);
    text_.append(text, std::min(static_cast<std::size_t>(count), room));
    return count;
  }

 private:
  std::string text_;
};

}  // namespace torvane
