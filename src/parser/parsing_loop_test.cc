#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

constexpr char kWords[] =
    "(uh (avm ((cat j)))) (the (avm ((cat d)))) (big (avm ((cat a)))) (old (avm ((cat a))))"
    "(boy (avm ((cat n) (num sg)))) (boys (avm ((cat n) (num pl)))) (in (avm ((cat p))))"
    "(see (avm ((cat v)))) (red (avm ((cat a) (num sg))))";
constexpr char kCategories[] =
    "(def-category A) (def-category Det) (def-category P) (def-category Conn) (def-category V)"
    "(def-category N)";

class ParsingLoopTest : public GrammarTest {
 protected:
  static void grammar(const std::string& commands) { make_parser(kWords, kCategories + commands); }
  /// Parses with words of the sentence in the skip set.
  static void parse_skipping(const std::string& text, std::initializer_list<int> skipped) {
    ASSERT_TRUE(parser().feed(text.c_str(), nullptr));
    for (int word : skipped) lex().skipped.set(word);
    parser().parse_items();
  }
};

TEST_F(ParsingLoopTest, LeftModifiersRepeatOnlyWhereTheyMay) {
  grammar("(def-modifiers N (? (A)) (:head))");
  parse("uh big old boy");
  EXPECT_EQ(items("N", 1), "[3,4] [4,4]");
  grammar("(def-modifiers N (* (A)) (:head))");
  parse("uh big old boy");
  EXPECT_EQ(items("N", 1), "[2,4] [3,4] [4,4]");
}

TEST_F(ParsingLoopTest, ARequiredPositionOnTheLeftIsNotPassed) {
  grammar("(def-modifiers N (? (A)) ((Det)) (:head))");
  parse("uh big boy");
  EXPECT_EQ(items("N", 2), "");
  parse("uh big the boy");
  EXPECT_EQ(items("N", 2), "[2,4] [3,4]");
  grammar("(def-modifiers N (+ (A)) (:head))");
  parse("uh big old boy");
  EXPECT_EQ(items("N", 1), "[2,4] [3,4]");
}

TEST_F(ParsingLoopTest, RightModifiersAreStoredAtTheirPosition) {
  grammar("(def-modifiers N (:head) (? (P)) (* (A)))");
  parse("boy in big old");
  EXPECT_EQ(items("N", 0), "[1,1]");
  EXPECT_EQ(items("N", 1), "[1,2]");
  EXPECT_EQ(items("N", 2), "[1,3] [1,4]");
  grammar("(def-modifiers N (:head) ((P)) (? (A)))");
  parse("boy big");
  EXPECT_EQ(items("N", 2), "");
  parse("boy in big");
  EXPECT_EQ(items("N", 2), "[1,3]");
}

TEST_F(ParsingLoopTest, AMinimalPositionTakesWhatItCan) {
  grammar("(def-modifiers N (? :minimal (A)) (:head))");
  parse("boy big boy");
  EXPECT_EQ(items("N", 1), "[1,1] [2,3]");
  grammar(
      "(def-category N (minimal-modifier-cond (pitem-attvec (defined (num)))))"
      "(def-modifiers N (? :minimal (A)) (:head))");
  parse("red boy big boy");
  EXPECT_EQ(items("N", 1), "[1,2] [3,4] [4,4]");
}

TEST_F(ParsingLoopTest, DistanceCountsFromTheFarEndOnTheLeft) {
  grammar("(def-modifiers N (* (A (max-dist 1))) (:head))");
  parse("big old boy");
  EXPECT_EQ(items("N", 1), "[2,3] [3,3]");
  grammar("(def-modifiers N (* (A (max-dist 0))) (:head))");
  parse("big boy");
  EXPECT_EQ(items("N", 1), "[2,2]");
  grammar("(def-modifiers N (:head) (* (A (max-dist 1))))");
  parse("boy big old");
  EXPECT_EQ(items("N", 1), "[1,2]");
}

