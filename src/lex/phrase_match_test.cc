#include "lex/phrase_match.h"

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

TEST(WordInKey, WordsEndAtBlanksAndCommas) {
  EXPECT_EQ(rest_after("up with", {"UP"}), "with");
  EXPECT_EQ(rest_after("up with", {"up", "with"}), "");
  EXPECT_EQ(rest_after("c, x a", {"c", "x", "a"}), "");
  EXPECT_EQ(rest_after("up", {"u"}), "no");
  EXPECT_EQ(rest_after("up", {"upper"}), "no");
  EXPECT_EQ(rest_after("up", {"up", "up"}), "no");
  EXPECT_EQ(rest_after("a,b", {"ab"}), "no");
}

TEST(WordInKey, ApostrophesAndHyphensAreWordsInTheSentence) {
  EXPECT_EQ(rest_after("x-ray up", {"x", "-", "ray"}), "up");
  EXPECT_EQ(rest_after("don't go", {"don", "'", "t", "go"}), "");
  EXPECT_EQ(rest_after("x-ray", {"x", "ray"}), "no");
}

TEST(WordInKey, OtherScriptsNeedNoBlank) {
  EXPECT_EQ(rest_after("a\xE5\xAD\xA6", {"a", "\xE5\xAD\xA6"}), "");
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

TEST(AfterHead, BehindTheFirstBlankOrCharacter) {
  EXPECT_STREQ(after_head("give up"), "up");
  EXPECT_STREQ(after_head("York, New"), "New");
  EXPECT_STREQ(after_head("dog"), "");
  EXPECT_STREQ(after_head("\xB4\xF3, \xD1\xA7"), "\xD1\xA7");
  EXPECT_STREQ(after_head("\xB4"), "");
  EXPECT_STREQ(after_head(""), "");
}

TEST(NaturalOrder, OnlyACommaAndBlankTurnsRound) {
  EXPECT_EQ(natural_order("York, New"), "New York");
  EXPECT_EQ(natural_order("b c,  x a"), "x a b c");
  EXPECT_EQ(natural_order("1,000"), "1,000");
  EXPECT_EQ(natural_order("1,000, about"), "about 1,000");
  EXPECT_EQ(natural_order("x,"), "x,");
  EXPECT_EQ(natural_order("x, "), "x, ");
}

}  // namespace
}  // namespace torvane
