// The small texts that go into what is printed of a node, and where printing forms write.
#pragma once

#include <ostream>

#include "deps/dep_tree.h"
#include "shell/streams.h"

namespace torvane {

/// "unknown" for a null node and one without a root form, the text of its span for a root form that
/// begins with "~", else the root form.
const char* root_text(const DepTree* node);
/// The relation, or "unknown".
const char* relation_text(const DepTree* node);
/// The words from the first to the last of the node; in the strings of its Deps.
const char* span_text(const DepTree& node);

/// The text as an atom that reads back, the empty text too; null as the empty one.
void write_atom(std::ostream& out, const char* text);

/// Where a form with a stream argument writes: standard output if it is null, nowhere (null) if the
/// stream is closed.
std::ostream* output_of(World& world, Stream* stream);

}  // namespace torvane
