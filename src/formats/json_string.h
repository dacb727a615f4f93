// A text in JSON.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

/// Appends a string with its quotes; bytes that are no UTF-8 stand as the replacement character.
void add_json_string(std::string& out, std::string_view text);

}  // namespace torvane
