// CoNLL-U text to sentences: what is wrong is told with its line, and that sentence is left out.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/document.h"
#include "formats/reading.h"

namespace torvane {

class ConlluReader {
 public:
  ConlluReader() { start(); }
  /// Takes the next line, an empty one at the end of the text. True when a sentence is complete.
  bool add(std::string_view line);
  /// The complete sentence. Heads and relations are those of the file.
  Sentence take();

  /// What was wrong with sentences that were left out: the first fault of each, taken off.
  std::vector<ReadFault> take_faults();

 private:
  void read_comment(std::string_view line);
  void read_row(std::string_view line);
  void read_word(const std::vector<std::string_view>& columns);
  void read_range(const std::vector<std::string_view>& columns);
  void check_heads();
  void spell_text();
  /// What is wrong with the last line.
  void fail(std::string text) { fail(std::move(text), lines_); }
  void fail(std::string text, std::size_t line);
  void start();

  Sentence sentence_;
  std::size_t lines_ = 0;  // of the sentence under way
  std::vector<std::size_t> word_lines_;
  std::size_t fault_line_ = 0;  // in it; 0: none so far
  std::string fault_;
  std::vector<ReadFault> faults_;
};

}  // namespace torvane
