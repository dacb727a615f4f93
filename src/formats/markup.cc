#include "formats/markup.h"

#include <cstddef>

#include "text/utf8.h"

namespace torvane {

void add_escaped(std::string& out, std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = utf8_length(text.substr(at));
    const std::string_view bytes = text.substr(at, length == 0 ? 1 : length);
    const char32_t c = length == 0 ? U'\xfffe' : utf8_character(bytes);
    if (c == '&') {
      out += "&amp;";
    } else if (c == '<') {
      out += "&lt;";
    } else if (c == '>') {
      out += "&gt;";
    } else if (c == '"') {
      out += "&quot;";
    } else if (c == '\t' || c == '\n' || c == '\r') {
      out += ' ';
    } else if (c < 0x20 || (c >= 0x7f && c < 0xa0) || c == 0xfffe || c == 0xffff) {
      out += "\xef\xbf\xbd";
    } else {
      out += bytes;
    }
    at += bytes.size();
  }
}

}  // namespace torvane
