// The grammar that a command asks for by name or file, and where it lies.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/engine.h"

namespace torvane {

struct GrammarChoice {
  std::string grammar = "english";  ///< a name, or the path of a start-up file
  std::string data;                 ///< folder of the grammars; empty: the one that is installed
  std::string style;                ///< empty: `content` where the grammar has it
  std::size_t max_words = 200;
};

/// What is loaded for a choice.
struct GrammarFiles {
  std::vector<std::string> files, folders;
  std::string fault;  ///< what is wrong, or empty
};
GrammarFiles find_grammar(const GrammarChoice& choice);

/// A new engine with the grammar; null after a message if it does not load. What a grammar prints
/// goes to standard error; one that ends the process ends it with kNoGrammar.
std::unique_ptr<Engine> load_grammar(const GrammarFiles& files, std::size_t max_words);

}  // namespace torvane
