// A number for what files hold.
#pragma once

#include <set>
#include <string>

namespace torvane {

/// 16 hexadecimal digits that follow from the contents of the files alone, not from their names.
std::string version_of(const std::set<std::string>& files);

}  // namespace torvane
