// The files that a command reads, one behind the other, line by line.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace torvane {

class Input {
 public:
  /// Without names, and for the name "-": standard input.
  explicit Input(std::vector<std::string> names);
  ~Input();
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  /// The next line, without its end (LF or CRLF). False at the end of all files.
  bool line(std::string& text);
  /// The last line given was the first one of its file.
  bool starts_file() const { return line_number_ == 1; }
  /// Where the last line stood: `FILE:NUMBER`.
  std::string place() const;
  /// Tells of a fault that stands some lines before the last one.
  void tell(std::size_t lines_back, const std::string& fault);
  /// Faults were told.
  bool has_faults() const { return has_faults_; }
  /// More can be read without waiting for whoever writes it.
  bool is_waiting() const;
  /// Somebody types.
  bool is_terminal() const;
  /// A file could not be read; it was told.
  bool failed() const { return failed_; }

 private:
  bool open_next();
  void look_at_bytes(const std::string& text);
  bool fill();

  std::vector<std::string> names_;
  std::size_t next_ = 0;
  int file_ = -1;
  std::string name_;
  std::string buffer_;
  std::size_t at_ = 0;
  std::size_t line_number_ = 0;
  struct {
    std::string name;
    std::size_t lines = 0;
  } before_;  // the last file that has ended
  bool failed_ = false;
  bool has_faults_ = false;
  bool told_of_bytes_ = false;
};

}  // namespace torvane