TEST_F(ParsingLoopTest, HeadsMoreThanTwentyApartDoNotMerge) {
  grammar("(def-modifiers N (:head) (* (A)))");
  std::string text = "boy";
  for (int i = 0; i < 22; ++i) text += " big";
  parse(text);
  EXPECT_TRUE(item("N", 1, 1, 21));
  EXPECT_FALSE(item("N", 1, 1, 22));
}

TEST_F(ParsingLoopTest, WeightIsHeadModifierHalfTheDistanceAndTheLink) {
  grammar("(def-modifiers N (:head) (* (A (dep-weight 0.25))))");
  parse("boy big old red");
  EXPECT_EQ(item("N", 1, 1, 2)->_weight, 0.25f);      // 1 >> 1 is 0
  EXPECT_EQ(item("N", 1, 1, 3)->_weight, 0.5f + 1);   // + 2 >> 1
  EXPECT_EQ(item("N", 1, 1, 4)->_weight, 0.75f + 2);  // + 3 >> 1
}

TEST_F(ParsingLoopTest, SkippedWordsAreStridden) {
  grammar("(def-modifiers N (? (Det)) (:head) (? (P)))");
  parse_skipping("the uh uh boy uh in", {2, 3, 5});
  EXPECT_EQ(items("N", 1), "[1,4] [4,4]");
  EXPECT_EQ(items("N", 2), "[1,6] [4,6]");
  parse_skipping("the uh uh boy uh in", {2});
  EXPECT_EQ(items("N", 1), "[4,4]");
  EXPECT_EQ(items("N", 2), "");
}

TEST_F(ParsingLoopTest, ASkipWordConditionStridesItsPosition) {
  grammar("(def-modifiers N (? :skip-word (str= uh) (Det)) (:head) (? :skip-word (str= uh) (P)))");
  parse("the uh uh boy uh in");
  EXPECT_EQ(items("N", 1), "[1,4] [4,4]");
  EXPECT_EQ(items("N", 2), "[1,6] [4,6]");
  parse("boy uh uh in");  // a right modifier looks over one word only
  EXPECT_EQ(items("N", 2), "");
}

TEST_F(ParsingLoopTest, AnAdjunctFillsTheGapOfAPosition) {
  const char* network =
      "(def-category Adjunct) (def-subclass Adjunct (P) (A))"
      "(def-modifiers V (:head) (? :skip-adjunct (N)))";
  grammar(network);
  parse("see in boy big");
  EXPECT_EQ(items("V", 1), "");  // an adjunct as long as what it stands beside
  grammar(std::string(network) + "(def-modifiers N (:head) (? (A)))");
  parse("see in boy big");
  EXPECT_EQ(items("V", 1), "[1,4]");
  PItem* merged = item("V", 1, 1, 4);
  ASSERT_TRUE(merged);
  EXPECT_EQ(merged->_head_child->_link, node("V")._guest_link);
  EXPECT_EQ(merged->_head_child->_modifier->_low, 2);
  parse("see , in , boy big");
  EXPECT_EQ(items("V", 1), "[1,6]");
  parse("see in , boy big");
  EXPECT_EQ(items("V", 1), "");
}

TEST_F(ParsingLoopTest, AGuestMayBeRefused) {
  make_parser(
      "(see (avm ((cat v)))) (boy (avm ((cat n)))) (big (avm ((cat a)))) (in (avm ((cat p) "
      "-guest)))"
      "(on (avm ((cat p) +guest)))",
      "(def-category P) (def-category A) (def-category N) (def-category V) (def-category Adjunct)"
      "(def-subclass Adjunct (P)) (def-modifiers N (:head) (? (A)))"
      "(def-modifiers V (:head) (? :skip-adjunct (N)))");
  parse("see in boy big");
  EXPECT_EQ(items("V", 1), "");
  parse("see on boy big");
  EXPECT_EQ(items("V", 1), "[1,4]");
}

