// Where the sentences of a text stand in it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace torvane {

/// A place in a text, as a byte and as the character that the byte belongs to.
struct TextPlace {
  std::size_t byte = 0, character = 0;
};

/// Finds pieces of a text in it again, one after the other. White space may differ.
class TextSearch {
 public:
  explicit TextSearch(std::string_view text) : text_(text) {}
  /// Where each byte of the next piece stands. A blank of the piece stands behind the word before
  /// it.
  std::vector<TextPlace> find(std::string_view piece);

 private:
  void step();

  std::string_view text_;
  TextPlace at_;
  std::size_t character_end_ = 0;  // of the character at the place
};

}  // namespace torvane
