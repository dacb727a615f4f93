// The lines of a text in memory.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

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

}  // namespace torvane