TEST_F(ParsingLoopTest, FullConditionsHoldBackOrDrop) {
  grammar(
      "(def-category N (full-pitem-cond (pitem-attvec (contain ((num pl))))))"
      "(def-modifiers N (:head)) (def-modifiers V (? (N)) (:head))");
  parse("boy see");
  EXPECT_EQ(items("N", 0), "");
  EXPECT_EQ(items("V", 1), "[2,2]");
  parse("boys see");
  EXPECT_EQ(items("V", 1), "[1,2] [2,2]");
}

TEST_F(ParsingLoopTest, ModifierAndModifieeConditions) {
  grammar(
      "(def-modifiers N (? (A (modifier-cond (pitem-attvec (defined (num)))))) (:head)"
      " (? (P (modifiee-cond (int-eq (pitem-length) (int 1))))))");
  parse("red boy in");
  EXPECT_EQ(items("N", 1), "[1,2] [2,2]");
  EXPECT_EQ(items("N", 2), "[1,3]");
  parse("big boy in");
  EXPECT_EQ(items("N", 1), "[2,2]");
  EXPECT_EQ(items("N", 2), "");
}

TEST_F(ParsingLoopTest, AHeadLinkProjects) {
  grammar(
      "(def-category A (visible-atts (num))) (def-category AP)"
      "(def-modifiers AP (:head (A (head-cond (pitem-attvec (defined (num)))) (dep-weight 3))))");
  parse("big red");
  EXPECT_EQ(items("AP", 0), "[2,2]");
  PItem* projected = item("AP", 0, 2, 2);
  EXPECT_FALSE(has_att(*projected->_atts, syntax_atts().cat));
  EXPECT_EQ(projected->_weight, 0);  // a projection adds no link weight
  EXPECT_EQ(projected->_modifier, nullptr);
  EXPECT_EQ(node_of(*projected), &node("AP"));
  EXPECT_EQ(head_position(*projected), 2);
}

TEST_F(ParsingLoopTest, SubclassesPassItemsThroughUnlessTheyWeigh) {
  grammar(
      "(def-category NP) (def-category Heavy) (def-subclass NP (N)) (def-subclass Heavy (N "
      "(dep-weight 2)))"
      "(def-category S) (def-modifiers S (? (NP)) (:head (V)))");
  parse("boy see");
  PItem* word = item("N", 0, 1, 1);
  EXPECT_EQ(item("NP", 1, 1, 1), word);
  PItem* heavy = item("Heavy", 1, 1, 1);
  ASSERT_TRUE(heavy);
  EXPECT_EQ(heavy->_head_child, word);
  EXPECT_EQ(heavy->_weight, 2.0f);
  EXPECT_EQ(items("S", 1), "[1,2] [2,2]");
}

TEST_F(ParsingLoopTest, SubclassItemsStandByStartDescending) {
  grammar("(def-category NP) (def-subclass NP (N)) (def-modifiers N (* (A)) (:head))");
  parse("uh big old boy");
  std::string order;
  for (PItem* found : node("NP").bucket(1, 4)) order += std::to_string(found->_low);
  EXPECT_EQ(order, "432");
}

TEST_F(ParsingLoopTest, CirclesOfSubclassesEnd) {
  grammar("(def-category X) (def-category Y) (def-subclass X (Y) (N)) (def-subclass Y (X))");
  Captured errors(std::cerr);
  parse("boy boys");
  EXPECT_NE(errors.text().find("too deep"), std::string::npos);
  parse("uh");
  EXPECT_EQ(items("X", 1), "");
}

TEST_F(ParsingLoopTest, AHeadlessNodeStartsWithAModifier) {
  grammar("(def-category C) (def-modifiers C (? (A (allow-guest))) (? (N)))");
  parse("uh big boy");
  EXPECT_EQ(items("C", 0), "[2,2]");
  EXPECT_EQ(items("C", 1), "[2,3]");
  PItem* start = item("C", 0, 2, 2);
  ASSERT_TRUE(start);
  EXPECT_NE(start, item("A", 0, 2, 2));
  EXPECT_EQ(start->_head_child, item("A", 0, 2, 2));
}

TEST_F(ParsingLoopTest, AWordOfAHeadlessNodeIsDropped) {
  grammar("(def-modifiers N ((A (allow-guest))))");
  parse("big boy");
  EXPECT_EQ(items("N", 0), "[1,1]");
}

