// The grammar that a user asks for by name or file, and where it lies.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace torvane {

struct GrammarChoice {
  std::string grammar = "english";  ///< a name, or the path of a start-up file
  std::string data;                 ///< folder of the grammars; empty: the one that is installed
  std::string style;                ///< empty: `content` where the grammar has it
  std::size_t max_words = 200;      ///< a longer sentence is parsed piece by piece
};

/// What is loaded for a choice.
struct GrammarFiles {
  std::vector<std::string> files, folders;
  std::string fault;  ///< what is wrong, or empty
};
GrammarFiles find_grammar(const GrammarChoice& choice);

/// The folder of the grammars that are installed: beside the program or library that this code is
/// part of, else where it was built for.
std::string installed_data();

}  // namespace torvane
