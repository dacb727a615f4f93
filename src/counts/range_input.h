// The lines of ranges of files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "counts/corpus_file.h"
#include "counts/shard_plan.h"
#include "sources/line_input.h"

namespace torvane {

/// What stands together: a line, or the lines up to an empty one.
enum class TextUnit : unsigned char { line, paragraph };
/// By the name of `--from`.
TextUnit unit_of(const std::string& from);

class RangeInput : public LineInput {
 public:
  RangeInput(std::vector<FileRange> ranges, TextUnit unit, Tell tell);

  bool line(std::string& text) override;
  bool starts_file() const override { return is_first_; }
  void tell(std::size_t lines_back, const std::string& fault) override;
  /// Something could not be read, or was told.
  bool has_faults() const { return has_faults_; }
  /// Bytes of all ranges that lie behind.
  std::uint64_t bytes_done() const;

 private:
  const FileRange& range() const { return ranges_[next_ - 1]; }
  bool open_next();
  void close(bool at_end);
  bool go_to_begin();
  bool look_back();
  bool read_up_to_begin();
  bool raw_line();
  bool line_of_range();

  const std::vector<FileRange> ranges_;
  const TextUnit unit_;
  const Tell tell_;
  std::size_t next_ = 0;
  std::unique_ptr<CorpusFile> file_;  // null: the next one is to be opened
  std::string buffer_;
  std::size_t buffer_at_ = 0;
  std::uint64_t at_ = 0;          // where in the file the next line starts
  std::uint64_t line_begin_ = 0;  // and the last one
  std::string text_;              // of the last line
  bool ended_ = false;            // nothing more is in the file
  bool after_blank_ = false;      // the line before was empty
  bool in_paragraph_ = false;
  bool is_first_ = false, starts_ = false;
  bool has_faults_ = false;
  std::uint64_t done_ = 0;
  std::string told_name_;
  std::deque<std::uint64_t> begins_;  // of the last lines
};

}  // namespace torvane
