// What an expression sees of the match that a rule is about.
#pragma once

namespace torvane {

class World;

/// The accessors on matches, and the walk over a match's components.
void register_match_accessors(World& world);

}  // namespace torvane
