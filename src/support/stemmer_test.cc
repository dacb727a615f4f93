#include "support/stemmer.h"

#include <gtest/gtest.h>

#include <string>

namespace torvane {
namespace {

std::string stemmed(std::string word) {
  EXPECT_EQ(stem(word.data()), 1) << word;
  return word.c_str();
}

TEST(Stemmer, FollowsItsTable) {
  const char* words[][2] = {
      {"caresses", "caress"},
      {"ponies", "poni"},
      {"cats", "cat"},
      {"agreed", "agre"},
      {"feed", "fe"},
      {"hopping", "hop"},
      {"filing", "file"},
      {"plastered", "plaster"},
      {"conflated", "conflat"},
      {"happy", "happi"},
      {"sky", "sky"},
      {"relational", "relat"},
      {"conditional", "condition"},
      {"hopefulness", "hopeful"},
      {"adoption", "adopt"},
      {"controlling", "controll"},
      {"Running", "run"},
      {"oscillators", "oscill"},
  };
  for (auto& [word, wanted] : words) EXPECT_EQ(stemmed(word), wanted) << word;
}

// A root of two letters has no letter before it, which counts as a consonant.
TEST(Stemmer, RestoresAnEOnShortRoots) {
  EXPECT_EQ(stemmed("using"), "use");
  EXPECT_EQ(stemmed("aged"), "age");
  EXPECT_EQ(stemmed("iced"), "ice");
}

// Where "e" was not restored the later steps look at a place inside the word and find nothing.
TEST(Stemmer, LeavesWordsAloneAfterAFailedRestoration) {
  EXPECT_EQ(stemmed("walked"), "walk");
  EXPECT_EQ(stemmed("bored"), "bore");
  EXPECT_EQ(stemmed("falling"), "fall");
}

TEST(Stemmer, StopsAtWhatIsNoLetter) {
  std::string word = "ABc1DE";
  EXPECT_EQ(stem(word.data()), 0);
  EXPECT_EQ(word, "abc1DE");
  std::string high = "Caf\xe9";
  EXPECT_EQ(stem(high.data()), 0);
  EXPECT_EQ(stemmed(""), "");
  EXPECT_EQ(stemmed("A"), "a");
  EXPECT_EQ(stemmed("s"), "");
}

}  // namespace
}  // namespace torvane
