// Tree text to sentences: what is wrong is told with its line, and that tree is left out.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"
#include "formats/reading.h"

namespace torvane {

/// A tree as it was read.
struct TreeText {
  Sentence sentence;  ///< the words with their heads; nodes without a word are left out
  std::string form;   ///< all that was written
};

class TreeTextReader {
 public:
  /// Takes the next line.
  void add(std::string_view line);
  /// Tells that there are no more. Faults are counted from the last line all the same.
  void end();
  /// The next tree that is complete; false if there is none yet.
  bool next(TreeText& tree);
  /// What was wrong with trees that were left out, and what stood between trees; taken off.
  std::vector<ReadFault> take_faults();

 private:
  void read(char c);
  void end_tree();
  void leave_out(std::size_t line, std::string text);

  // Where the next byte stands. In a tree, an atom is a word or a text in quotes.
  enum class State { blank, word, text, escaped, comment, escaped_comment };
  State state_ = State::blank;
  std::size_t depth_ = 0;  // of parentheses
  std::size_t lines_ = 0;
  bool told_ = false;           // of what stands between these two trees
  std::size_t first_line_ = 0;  // of the tree under way
  std::string form_;

  std::deque<TreeText> ready_;
  std::vector<ReadFault> faults_;  // with lines counted from the start
};

}  // namespace torvane
