#include "text/utf8.h"

namespace torvane {

std::size_t utf8_length(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
  if (first < 0xc2 || first > 0xf4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xc0) != 0x80) return 0;
  const char32_t character = utf8_character(text.substr(0, length));
  // Longer than it need be, a half of a pair, or beyond the last one.
  if (length == 3 && (character < 0x800 || (character >= 0xd800 && character < 0xe000))) return 0;
  if (length == 4 && (character < 0x10000 || character > 0x10ffff)) return 0;
  return length;
}

char32_t utf8_character(std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes.front());
  if (first < 0x80) return first;
  char32_t character = first & (0x7fU >> bytes.size());
  for (char byte : bytes.substr(1)) character = character << 6 | (byte & 0x3f);
  return character;
}

std::size_t utf8_count(std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    const std::size_t length = utf8_length(text);
    text.remove_prefix(length == 0 ? 1 : length);
    ++count;
  }
  return count;
}

bool is_utf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = utf8_length(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace torvane
