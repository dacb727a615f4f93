// Numbers for what files and texts hold.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace torvane {

/// 16 hexadecimal digits that follow from the contents of the files alone, not from their names.
std::string version_of(const std::set<std::string>& files);
/// The same of a text.
std::string version_of_text(std::string_view text);

}  // namespace torvane
