#include "lex/lexicon/phrase_match.h"

#include <gtest/gtest.h>

#include <cstring>

namespace torvane {
namespace {

/// Matches words one after the other; what is left of the key, or "no".
std::string rest_after(const char* key, std::initializer_list<const char*> words) {
  const char* cursor = key;
  for (const char* word : words)
    if (!word_in_key(cursor, word)) return "no";
  return cursor;
}

TEST(WordInKey, WordsEndAtBlanksAndCommasAndOtherScriptsNeedNone) {
  EXPECT_EQ(rest_after("up with", {"UP"}), "with");
  EXPECT_EQ(rest_after("c, x a", {"c", "x", "a"}), "");
  EXPECT_EQ(rest_after("a\xE5\xAD\xA6", {"a", "\xE5\xAD\xA6"}), "");
  EXPECT_EQ(rest_after("up", {"up", "up"}), "no");
  for (const char* word : {"u", "upper"}) EXPECT_EQ(rest_after("up", {word}), "no");
  EXPECT_EQ(rest_after("a,b", {"ab"}), "no");
  EXPECT_EQ(rest_after("x-ray", {"x", "ray"}), "no");
}

TEST(WordInKey, NothingMatchesOnlyNothing) {
  const char* none = nullptr;
  const char* key = "a";
  EXPECT_TRUE(word_in_key(none, nullptr));
  EXPECT_FALSE(word_in_key(none, "a"));
  EXPECT_FALSE(word_in_key(key, nullptr));
  EXPECT_FALSE(word_in_key(key, ""));
  key = "";
  EXPECT_FALSE(word_in_key(key, ""));
}

TEST(PhraseKey, TurnsRoundBehindACommaAndABlank) {
  const char* const rests[][2] = {{"give up", "up"}, {"York, New", "New"},
                                  {"dog", ""},       {"\xB4\xF3, \xD1\xA7", "\xD1\xA7"},
                                  {"\xB4", ""},      {"", ""}};
  for (const auto& [key, rest] : rests) EXPECT_STREQ(after_head(key), rest);
  const char* const orders[][2] = {{"York, New", "New York"},
                                   {"b c,  x a", "x a b c"},
                                   {"1,000", "1,000"},
                                   {"1,000, about", "about 1,000"},
                                   {"\xC3\xB6,\xC3\xA9", "\xC3\xA9 \xC3\xB6"},
                                   {"\xC3\xB6,l\xC3\xA9 a", "l\xC3\xA9 a \xC3\xB6"},
                                   {"x,", "x,"},
                                   {"x, ", "x, "}};
  for (const auto& [key, natural] : orders) EXPECT_EQ(natural_order(key), natural);
}

}  // namespace
}  // namespace torvane
