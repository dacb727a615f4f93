// The name that somebody may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvane {

/// `; do you mean NAME?` for the name that is nearest to what was written; empty if none is near.
std::string hint_for(std::string_view written, const std::vector<std::string>& names);

}  // namespace torvane
