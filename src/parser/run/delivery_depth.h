// The limit of the recursion by which items travel.
#pragma once

#include "support/depth.h"

namespace torvane {

// Items that a node takes from a subclass as they are cost nothing, so a circle of subclasses has
// no other end than this.
inline thread_local DepthLimit delivery_depth{"The sentence is too deep for the parser", 100000};

}  // namespace torvane
