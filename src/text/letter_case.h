// Small letters for capital ones.
#pragma once

#include <string>
#include <string_view>

namespace torvane {

/// A text with small letters, of Latin, Greek and Cyrillic; other bytes stay as they are.
std::string small_letters(std::string_view text);

}  // namespace torvane
