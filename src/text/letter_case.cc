#include "text/letter_case.h"

#include <algorithm>

#include "support/text.h"
#include "text/utf8.h"

namespace torvane {
namespace {

/// Capital letters whose small ones stand so far behind them; where that is 1, every other one.
struct Capitals {
  char32_t first, last, distance;
};

constexpr Capitals kCapitals[] = {
    {0xc0, 0xd6, 32},    {0xd8, 0xde, 32},   {0x100, 0x12f, 1},  {0x132, 0x137, 1},
    {0x14a, 0x177, 1},   {0x386, 0x386, 38}, {0x388, 0x38a, 37}, {0x38c, 0x38c, 64},
    {0x38e, 0x38f, 63},  {0x391, 0x3a1, 32}, {0x3a3, 0x3ab, 32}, {0x400, 0x40f, 80},
    {0x410, 0x42f, 32},  {0x460, 0x481, 1},  {0x48a, 0x4bf, 1},  {0x1e00, 0x1e95, 1},
    {0x1ea0, 0x1eff, 1},
};
/// The same where the capitals have odd numbers.
constexpr Capitals kOddCapitals[] = {{0x139, 0x148, 1}, {0x179, 0x17e, 1}};

char32_t small(char32_t c) {
  for (const Capitals& row : kCapitals)
    if (c >= row.first && c <= row.last)
      return row.distance > 1 || c % 2 == 0 ? c + row.distance : c;
  for (const Capitals& row : kOddCapitals)
    if (c >= row.first && c <= row.last) return c % 2 == 1 ? c + 1 : c;
  return c;
}

void add_character(std::string& out, char32_t c) {
  if (c < 0x800) {
    out += static_cast<char>(0xc0 | c >> 6);
  } else {
    out += static_cast<char>(0xe0 | c >> 12);
    out += static_cast<char>(0x80 | (c >> 6 & 0x3f));
  }
  out += static_cast<char>(0x80 | (c & 0x3f));
}

}  // namespace

std::string small_letters(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = std::max<std::size_t>(utf8_length(text.substr(at)), 1);
    const std::string_view bytes = text.substr(at, length);
    if (length == 1)
      out += lower(bytes[0]);
    else if (length == 4)
      out += bytes;
    else
      add_character(out, small(utf8_character(bytes)));
    at += length;
  }
  return out;
}

}  // namespace torvane
