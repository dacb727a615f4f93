// The names under which a grammar file writes the lexical patterns.
#pragma once

namespace torvane {

class World;

/// The family "LPattern" with all patterns.
void register_patterns(World& world);

}  // namespace torvane
