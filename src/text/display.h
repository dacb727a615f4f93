// How a text looks where it is drawn: its width in a terminal, its direction.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace torvane {

/// Columns that a terminal gives to a text: two for wide signs, none for combining ones, one for a
/// byte that belongs to none.
std::size_t display_width(std::string_view text);
/// The text, or as much of it as fits with an ellipsis (in ASCII: `~`) behind it. Of more than one
/// column.
std::string clipped(std::string_view text, std::size_t columns, bool ascii = false);
/// The first letter with a direction is of a script that runs from right to left.
bool runs_right_to_left(std::string_view text);

}  // namespace torvane
