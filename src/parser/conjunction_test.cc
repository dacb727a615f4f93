#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

class ConjunctionTest : public GrammarTest {
 protected:
  static void grammar(const std::string& more = "") {
    make_parser(
        "(a (avm ((cat n) (num sg)))) (b (avm ((cat n) (num sg)))) (c (avm ((cat n) (num sg))))"
        "(many (avm ((cat n) (num pl)))) (x (avm ((cat n)))) (odd (avm ((cat n) (num sg) (pform "
        "y))))"
        "(and (avm ((cat c)))) (big (avm ((cat d))))",
        "(def-category Det) (def-category C) (def-category N (conj-atts (pform) (num)))"
        "(def-modifiers N (? (Det)) (:head))" +
            more);
  }
  /// Parses with every "and" marked as before a last conjunct, and words in the first-conjunction
  /// set.
  static void parse_conj(const std::string& text, std::initializer_list<int> first = {}) {
    ASSERT_TRUE(parser().feed(text.c_str(), nullptr));
    for (int i = 1; i <= lex().last_position(); ++i)
      if (std::string(lex().word(i)) == "and") lex().last_conjunctions.set(i);
    for (int i : first) lex().first_conjunctions.set(i);
    parser().parse_items();
  }
};

TEST_F(ConjunctionTest, TwoConjuncts) {
  grammar();
  parse_conj("a and b");
  PItem* both = item("N", 1, 1, 3);
  ASSERT_TRUE(both);
  EXPECT_EQ(both->_head_child, item("N", 1, 1, 1));
  EXPECT_EQ(both->_modifier, item("N", 1, 3, 3));
  EXPECT_EQ(both->_link, node("N")._conj_link);
  EXPECT_EQ(both->_weight, 0);
  EXPECT_TRUE(is_true(*both->_atts, syntax_atts().last_conj));
  EXPECT_FALSE(has_att(*item("N", 1, 1, 1)->_atts, syntax_atts().last_conj));
}

TEST_F(ConjunctionTest, ValuesMustBeConsistentAndPresenceTheSame) {
  grammar();
  parse_conj("a and many");
  EXPECT_FALSE(item("N", 1, 1, 3));
  parse_conj("x and many");
  ASSERT_TRUE(item("N", 1, 1, 3));
  EXPECT_TRUE(has_att(*item("N", 1, 1, 3)->_atts, AttInterpreterList::get_att("syn", "num")));
  parse_conj("a and odd");
  EXPECT_FALSE(item("N", 1, 1, 3));
  parse_conj("odd and odd");
  EXPECT_TRUE(item("N", 1, 1, 3));
}

TEST_F(ConjunctionTest, ARowBuildsFromTheRight) {
  grammar();
  parse_conj("a , b and c");
  EXPECT_TRUE(item("N", 1, 3, 5));
  PItem* all = item("N", 1, 1, 5);
  ASSERT_TRUE(all);
  EXPECT_EQ(all->_head_child, item("N", 1, 1, 1));
  EXPECT_EQ(all->_modifier, item("N", 1, 3, 5));
  EXPECT_FALSE(item("N", 1, 1, 3));
  parse_conj("a and b and c");
  all = item("N", 1, 1, 5);
  ASSERT_TRUE(all);
  EXPECT_EQ(all->_modifier, item("N", 1, 3, 5));
  EXPECT_EQ(all->_next, nullptr);
}

TEST_F(ConjunctionTest, ACommaBeforeTheConjunction) {
  grammar();
  parse_conj("a , and b");
  EXPECT_TRUE(item("N", 1, 1, 4));
}

TEST_F(ConjunctionTest, AFirstConjunctionIsTakenIn) {
  grammar();
  parse_conj("big a and b", {1});
  EXPECT_TRUE(item("N", 1, 1, 4));
  parse_conj("a and b", {3});  // an item right behind the mark looks for nothing
  EXPECT_FALSE(item("N", 1, 1, 3));
}

TEST_F(ConjunctionTest, WithoutAMarkNothingIsJoined) {
  grammar();
  parse("a , b");
  EXPECT_FALSE(item("N", 1, 1, 3));
  parse_conj("and b");
  EXPECT_EQ(items("N", 1), "[2,2]");
}

TEST_F(ConjunctionTest, ConstraintsTestTheWhole) {
  grammar("(def-conj-constraints N (merged-cond (int-eq (pitem-length) (int 2))))");
  parse_conj("a and b");
  EXPECT_TRUE(item("N", 1, 1, 3));
  parse_conj("a and big b");
  EXPECT_FALSE(item("N", 1, 1, 4));
}

TEST_F(ConjunctionTest, MovesMustBeEquallyMany) {
  make_parser(
      "(a (avm ((cat n) (num sg) (move ((slash np)))))) (b (avm ((cat n) (num sg))))"
      "(c (avm ((cat n) (num sg) (move ((slash np)) ((slash pp))))))",
      "(def-category N (conj-atts () (num)))");
  parse_conj("a and a");
  EXPECT_TRUE(item("N", 0, 1, 3));
  parse_conj("a and b");
  EXPECT_TRUE(item("N", 0, 1, 3));
  parse_conj("a and c");
  EXPECT_FALSE(item("N", 0, 1, 3));
}

}  // namespace
}  // namespace torvane
