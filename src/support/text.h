// Bytes as text: character classes, case, comparison, numbers and quoting.
//
// Everything works on unsigned bytes and on the classes of the C locale, so that a start-up file
// means the same on every machine. Texts are zero-terminated and may be null where a parameter says
// so.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace torvane {

constexpr bool is_upper(char c) {
  return c >= 'A' && c <= 'Z';
}
constexpr bool is_lower(char c) {
  return c >= 'a' && c <= 'z';
}
constexpr bool is_alpha(char c) {
  return is_upper(c) || is_lower(c);
}
constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool is_alnum(char c) {
  return is_alpha(c) || is_digit(c);
}
constexpr bool is_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr bool is_punct(char c) {
  return c > ' ' && c < 0x7f && !is_alnum(c);
}
constexpr bool is_high(char c) {
  return (static_cast<unsigned char>(c) & 0x80) != 0;
}
constexpr char lower(char c) {
  return is_upper(c) ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// The text itself, or an empty text for null: a null text prints as nothing, everywhere.
inline const char* or_empty(const char* text) {
  return text ? text : "";
}

/// Order of two texts without regard to case, byte by byte, as unsigned: <0, 0, >0.
int stricmp(const char* a, const char* b);
/// Equality without regard to case; a null text equals only a null text.
bool same_word(const char* a, const char* b);
/// Order of two texts byte by byte, as unsigned.
int byte_compare(const char* a, const char* b);

/// Reads a decimal number at the front of `text`, after white space, as a formatted scan of "%ld"
/// does. False, with `out` untouched, if there is none.
bool scan_long(const char* text, long& out);
/// The same for "%f", in single precision; only of decimal digits.
bool scan_float(const char* text, float& out);

/// A number as "%g" writes it: six significant digits, no trailing zeros.
std::string float_text(double value);

/// Which further bytes force an atom into quotes, beside white space, quote, parentheses, ";",
/// backslash and bytes of 128 or above.
enum class QuoteComma { no, yes };

/// True if the text cannot stand as a plain atom.
bool needs_quotes(std::string_view text, QuoteComma comma);
/// The text as an atom of the configuration language: as it stands, or in double quotes with a
/// backslash before each double quote and backslash. Appends to `out`.
void append_quoted(std::string& out, std::string_view text, QuoteComma comma);
/// The same as a text of its own; null is the empty text.
std::string quoted(const char* text, QuoteComma comma);

}  // namespace torvane
