// The files that a command reads, one behind the other, line by line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "sources/line_input.h"

namespace torvane {

class Input : public LineInput {
 public:
  /// Without names, and for the name "-": standard input.
  explicit Input(std::vector<std::string> names);
  ~Input() override;
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  bool line(std::string& text) override;
  bool starts_file() const override { return line_number_ == 1; }
  /// Where the last line stood: `FILE:NUMBER`.
  std::string place() const;
  void tell(std::size_t lines_back, const std::string& fault) override;
  /// Faults were told.
  bool has_faults() const { return has_faults_; }
  bool is_waiting() const override;
  /// How much of all that there is to read was read, up to 1; 0 where the end is not known, as of a
  /// pipe.
  double share_read() const;
  bool is_terminal() const override;
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
  bool failed_ = false;
  bool has_faults_ = false;
  bool told_of_bytes_ = false;
  std::uint64_t bytes_read_ = 0;
};

}  // namespace torvane
