#include "text/display.h"

#include <clocale>
#include <cwchar>

#include "text/utf8.h"

namespace torvane {
namespace {

/// The locale of this thread is one of UTF-8 while it stands; that of the process stays.
class Utf8Locale {
 public:
  Utf8Locale() {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (utf8) before_ = uselocale(utf8);
  }
  ~Utf8Locale() {
    if (before_) uselocale(before_);
  }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  locale_t before_ = nullptr;
};

std::size_t width_of(char32_t character) {
  const int width = wcwidth(static_cast<wchar_t>(character));
  return width < 0 ? 1 : static_cast<std::size_t>(width);
}

/// Calls `take` with each character and its bytes until it gives false.
template <class Take>
void for_each_character(std::string_view text, Take take) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = utf8_length(text.substr(at));
    const std::string_view bytes = text.substr(at, length == 0 ? 1 : length);
    if (!take(length == 0 ? U'\xfffd' : utf8_character(bytes), bytes)) return;
    at += bytes.size();
  }
}

bool is_in(char32_t c, char32_t first, char32_t last) {
  return c >= first && c <= last;
}

}  // namespace

std::size_t display_width(std::string_view text) {
  const Utf8Locale here;
  std::size_t width = 0;
  for_each_character(text, [&](char32_t character, std::string_view) {
    width += width_of(character);
    return true;
  });
  return width;
}

std::string clipped(std::string_view text, std::size_t columns, bool ascii) {
  if (text.size() <= columns || display_width(text) <= columns) return std::string(text);
  const Utf8Locale here;
  std::string start;
  std::size_t width = 1;  // the ellipsis
  for_each_character(text, [&](char32_t character, std::string_view bytes) {
    width += width_of(character);
    if (width <= columns) start += bytes;
    return width <= columns;
  });
  return start + (ascii ? "~" : "…");
}

bool runs_right_to_left(std::string_view text) {
  bool found = false;
  for_each_character(text, [&](char32_t c, std::string_view) {
    found = is_in(c, 0x590, 0x8ff) || is_in(c, 0xfb1d, 0xfdff) || is_in(c, 0xfe70, 0xfeff) ||
            is_in(c, 0x10800, 0x10fff) || is_in(c, 0x1e800, 0x1efff);
    // Signs that have no direction: those of ASCII, and of the blocks of punctuation and symbols.
    const bool is_letter = is_in(c, 'A', 'Z') || is_in(c, 'a', 'z') ||
                           (c >= 0xc0 && !is_in(c, 0x2000, 0x2bff) && !is_in(c, 0x3000, 0x303f) &&
                            !is_in(c, 0x1f000, 0x1faff) && c != 0xfffd);
    return !found && !is_letter;
  });
  return found;
}

}  // namespace torvane
