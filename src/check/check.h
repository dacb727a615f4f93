// What is wrong with a grammar: the engine's own messages while it loads, and what it passes over
// in silence.
#pragma once

#include <functional>

#include "check/finding.h"
#include "engine/grammar_files.h"

namespace torvane {

/// Loads a grammar in a world of its own, looks at it and at its files, and tells once what was
/// found: by file, in the order in which they are read, and by line. A fault may end the process;
/// what was found is told before that.
void check_grammar(const GrammarFiles& files, const std::function<void(const Findings&)>& tell);

}  // namespace torvane
