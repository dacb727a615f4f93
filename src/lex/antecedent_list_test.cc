#include "lex/antecedent_list.h"

#include "lex/chart_fixture.h"

namespace torvane {
namespace {

TEST(AntecedentList, ShortNames) {
  EXPECT_TRUE(matches_name("J", "J"));
  EXPECT_FALSE(matches_name("John", "J"));
  EXPECT_FALSE(matches_name("John", "J.")) << "one letter and a period stand for themselves";
  EXPECT_TRUE(matches_name("J.", "J."));
  EXPECT_FALSE(matches_name("John", ""));
}

TEST(AntecedentList, PartsOfNames) {
  EXPECT_TRUE(matches_name("John Smith", "Smith"));
  EXPECT_TRUE(matches_name("John Smith", "John Sm"));
  EXPECT_FALSE(matches_name("Goldsmith Ltd", "smiths"));
  EXPECT_TRUE(matches_name("McSmith Smith", "Smith")) << "a later occurrence counts too";
}

TEST(AntecedentList, ShortenedSpellings) {
  EXPECT_TRUE(matches_name("John Smith", "J. Smith"));
  EXPECT_TRUE(matches_name("International Machines", "Intl. Machines"));
  EXPECT_FALSE(matches_name("International Business Machines", "IBM"))
      << "a capital in the short form must come next";
  EXPECT_FALSE(matches_name("John O'Hara", "Jo Ra")) << "only lower case is passed over";
  EXPECT_FALSE(matches_name("John", "Johnny"));
  EXPECT_TRUE(matches_name("anything", "...")) << "periods ask for nothing";
}

TEST(AntecedentList, Abbreviations) {
  EXPECT_TRUE(abbreviates("International Business Machines", "IBM"));
  EXPECT_TRUE(abbreviates("International Business Machines", "IntBus"));
  EXPECT_TRUE(abbreviates("University of California", "UC"));
  EXPECT_TRUE(abbreviates("University of California", "UofC"));
  EXPECT_FALSE(abbreviates("University near California", "UC"));
  EXPECT_FALSE(abbreviates("International Business", "Int")) << "the first word alone";
  EXPECT_FALSE(abbreviates("International Business", "IBM"));
  EXPECT_FALSE(abbreviates("International Business", ""));
  EXPECT_FALSE(abbreviates("", "I"));
}

TEST(AntecedentList, ExactNamesComeBeforeEarlierPartialOnes) {
  StrMeaning full("sense");
  StrMeaning exact("other");
  AntecedentList list;
  list.add("John Smith", &full);
  EXPECT_STREQ(list.find_matching("Smith")->type(), "sense");
  list.add("Smith", &exact);
  EXPECT_STREQ(list.find_matching("Smith")->type(), "other");
  EXPECT_STREQ(list.find_matching("J. Smith")->type(), "sense");
  list.add("Smith", &full);
  EXPECT_STREQ(list.find_exact("Smith")->type(), "other") << "the first meaning stays";
  EXPECT_EQ(list.find_exact("smith"), nullptr);
}

TEST(AntecedentList, WordsOfNamesAreKnownUntilCleared) {
  StrMeaning sense("sense");
  AntecedentList list;
  list.add("John  Q.\tSmith", &sense);
  EXPECT_TRUE(list.covers_word("Q."));
  EXPECT_TRUE(list.covers_word("Smith"));
  EXPECT_FALSE(list.covers_word("smith"));
  EXPECT_FALSE(list.covers_word("John Q."));
  list.clear();
  EXPECT_FALSE(list.covers_word("Smith"));
  EXPECT_EQ(list.find_abbrev("JQS"), nullptr);
}

TEST(AntecedentList, NamesOutliveTheirSentence) {
  AntecedentList list;
  {
    Chart chart("John Smith");
    LexItem* item = chart.add(1, 2, "John Smith");
    list.add(item->root, item->meaning.get());
    list.add(nullptr, item->meaning.get());
    list.add("nothing", nullptr);
    chart.analyzer.reset();
  }
  ASSERT_NE(list.find_abbrev("JS"), nullptr);
  EXPECT_STREQ(list.find_abbrev("JS")->type(), "sense");
  EXPECT_EQ(list.find_exact("nothing"), nullptr);
  EXPECT_EQ(list.find_matching(nullptr), nullptr);
}

TEST(AntecedentForms, MissingListsMakeEveryTestFalse) {
  register_rule_modules();
  EXPECT_EQ(errors_of([] {
              auto exp = compile("(is-abbrev nobodys-list)");
              EXPECT_FALSE(exp->eval(Value::constant("IBM"), -1));
            }),
            "The named object 'nobodys-list' (type=AntecedentList) is not found\n");
  EXPECT_FALSE(compile("(matching-name (str x))")->eval(Value(), -1));
  EXPECT_FALSE(compile("(abbrev-of)")->eval(Value(), -1));
}

}  // namespace
}  // namespace torvane
