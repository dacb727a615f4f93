// A file of counts: lines that say what was counted, and sorted rows.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "counts/count_row.h"
#include "counts/line_file.h"

namespace torvane {

struct CountsHeader {
  std::string grammar;  ///< its name
  std::string version;  ///< of the grammar: 16 hexadecimal digits, or "-" for given trees
  std::string style;
  std::uint64_t sentences = 0, words = 0;

  /// Counts of the same kind can be added.
  bool is_alike(const CountsHeader& other) const {
    return grammar == other.grammar && version == other.version && style == other.style;
  }
  /// `grammar NAME VERSION, style STYLE`
  std::string kind() const;
  void add(const CountsHeader& other);
  void write(FileWriter& out) const;
};

/// Takes a message, without a line's end.
using Tell = std::function<void(const std::string& message)>;

class CountsFile : public RowSource {
 public:
  /// Opens a file and reads its header; "-" is standard input.
  CountsFile(std::string name, Tell tell);
  ~CountsFile() override;
  CountsFile(const CountsFile&) = delete;
  CountsFile& operator=(const CountsFile&) = delete;

  const CountsHeader& header() const { return header_; }
  /// Why it is no file of counts, or empty.
  const std::string& fault() const { return fault_; }
  /// A row that is wrong, or not in order, is told and left out.
  bool next(CountRow& row) override;
  bool has_faults() const { return faults_ > 0; }

 private:
  void read_header();
  bool header_line(const std::string& name, std::string& value);
  void tell_of(const std::string& what);

  const std::string name_;
  const Tell tell_;
  int file_;
  LineFile lines_;
  CountsHeader header_;
  std::string fault_;
  std::string last_;  // key
  std::uint64_t line_number_ = 0, faults_ = 0;
};

/// Writes a file of counts. Empty, or what is wrong.
std::string write_counts(const std::string& name, const CountsHeader& header, RowSource& rows);

}  // namespace torvane
