// The row of positions of a node, as a grammar file writes it.
#pragma once

#include "parser/torvane_parser.h"

namespace torvane {

/// Builds the positions of a node from POSITION lists (consumed). A node that had positions keeps
/// its links to subcategories and subclasses.
void build_positions(TorvaneParser& parser, GCate& node, IRSlist* positions);

}  // namespace torvane