TEST_F(ParsingLoopTest, EquivalentItemsHangOnOneChain) {
  make_parser(
      "(fish (avm ((cat n) (num sg))) (avm ((cat n) (num pl))) (avm ((cat n) (num sg) (pform x))))",
      "(def-category N (visible-atts (num)))");
  parse("fish");
  EXPECT_EQ(items("N", 0), "[1,1] [1,1]");
  EXPECT_EQ(chain_length(node("N").bucket(0, 1).front()), 2);
}

TEST_F(ParsingLoopTest, AlternativesOfOptionalPositionsMeetAndWeightDoesNotReplace) {
  grammar("(def-modifiers N (:head) (? (P) (A (dep-weight 9))) (? (A)))");
  parse("boy big");
  // At position 2 the same span comes again, and joins the chain found first.
  EXPECT_EQ(items("N", 1) + "|" + items("N", 2), "|[1,2]");
  PItem* first = item("N", 2, 1, 2);
  ASSERT_TRUE(first);
  EXPECT_EQ(chain_length(first), 2);
}

TEST_F(ParsingLoopTest, AFrameWaitsForItsArguments) {
  make_parser(
      "(put (avm ((cat v) (args ((cat n) (role obj)) ((cat p) (role loc))))))"
      "(set (avm ((cat v) (args ((cat n) +opt) ((cat p))))))"
      "(it (avm ((cat n)))) (in (avm ((cat p))))",
      "(def-category N) (def-category P) (def-category V) (def-modifiers V (? (N)) (:head))");
  parse("it put it in");
  EXPECT_EQ(items("V_N_P", 0), "[2,2]");
  EXPECT_EQ(items("V_N_P", 1), "[2,3]");
  EXPECT_EQ(items("V_N_P", 2), "[2,4]");
  EXPECT_EQ(items("V", 1), "[1,4] [2,4]");
  parse("put in");
  EXPECT_EQ(items("V", 1), "");
  parse("set in");
  EXPECT_EQ(items("V", 1), "[1,2]");
}

TEST_F(ParsingLoopTest, ASpanLimitIsolates) {
  grammar("(def-modifiers N (* (A)) (:head) (* (P)))");
  ASSERT_TRUE(parser().feed("big old boy in in", nullptr));
  parser().span_limits(3).first = 2;   // nothing over word 3 may start before 2
  parser().span_limits(2).second = 4;  // nothing over word 2 may end behind 4
  parser().parse_items();
  EXPECT_EQ(items("N", 1), "[2,3] [3,3]");
  EXPECT_EQ(items("N", 2), "[2,4] [3,4] [3,5]");
  parse("big old boy in in");
  EXPECT_TRUE(item("N", 2, 1, 5));
}

TEST_F(ParsingLoopTest, EveryWordOnEveryWordEndsWithThePool) {
  grammar("(def-modifiers N (* (N)) (:head) (* (N)))");
  std::string text;
  for (int i = 0; i < 400; ++i) text += "boy ";
  parse(text);
  EXPECT_EQ(parser()._pool.size(), std::size_t{TorvaneParser::kPoolLimit});
  EXPECT_TRUE(item("N", 1, 400, 400));
  parse("boy boy");
  EXPECT_EQ(items("N", 1), "[1,1] [1,2] [2,2]");
}

TEST_F(ParsingLoopTest, FiveThousandSkippedWords) {
  grammar("(def-modifiers N (* (A)) (:head) (* (A)))");
  std::string text = "big";
  for (int i = 0; i < 5000; ++i) text += " boy";
  ASSERT_TRUE(parser().feed(text.c_str(), nullptr));
  for (int i = 2; i <= 5001; ++i) lex().skipped.set(i);
  parser().parse_items();
  EXPECT_TRUE(item("N", 1, 1, 2));
  EXPECT_TRUE(item("N", 1, 1, 21));
  EXPECT_FALSE(item("N", 1, 1, 22));
}

}  // namespace
}  // namespace torvane
