// A text as lines, wherever it comes from.
#pragma once

#include <cstddef>
#include <string>

namespace torvane {

class LineInput {
 public:
  virtual ~LineInput() = default;
  /// The next line, without its end (LF or CRLF). False at the end of all.
  virtual bool line(std::string& text) = 0;
  /// The last line given was the first one of its file.
  virtual bool starts_file() const = 0;
  /// Tells of a fault that stands some lines before the last one.
  virtual void tell(std::size_t lines_back, const std::string& fault) = 0;
  /// More can be read without waiting for whoever writes it.
  virtual bool is_waiting() const { return true; }
  /// Somebody types.
  virtual bool is_terminal() const { return false; }

 protected:
  /// Takes off what is no part of a line as it was read: the CR of CRLF, a byte order mark in front
  /// of all.
  static void trim(std::string& text, bool is_first) {
    if (!text.empty() && text.back() == '\r') text.pop_back();
    if (is_first && text.starts_with("\xef\xbb\xbf")) text.erase(0, 3);
  }
};

}  // namespace torvane
