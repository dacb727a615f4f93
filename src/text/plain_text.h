// Typography: a text as grammars are written for it, in plain signs, and the way back to the text
// as it stands.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace torvane {

class PlainText {
 public:
  /// Curly quotes, dashes, ellipses and odd blanks become plain ones; bytes that are no UTF-8 stay.
  /// The original must outlive the object.
  explicit PlainText(std::string_view original);

  const std::string& text() const { return text_; }
  /// Gives a sentence that was made of the plain text the signs and places of the original.
  void restore(Sentence& sentence) const;

 private:
  struct Place {
    std::uint32_t begin, end;  ///< bytes of the original
  };
  void add(std::string_view plain, std::size_t begin, std::size_t end);

  std::string_view original_;
  std::string text_;
  std::vector<Place> places_;  // of each byte of the text; none if the text is the original
};

}  // namespace torvane
