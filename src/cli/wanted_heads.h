// A line of a list of sentences with the heads that their words should have.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/document.h"

namespace torvane {

/// A word and the heads that will do. A word is named by its form in small letters, from its second
/// occurrence on with its number behind it (`the.2`); the top of a tree by `*`.
struct WantedHead {
  std::string written;  ///< as it stands in the list
  std::string word;
  std::vector<std::string> heads;
};

struct WantedTree {
  std::string sentence;
  std::vector<WantedHead> heads;
  std::string fault;  ///< what is wrong with the line, or empty
};

/// Reads `SENTENCE<tab>WORD>HEAD|HEAD WORD>HEAD ...`.
WantedTree read_wanted_tree(std::string_view line);

/// What is wrong with a tree, a text for each word with another head.
std::vector<std::string> wrong_heads(const Sentence& sentence, const WantedTree& wanted);

/// Words of the list that the sentence does not have; empty if all are there.
std::string unknown_words(const Sentence& sentence, const WantedTree& wanted);

}  // namespace torvane
