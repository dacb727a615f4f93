// The names under which a grammar file writes the lexical patterns.
#pragma once

namespace torvane {

/// The family "LPattern" with all patterns.
void register_patterns();

}  // namespace torvane
