#include "lex/abbreviations.h"

#include "lex/chart_fixture.h"

namespace torvane {
namespace {

int words_at_end(const std::vector<const char*>& words, const char* abbreviation) {
  register_rule_modules();
  return spelled_out(words, abbreviation, SpelledAt::end);
}

TEST(Abbreviations, LettersComeFromTheFrontsOfWords) {
  EXPECT_EQ(words_at_end({"the", "University", "of", "California"}, "UC"), 3);
  EXPECT_EQ(words_at_end({"International", "Business", "Machines"}, "I.B.M."), 3);
  EXPECT_EQ(words_at_end({"a", "Television"}, "TV"), 1);
  EXPECT_EQ(words_at_end({"light", "amplification", "by", "stimulated", "emission"}, "lase"), 5);
}

TEST(Abbreviations, MostWordsWin) {
  EXPECT_EQ(words_at_end({"the", "Text", "Tilt"}, "TT"), 2);
}

TEST(Abbreviations, OnlySmallWordsArePassedOverAndNotTheOutermost) {
  EXPECT_EQ(words_at_end({"University", "near", "California"}, "UC"), 0);
  EXPECT_EQ(words_at_end({"of", "California"}, "C"), 1);
  EXPECT_EQ(words_at_end({"University", "-", "California", "in"}, "UC"), 4);
}

TEST(Abbreviations, NoLettersOrNoWordsSpellNothing) {
  EXPECT_EQ(words_at_end({"Some", "Words"}, "..."), 0);
  EXPECT_EQ(words_at_end({"Some", "Words"}, ""), 0);
  EXPECT_EQ(words_at_end({}, "UC"), 0);
  EXPECT_EQ(words_at_end({"", ""}, "UC"), 0);
}

TEST(Abbreviations, TheNameMayFollow) {
  register_rule_modules();
  std::vector<const char*> words = {"University", "of", "California", "in"};
  EXPECT_EQ(spelled_out(words, "UC", SpelledAt::start), 3);
}

class DefinitionTest : public testing::Test {
 protected:
  static std::string print(Chart& chart, LexItem* item) {
    std::ostringstream out;
    if (item) chart.analyzer.print_item(out, *item, 0);
    return out.str();
  }
};

TEST_F(DefinitionTest, ItemsOfANameWithItsAbbreviation) {
  Chart chart("the University of California ( UC ) met");
  LexItem* abbreviation = chart.add(6, 6, "uc");
  chart.add(2, 2, "university");
  chart.add(1, 1, "the");
  auto match = chart.match(5, 7, abbreviation);
  auto* whole = chart.eval("(abbrev-def (meaning))", match).as<LexItem>();
  EXPECT_EQ(print(chart, whole),
            "[2,7] University of California ( UC ) uc w=0 hd=4 (root University of California)\n"
            "  [2,4] University of California uc w=0 hd=4 (root University of California)\n"
            "  [6,6] UC uc w=0 hd=4 (root UC)\n");
  EXPECT_EQ(chart.items(), "1-1 the, 2-7 University of California");
  EXPECT_STREQ(chart.eval("(get-sub-lexitem abbrev)", whole).as<LexItem>()->root, "UC");
  EXPECT_STREQ(chart.eval("(get-sub-lexitem SPELLOUT (root))", whole).text(),
               "University of California");
}

TEST_F(DefinitionTest, TheAbbreviationMayComeFirst) {
  Chart chart("( UC ) University of California met");
  auto match = chart.match(1, 3, chart.make(2, 2, "uc"));
  EXPECT_EQ(print(chart, chart.eval("(abbrev-with-def (meaning))", match).as<LexItem>()),
            "[1,6] ( UC ) University of California uc w=0 hd=6 (root University of California)\n"
            "  [2,2] UC uc w=0 hd=6 (root UC)\n"
            "  [4,6] University of California uc w=0 hd=6 (root University of California)\n");
}

TEST_F(DefinitionTest, NothingHappensWhereNothingIsSpelled) {
  Chart chart("( UC ) met UC");
  LexItem* item = chart.add(2, 2, "uc");
  for (int low = 0; low <= 6; ++low) {
    for (int high = low - 1; high <= 6; ++high) {
      auto match = chart.match(low, high, item);
      EXPECT_FALSE(chart.eval("(abbrev-def (meaning))", match)) << low << "-" << high;
      EXPECT_FALSE(chart.eval("(abbrev-with-def (meaning))", match)) << low << "-" << high;
    }
  }
  EXPECT_FALSE(chart.eval("(abbrev-def)", chart.match(1, 3, item)));
  EXPECT_EQ(chart.items(), "2-2 uc");
}

}  // namespace
}  // namespace torvane
