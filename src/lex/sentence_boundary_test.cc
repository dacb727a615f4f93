#include "lex/sentence_boundary.h"

#include "lex/chart_fixture.h"

namespace torvane {
namespace {

/// The results of an `sbnd` on the tokens of a text, one behind the other. In the pattern `x`
/// stands for the condition that the token is x.
std::string steps(std::string pattern, const std::string& tokens) {
  register_rule_modules();
  std::string text = "(sbnd";
  std::istringstream in(pattern);
  for (std::string word; in >> word;) {
    if (word.size() == 2 && word[0] == '\'') {
      text += std::string(" (current-token (str= \"") + word[1] + "\"))";
    } else {
      text += " " + word;
    }
  }
  std::unique_ptr<LExp> exp = compile((text + ")").c_str());
  std::string results;
  std::istringstream token_stream(tokens);
  for (std::string token; token_stream >> token;) {
    Value value = exp->eval(Value::buffer_text(token.c_str()), type_id_of<const char*>());
    results += std::to_string(value.number()) + " ";
  }
  return results;
}

TEST(SentenceBoundary, StatesInARow) {
  EXPECT_EQ(steps("'a 'b", "a b"), "-1 0 ");
  EXPECT_EQ(steps("'a . 'b 'c", "a b c"), "-1 -1 2 ");
  EXPECT_EQ(steps("'a 'b", "a x a b"), "-1 -1 -1 0 ");
}

TEST(SentenceBoundary, ATokenThatEndsARunMayBeginTheNext) {
  EXPECT_EQ(steps("'a 'b", "a a b a b"), "-1 -1 0 -1 0 ");
  EXPECT_EQ(steps("'a", "a a x a"), "0 0 -1 0 ");
}

TEST(SentenceBoundary, RepeatsAndOptionalStates) {
  EXPECT_EQ(steps("'a * 'b 'c", "a c a b b b c"), "-1 0 -1 -1 -1 -1 0 ");
  EXPECT_EQ(steps("'a + 'b 'c", "a c a b b c"), "-1 -1 -1 -1 -1 0 ");
  EXPECT_EQ(steps("'a ? 'b 'c", "a c a b c a b b c"), "-1 0 -1 -1 0 -1 -1 -1 -1 ");
  EXPECT_EQ(steps("'a (* 'b ) 'c", "a b b c"), "-1 -1 -1 0 ");
  EXPECT_EQ(steps("'a (? 'b ) 'c 'c", "a c c"), "-1 -1 0 ") << "a marker is for one state";
}

TEST(SentenceBoundary, BoundsCountTheRepeatsBehindTheFirstEntry) {
  EXPECT_EQ(steps("'a +-1 'b 'c", "a b b c"), "-1 -1 -1 0 ");
  EXPECT_EQ(steps("'a +-1 'b 'c", "a b b b c"), "-1 -1 -1 -1 -1 ");
  EXPECT_EQ(steps("'a *-0 'b 'c", "a b c a b b c"), "-1 -1 0 -1 -1 -1 -1 ");
}

TEST(SentenceBoundary, FilteredTokensDoNotCount) {
  EXPECT_EQ(steps(": (not (current-token (str= -))) 'a 'b", "a - - b"), "-1 -1 -1 0 ");
}

TEST(SentenceBoundary, BracketsHoldBalancedRegions) {
  std::string pattern = "'a (& :left 'l :right 'r ) 'b";
  EXPECT_EQ(steps(pattern, "a l b b r b"), "-1 -1 -1 -1 -1 0 ");
  EXPECT_EQ(steps(pattern, "a l l r b r b"), "-1 -1 -1 -1 -1 -1 0 ");
  EXPECT_EQ(steps(pattern, "a r b"), "-1 -1 -1 ");
  EXPECT_EQ(steps("(& :left 'l :right 'r )", "l x r l r"), "-1 -1 0 -1 0 ");
  EXPECT_EQ(steps("'a . (& :left 'l :right 'r :escape 'a ) 'b", "a l a l r b"),
            "-1 -1 -1 -1 -1 2 ");
  EXPECT_EQ(steps("'a (&)", "a a"), "-1 -1 ") << "a bracket without ends is never entered";
}

TEST(SentenceBoundary, MatchedTokensAreSeenByLaterConditions) {
  std::string same = "(t) (and (str-eq (current-token) (token 1)) (t))";
  EXPECT_EQ(steps(same, "x x y z z"), "-1 0 -1 -1 0 ");
  // Of a repeated state the first token, of a skipped one none.
  EXPECT_EQ(steps("'a * 'b (token 2 (str= c))", "a b b c"), "-1 -1 -1 -1 ");
  EXPECT_EQ(steps("'a ? 'b (not (token 2))", "a c"), "-1 0 ");
}

TEST(SentenceBoundary, CopiesStepOnTheirOwn) {
  register_rule_modules();
  auto exp = compile("(sbnd (current-token (str= a)) (current-token (str= b)))");
  exp->eval(Value::constant("a"), -1);
  auto copy = exp->copy();
  copy->eval(Value::constant("x"), -1);
  EXPECT_EQ(copy->eval(Value::constant("b"), -1).number(), -1);
  EXPECT_EQ(exp->eval(Value::constant("b"), -1).number(), 0);
}

TEST(SentenceBoundary, BadPatternsAndTokens) {
  EXPECT_EQ(steps("", "a b"), "-1 -1 ");
  EXPECT_EQ(errors_of([] { EXPECT_EQ(steps("loose 'a", "a"), "0 "); }),
            "LExp::get_exp: loose is not a LExp\n");
  std::string many;
  for (int i = 0; i < 40; ++i) many += " 'a";
  EXPECT_EQ(errors_of([&] { steps(many, "a"); }), "(sbnd ...): more than 32 states\n");
  auto exp = compile("(sbnd (t))");
  EXPECT_EQ(exp->eval(Value(), -1).number(), -1);
  EXPECT_EQ(exp->eval(Value::integer(12345), -1).number(), -1);
  errors_of([] { EXPECT_EQ(steps("(sbnd 'a )", "a"), "-1 ") << "an automaton is no text"; });
}

}  // namespace
}  // namespace torvane
