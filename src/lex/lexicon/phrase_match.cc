#include "lex/lexicon/phrase_match.h"

#include <algorithm>

#include "att/contract.h"
#include "support/text.h"

namespace torvane {

namespace {

// Whether this may stand after a comma between words: a word does so after a blank, or at once if
// it holds a byte of another script. The comma of "1,000" is part of a word.
bool follows_comma(std::string_view text) {
  auto word_end = std::find(text.begin(), text.end(), ' ');
  return text.starts_with(' ') || std::any_of(text.begin(), word_end, is_high);
}

}  // namespace

std::string natural_order(std::string_view key) {
  std::size_t comma = key.find(',');
  while (comma != std::string_view::npos && !follows_comma(key.substr(comma + 1)))
    comma = key.find(',', comma + 1);
  if (comma == std::string_view::npos) return std::string(key);
  std::string_view left = key.substr(comma + 1);
  while (!left.empty() && left[0] == ' ') left.remove_prefix(1);
  if (left.empty()) return std::string(key);
  return std::string(left) + ' ' + std::string(key.substr(0, comma));
}

const char* after_head(const char* key) {
  if (is_high(*key)) {
    for (int i = 0; i < 2 && *key; ++i) ++key;
    while (*key == ',' || *key == ' ') ++key;
    return key;
  }
  while (*key && *key != ' ') ++key;
  return *key ? key + 1 : key;
}

bool word_in_key(const char*& cursor, const char* word) {
  if (!cursor || !word) return !cursor && !word;
  if (!*word) return false;
  const char* key = cursor;
  char previous = '\0';
  for (; *word && lower(*key) == lower(*word); ++key, ++word) previous = *key;
  if (*key == ',') ++key;
  if (*word) return false;
  bool word_ends =
      *key == '\0' || *key == ' ' || is_cut_off(*key) || is_high(*key) || is_cut_off(previous);
  if (!word_ends) return false;
  cursor = *key == ' ' ? key + 1 : key;
  return true;
}

}  // namespace torvane
