// The lines of an open file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace torvane {

class LineFile {
 public:
  /// Reads pieces of so many bytes; the descriptor stays the caller's.
  LineFile(int file, std::size_t piece) : file_(file), piece_(piece) {}

  /// The next line without its end, valid until the next call; false at the end or an error.
  bool line(std::string_view& text);
  /// The last line had no end.
  bool is_cut() const { return cut_; }
  /// The error number of what failed; 0 if nothing did.
  int error() const { return error_; }

 private:
  bool fill();

  int file_;
  std::size_t piece_;
  std::string buffer_;
  std::size_t at_ = 0;
  bool cut_ = false;
  int error_ = 0;
};

}  // namespace torvane
