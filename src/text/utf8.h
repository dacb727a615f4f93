// Characters of UTF-8 text.
#pragma once

#include <cstddef>
#include <string_view>

namespace torvane {

/// Bytes of the character at the front of a text that is not empty: 1 to 4; 0 if it is none.
std::size_t utf8_length(std::string_view text);
/// The character that these bytes are: one of UTF-8, and no more.
char32_t utf8_character(std::string_view bytes);
/// Characters of a text; a byte that belongs to none counts as one.
std::size_t utf8_count(std::string_view text);
bool is_utf8(std::string_view text);

}  // namespace torvane
