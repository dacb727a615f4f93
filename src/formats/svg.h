// Drawings as SVG: words on lines, arcs with labels above them.
#pragma once

#include <string>

#include "formats/format.h"

namespace torvane {

/// Appends an `svg` element. Its texts and lines have the classes that `svg_style` styles, inside
/// an element of the class `torvane`.
void add_svg(std::string& out, const Sentence& sentence, const Page& page, bool with_style);
/// The rules for these classes, for light and dark surroundings.
const char* svg_style();

}  // namespace torvane
