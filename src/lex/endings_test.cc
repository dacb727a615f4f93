#include "lex/endings.h"

#include "lex/lexicon_fixture.h"

namespace torvane {
namespace {

/// What the endings of a table make of a word, in table order.
std::string candidates(const EndingTable& table, const char* word) {
  std::string text;
  for (EndingWalk walk(table, word); walk.current(); walk.next())
    if (const char* root = walk.current()->strip(word)) {
      if (!text.empty()) text += ' ';
      text += root;
    }
  return text;
}

class EndingsTest : public testing::Test {
 protected:
  void read(const char* text) {
    register_kinds();
    IRSlistReader reader;
    table.read(reader.start_string(text));
  }
  EndingTable table;
};

TEST_F(EndingsTest, PlainOnesReplaceTheSuffixInTableOrder) {
  read("((p ing prog) (p ing prog e) (p \"\" base))");
  EXPECT_EQ(candidates(table, "making"), "mak make making");
  EXPECT_EQ(candidates(table, "MakING"), "Mak Make MakING");
  EXPECT_EQ(candidates(table, "sing"), "s se sing");
  // The suffix alone is no word.
  EXPECT_EQ(candidates(table, "ing"), "ing");
  EXPECT_EQ(candidates(table, ""), "");
}

TEST_F(EndingsTest, TheSuffixMustBeWrittenInLowerCase) {
  read("((p S pl))");
  EXPECT_EQ(candidates(table, "dogs"), "");
  EXPECT_EQ(candidates(table, "DOGS"), "");
}

TEST_F(EndingsTest, DoubledLettersComeOffBehindAVowel) {
  read("((d ing prog zzz))");
  EXPECT_EQ(candidates(table, "running"), "run");
  EXPECT_EQ(candidates(table, "RUNning"), "RUN");
  EXPECT_EQ(candidates(table, "RuNNing"), "RuN");
  EXPECT_EQ(candidates(table, "egging"), "");     // too short
  EXPECT_EQ(candidates(table, "misttting"), "");  // no vowel before the pair
  EXPECT_EQ(candidates(table, "walking"), "");
}

TEST_F(EndingsTest, BeforeIsLookedForThreeFromTheEnd) {
  read("((e es pl \"\" xs) (e s third \"\" xs) (e es none \"\"))");
  EXPECT_EQ(candidates(table, "boxes"), "box boxe");
  EXPECT_EQ(candidates(table, "BOXES"), "BOX BOXE");
  EXPECT_EQ(candidates(table, "dates"), "");
  EXPECT_EQ(candidates(table, "xes"), "");
}

TEST_F(EndingsTest, ConditionsAreFoundByName) {
  read(
      "((:conditions ((short tiny) (one-of :is (str= \"cat\"))))"
      " (p s pl \"\" SHORT) (p s any \"\" unknown) (e s es \"\" tiny t) (e ts es \"\" t))");
  EXPECT_EQ(table.conditions.size(), 2u);
  EXPECT_NE(table.condition("tiny"), nullptr);
  EXPECT_EQ(table.condition("unknown"), nullptr);
}

TEST_F(EndingsTest, AConditionStandsBetweenReplacementAndBefore) {
  read(
      "((:conditions ((ok) (reg-match \"^[cd]\")))"
      " (p s plain \"\" ok) (e es es \"\" ok x))");
  EXPECT_EQ(candidates(table, "cats"), "cat");
  EXPECT_EQ(candidates(table, "bats"), "");
  EXPECT_EQ(candidates(table, "coxes"), "coxe cox");
  EXPECT_EQ(candidates(table, "boxes"), "");
}

TEST_F(EndingsTest, BadFormsAreReportedOrSkipped) {
  std::string long_suffix(256, 'a');
  std::string said = complaints([&] {
    read(("((x s pl) () atom (:conditions) (:conditions a (b) ()) (p " + long_suffix +
          " n) (p s pl))")
             .c_str());
  });
  EXPECT_EQ(said.find("Ending type 'x' is not defined.\n"), 0u);
  EXPECT_NE(said.find("is too long"), std::string::npos);
  EXPECT_EQ(table.endings.size(), 1u);
}

}  // namespace
}  // namespace torvane
