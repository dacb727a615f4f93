// A text in memory: its lines, and where its sentences stand in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sources/line_input.h"

namespace torvane {

class GivenText : public LineInput {
 public:
  /// The text must outlive the object.
  explicit GivenText(std::string_view text) : text_(text) {}

  bool line(std::string& text) override;
  bool starts_file() const override { return line_number_ == 1; }
  void tell(std::size_t lines_back, const std::string& fault) override;
  /// All faults that were told, a line each, with the numbers of their lines.
  const std::string& faults() const { return faults_; }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_number_ = 0;
  std::string faults_;
};

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
