// Running text to sentences, by the boundary that the grammar knows.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "engine/engine.h"

namespace torvane {

struct CutSentence {
  std::string text;
  bool starts_paragraph;
  bool space_after;  ///< false where the next sentence begins without a blank
};

/// Takes a text line by line and gives its sentences. White space at their ends is left out.
class SentenceCutter {
 public:
  /// A row of words without a boundary ends after `most_words`.
  SentenceCutter(Engine& engine, std::size_t most_words);

  void add_line(std::string_view line);
  void end_paragraph();
  /// The next sentence that is complete.
  bool next(CutSentence& sentence);

 private:
  struct Token {
    std::size_t begin, end;
  };
  std::size_t joint_in(std::string_view token);
  void add_token(std::string_view token);
  void read(std::string_view token, std::size_t depth);
  void cut(std::size_t tokens_kept);

  Engine& engine_;
  std::size_t most_words_;
  std::string pending_;        // from the start of the sentence on
  std::vector<Token> tokens_;  // in it
  bool starts_paragraph_ = true;
  std::deque<CutSentence> ready_;
};

}  // namespace torvane
