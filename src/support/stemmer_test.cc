#include "support/stemmer.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace torvane {
namespace {

std::string stemmed(std::string word) {
  EXPECT_EQ(stem(word.data()), 1) << word;
  return word.c_str();
}

// A root of two letters has no letter before it, which counts as a consonant: "use". Where "e" was
// not restored the later steps look at a place inside the word and find nothing: "walk".
TEST(Stemmer, FollowsItsTable) {
  std::istringstream words(
      "caresses caress ponies poni cats cat agreed agre feed fe hopping hop filing file "
      "plastered plaster conflated conflat happy happi sky sky relational relat "
      "conditional condition hopefulness hopeful adoption adopt controlling controll Running run "
      "oscillators oscill using use aged age iced ice walked walk bored bore falling fall A a");
  for (std::string word, wanted; words >> word >> wanted;) EXPECT_EQ(stemmed(word), wanted) << word;
  for (const char* word : {"", "s"}) EXPECT_EQ(stemmed(word), "");
}

TEST(Stemmer, StopsAtWhatIsNoLetter) {
  std::string word = "ABc1DE";
  EXPECT_EQ(stem(word.data()), 0);
  EXPECT_EQ(word, "abc1DE");
  std::string high = "Caf\xe9";
  EXPECT_EQ(stem(high.data()), 0);
}

}  // namespace
}  // namespace torvane
