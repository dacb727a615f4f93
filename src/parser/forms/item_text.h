// Parse items as text, for a look into the charts.
#pragma once

#include <ostream>

#include "parser/torvane_parser.h"

namespace torvane {

/// The span and its words, then each alternative of the chain on a line of its own; no line end
/// behind the last.
void print_item(std::ostream& out, const PItem& item, const TorvaneParser& parser);

/// The chart of a node, by word and position.
void print_chart(std::ostream& out, const TorvaneParser& parser, const GCate& node);
/// The links of a node whose type matches, with the items that wait on them.
void print_waiting(std::ostream& out, const TorvaneParser& parser, const GCate& node,
                   const char* type_regexp);

}  // namespace torvane
