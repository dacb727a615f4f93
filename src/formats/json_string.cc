#include "formats/json_string.h"

#include <cstddef>

#include "text/utf8.h"

namespace torvane {

void add_json_string(std::string& out, std::string_view text) {
  static constexpr char kHex[] = "0123456789abcdef";
  out += '"';
  for (std::size_t i = 0; i < text.size();) {
    const auto c = static_cast<unsigned char>(text[i]);
    const std::size_t length = utf8_length(text.substr(i));
    if (length == 0) {
      out += "\xef\xbf\xbd";
    } else if (c == '"' || c == '\\') {
      out += '\\';
      out += text[i];
    } else if (c < 0x20) {
      out += "\\u00";
      out += kHex[c >> 4];
      out += kHex[c & 15];
    } else {
      out += text.substr(i, length);
    }
    i += length == 0 ? 1 : length;
  }
  out += '"';
}

}  // namespace torvane
