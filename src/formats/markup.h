// Text inside markup.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

/// Appends a text as it may stand in XML and HTML, also in a value in double quotes. What no
/// document may hold stands as the replacement character.
void add_escaped(std::string& out, std::string_view text);

}  // namespace torvane
