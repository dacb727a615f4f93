// Lines that somebody types: with a history and completion where there is a terminal and libedit,
// else as they come.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace torvane {

class LineReader {
 public:
  virtual ~LineReader() = default;
  /// The next line without its end; false at the end of the input. A line that Ctrl-C took back is
  /// empty.
  virtual bool read(const char* prompt, std::string& line) = 0;
};

/// All that a word may become: the line up to the cursor, and where in it the word begins.
using Completions =
    std::function<std::vector<std::string>(const std::string& line, std::size_t word)>;

/// `history`: the file that keeps the lines between runs; empty for none. It is only used at a
/// terminal.
std::unique_ptr<LineReader> make_line_reader(Completions completions, const std::string& history);

}  // namespace torvane
