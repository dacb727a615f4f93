// The sentence cut into flat labelled stretches: each word falls into the chunk of the nearest node
// above it that a rule has marked.
#pragma once

#include <ostream>

#include "deps/dep_tree.h"

namespace torvane {

/// Writes one line for the whole tree that the node stands in: the words with their gaps, a chunk
/// as
/// "[" ... "]LABEL", a clause as "{" ... "}". The roots of chunks are the tree's root and the nodes
/// with the property `ckroot`, those of clauses have the property `clause`. Any node of a tree will
/// do; one whose Deps was cleared writes nothing.
void print_chunks(std::ostream& out, DepTree& node);

}  // namespace torvane
