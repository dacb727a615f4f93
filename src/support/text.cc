#include "support/text.h"

#include <array>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace torvane {

namespace {

int unsigned_byte(char c) {
  return static_cast<unsigned char>(c);
}

constexpr std::array<bool, 256> make_quote_table() {
  std::array<bool, 256> table{};
  for (char c : {'\t', '\n', '\r', ' ', '"', '(', ')', ';', '\\'})
    table[static_cast<unsigned char>(c)] = true;
  for (int c = 128; c < 256; ++c) table[static_cast<std::size_t>(c)] = true;
  return table;
}
constexpr std::array<bool, 256> kForcesQuotes = make_quote_table();

}  // namespace

int stricmp(const char* a, const char* b) {
  a = or_empty(a);
  b = or_empty(b);
  while (lower(*a) == lower(*b)) {
    if (*a == 0) return 0;
    ++a;
    ++b;
  }
  return unsigned_byte(lower(*a)) - unsigned_byte(lower(*b));
}

bool same_word(const char* a, const char* b) {
  if (!a || !b) return a == b;
  return stricmp(a, b) == 0;
}

int byte_compare(const char* a, const char* b) {
  return std::strcmp(or_empty(a), or_empty(b));
}

bool scan_long(const char* text, long& out) {
  if (!text) return false;
  while (is_space(*text)) ++text;
  bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  if (!is_digit(*text)) return false;
  // Accumulated downwards, since there is one more number below zero; out of range stays at the
  // end.
  long value = 0;
  for (; is_digit(*text); ++text) {
    int digit = *text - '0';
    if (value < (LONG_MIN + digit) / 10) {
      value = LONG_MIN;
      break;
    }
    value = value * 10 - digit;
  }
  out = negative ? value : value == LONG_MIN ? LONG_MAX : -value;
  return true;
}

bool scan_float(const char* text, float& out) {
  if (!text) return false;
  while (is_space(*text)) ++text;
  const char* p = text;
  if (*p == '-' || *p == '+') ++p;
  int digits = 0;
  for (; is_digit(*p); ++p) ++digits;
  if (*p == '.')
    for (++p; is_digit(*p); ++p) ++digits;
  if (digits == 0) return false;
  if (lower(*p) == 'e') {
    const char* exponent = p[1] == '-' || p[1] == '+' ? p + 2 : p + 1;
    if (is_digit(*exponent))
      for (p = exponent; is_digit(*p);) ++p;
  }
  // Only these bytes: the library would go on into words such as "infinite".
  out = std::strtof(std::string(text, p).c_str(), nullptr);
  return true;
}

std::string float_text(double value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%g", value);
  return buffer;
}

bool needs_quotes(std::string_view text, QuoteComma comma) {
  for (char c : text)
    // Kept: comma-in-quotes
    if (kForcesQuotes[static_cast<unsigned char>(c)] || (c == ',' && comma == QuoteComma::yes))
      return true;
  return false;
}

void append_quoted(std::string& out, std::string_view text, QuoteComma comma) {
  if (!needs_quotes(text, comma)) {
    out += text;
    return;
  }
  out += '"';
  for (char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  out += '"';
}

std::string quoted(const char* text, QuoteComma comma) {
  std::string out;
  append_quoted(out, or_empty(text), comma);
  return out;
}

}  // namespace torvane
