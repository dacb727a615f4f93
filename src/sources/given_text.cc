#include "sources/given_text.h"

#include <algorithm>

namespace torvane {

bool GivenText::line(std::string& text) {
  if (at_ >= text_.size()) return false;
  const std::size_t end = std::min(text_.find('\n', at_), text_.size());
  text = text_.substr(at_, end - at_);
  at_ = end + 1;
  ++line_number_;
  trim(text, line_number_ == 1);
  return true;
}

void GivenText::tell(std::size_t lines_back, const std::string& fault) {
  if (!faults_.empty()) faults_ += '\n';
  faults_ += std::to_string(line_number_ - lines_back) + ": " + fault;
}

}  // namespace torvane
