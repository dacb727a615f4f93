// The engine that a command parses with.
#pragma once

#include <functional>
#include <memory>

#include "engine/engine.h"
#include "engine/grammar_files.h"

namespace torvane {

/// Whether an engine keeps what explanations quote of a grammar.
enum class Forms { dropped, kept };

/// A new engine with the grammar; null after a message if it does not load. What a grammar prints
/// goes to standard error; one that ends the process ends it with kNoGrammar.
std::unique_ptr<Engine> load_grammar(const GrammarFiles& files, std::size_t max_words,
                                     Forms forms = Forms::dropped);

/// What the running thread has to do before a grammar that it runs ends the process.
class BeforeGrammarEnds {
 public:
  explicit BeforeGrammarEnds(std::function<void()> duty);
  ~BeforeGrammarEnds();
  BeforeGrammarEnds(const BeforeGrammarEnds&) = delete;
  BeforeGrammarEnds& operator=(const BeforeGrammarEnds&) = delete;
};

}  // namespace torvane
