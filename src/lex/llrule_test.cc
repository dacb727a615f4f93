#include "lex/llrule.h"

#include "lex/chart_fixture.h"

namespace torvane {
namespace {

class LLRuleTest : public testing::Test {
 protected:
  LLRuleTest() : chart("a b mid c d") {
    for (int i = 1; i <= 5; ++i) chart.add(i, i, chart.analyzer.word(i));
    chart.add(1, 2, "ab");
    chart.add(4, 5, "cd");
  }
  /// The spans on which the in-place rule acts, when applied to [3,3].
  std::string fired(const std::string& rule) {
    register_meanings();
    IRSlistReader reader;
    std::unique_ptr<Meaning> meaning =
        make_meaning(reader.start_string(("(llrule " + rule + ")").c_str()));
    LexItem* item = chart.analyzer.make_item("mid", meaning.get(), 3, 3, Slist<const char*>());
    testing::internal::CaptureStdout();
    result = static_cast<bool>(chart.eval("(apply-llrule)", chart.match(3, 3, item)));
    std::cout.flush();
    return testing::internal::GetCapturedStdout();
  }
  static constexpr const char* kAction =
      " (comp (format (comp (low) (int2str)) - (comp (high) (int2str)) : (comp ($ 1) (low) "
      "(int2str)) / "
      "(comp ($ -1) (high) (int2str))) (print-str :suffix \" \"))";
  Chart chart;
  bool result = false;
};

TEST_F(LLRuleTest, EachWayOfTheLeftSide) {
  EXPECT_EQ(fired(std::string("(((lexitem (t)) ~)") + kAction + ")"), "1-3:1/2 2-3:2/2 ");
  EXPECT_TRUE(result);
  EXPECT_EQ(fired(std::string("(((lexitem (t)))") + kAction + ")"), "1-3:1/2 2-3:2/2 ")
      << "without a mark all of it is the left side";
}

TEST_F(LLRuleTest, EachWayOfTheRightSide) {
  EXPECT_EQ(fired(std::string("((~ (lexitem (t)) (? (lexitem (t))))") + kAction + ")"),
            "3-5:4/5 3-5:4/5 3-4:4/4 ");
}

TEST_F(LLRuleTest, EachPairOfBothSides) {
  EXPECT_EQ(fired(std::string("((b ~ (lexitem (t)))") + kAction + ")"), "2-5:2/5 2-4:2/4 ");
}

TEST_F(LLRuleTest, AMissingSideFailsTheRuleButTheMatchIsGiven) {
  EXPECT_EQ(fired(std::string("((nowhere ~ c)") + kAction + ")"), "");
  EXPECT_TRUE(result);
}

TEST_F(LLRuleTest, HalfRulesDoNothing) {
  errors_of([&] {
    EXPECT_EQ(fired("((a ~))"), "");
    EXPECT_EQ(fired("((b ~) (bogus))"), "");
    EXPECT_EQ(fired(std::string("((~)") + kAction + ")"), "");
    EXPECT_FALSE(result) << "no pattern, no try";
    EXPECT_EQ(fired(std::string("(atom") + kAction + ")"), "");
    EXPECT_EQ(fired("()"), "");
    EXPECT_EQ(fired(""), "");
    EXPECT_EQ(fired("no-such-rule"), "");
  });
  EXPECT_FALSE(result);
}

TEST_F(LLRuleTest, ARuleThatAppliesItselfIsStopped) {
  EXPECT_EQ(errors_of([&] { fired("(((? x) ~) (apply-llrule))"); }),
            "apply-llrule: the rules are nested too deeply\n");
}

TEST(LLRuleMeaning, OnlyTheSameRuleIsEqual) {
  register_rule_modules();
  interpreter().prompt = false;
  interpreter().load_string("(make-llrule ll-one (a ~) (t)) (make-llrule ll-two (a ~) (t))");
  auto make = [](const char* form) {
    IRSlistReader reader;
    return make_meaning(reader.start_string(form));
  };
  auto one = make("(llrule ll-one)");
  auto two = make("(llrule ll-two)");
  EXPECT_EQ(one->compare(one->clone().get()), subsume::kEqual);
  EXPECT_EQ(one->compare(two.get()), subsume::kIncomparable);
  StrMeaning sense("sense");
  EXPECT_EQ(one->compare(&sense), subsume::kNotComparable);
}

}  // namespace
}  // namespace torvane
