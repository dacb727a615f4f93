#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

class MergeTest : public GrammarTest {
 protected:
  static std::string print(const PItem* item, const char* mask = nullptr) {
    if (!item) return "none";
    std::ostringstream out;
    LBitSet shown;
    if (mask) parser()._att_type->make_att_set(shown, IRSlistReader().start_string(mask));
    item->_atts->print(out, mask ? &shown : nullptr);
    return out.str();
  }
};

TEST_F(MergeTest, CheckArgNeedsOptionalsBetweenAndMarksTheModifier) {
  make_parser(
      "(put (avm ((cat v) (node VT) (args ((cat n)) ((cat p) (role loc))))))"
      "(set (avm ((cat v) (node VT) (args ((cat n) +opt) ((cat p) (role loc))))))"
      "(run (avm ((cat v) (node VT)))) (it (avm ((cat n)))) (in (avm ((cat p))))",
      "(def-category VT) (def-category N) (def-category P) (def-modifiers VT (:head)"
      " (? (N (check-arg 0))) (? (P (check-arg 1))))");
  parse("put in");
  EXPECT_EQ(items("VT", 2), "");
  parse("set in");
  EXPECT_EQ(items("VT", 2), "[1,2]");
  EXPECT_EQ(print(item("VT", 2, 1, 2)->_modifier, "(cat role)"), "((cat p) (role \"loc\"))");
  parse("put it in");
  EXPECT_EQ(items("VT", 2), "[1,3]");
  parse("run in");  // no args at all: the argument passed over is not optional
  EXPECT_EQ(items("VT", 2), "");
  parse("run it");
  EXPECT_EQ(items("VT", 1), "[1,2]");
}

TEST_F(MergeTest, PercolationUnifiesAndMayFail) {
  make_parser(
      "(these (avm ((cat d) (num pl)))) (the (avm ((cat d)))) (boy (avm ((cat n) (num sg))))"
      "(fish (avm ((cat n))))",
      "(def-category Det (visible-atts (num))) (def-category N) (def-modifiers N (? (Det)) "
      "(:head))",
      "num");
  parse("these boy");
  EXPECT_EQ(items("N", 1), "[2,2]");
  parse("the boy");
  EXPECT_EQ(items("N", 1), "[1,2] [2,2]");
  parse("these fish");
  EXPECT_EQ(print(item("N", 1, 1, 2), "(cat num)"), "((cat n) (num pl))");
  EXPECT_EQ(print(item("N", 1, 2, 2), "(cat num)"), "((cat n))");
}

TEST_F(MergeTest, AMovedConstituentIsFoundOnce) {
  make_parser(
      "(see (avm ((cat v) (move ((slash np) (role obj) (cat n))))))"
      "(give (avm ((cat v) (move ((slash np) (role obj)) ((slash np) (role iobj))))))"
      "(who (avm ((cat n)))) (how (avm ((cat a))))",
      "(def-category N) (def-category A) (def-category V)"
      "(def-modifiers V (* (N (check-slash np)) (A (check-slash np))) (:head))");
  parse("who see");
  PItem* merged = item("V", 1, 1, 2);
  ASSERT_TRUE(merged);
  EXPECT_FALSE(has_att(*merged->_atts, syntax_atts().move));
  TraceChain* trace = trace_of(*merged->_atts, syntax_atts().trace);
  ASSERT_TRUE(trace);
  EXPECT_STREQ(trace->records[0].role, "obj");
  EXPECT_EQ(trace->records[0].item, item("V", 1, 2, 2));
  EXPECT_TRUE(has_att(*item("V", 1, 2, 2)->_atts, syntax_atts().move));
  EXPECT_EQ(print(merged->_modifier, "(slash)"), "((slash np))");
  parse("how see");  // the element does not unify
  EXPECT_EQ(items("V", 1), "[2,2]");
  parse("who give");  // two elements answer
  EXPECT_EQ(items("V", 1), "[2,2]");
}

TEST_F(MergeTest, MovesOfHeadAndModifierAreFolded) {
  const char* network =
      "(def-category N (visible-atts (move))) (def-category V) (def-modifiers V (:head) (? (N)))";
  auto words = [](const char* head, const char* modifier) {
    return "(see (avm ((cat v) (move " + std::string(head) + ")))) (it (avm ((cat n) (move " +
           modifier + "))))";
  };
  auto folded = [&](const char* head, const char* modifier) {
    make_parser(words(head, modifier), network, "move");
    parse("see it");
    std::string text;
    PItem* merged = item("V", 1, 1, 2);
    if (!merged) return std::string("none");
    for (const Ref<AttVec>& e : list_of(*merged->_atts, syntax_atts().move)->vecs) {
      std::ostringstream out;
      LBitSet shown;
      parser()._att_type->make_att_set(shown, IRSlistReader().start_string("(slash num)"));
      e->print(out, &shown);
      text += out.str();
    }
    return text;
  };
  EXPECT_EQ(folded("((slash np))", "((slash pp) (num sg))"), "((slash np))((slash pp) (num sg))");
  EXPECT_EQ(folded("((slash wh))", "((slash wh) (num sg))"), "((slash wh) (num sg))");
  EXPECT_EQ(folded("((slash np))", "((slash np) (num sg))"), "((slash np))((slash wh) (num sg))");
  EXPECT_EQ(folded("((slash np)) ((slash wh))", "((slash np))"), "none");
  EXPECT_EQ(folded("((slash np))", "((slash np)) ((slash wh))"), "none");
  // The word's own list is as it was.
  EXPECT_EQ(list_of(*item("V", 0, 1, 1)->_atts, syntax_atts().move)->length(), 1);
}

TEST_F(MergeTest, ControlKeepsTheMovesApart) {
  make_parser(
      "(see (avm ((cat v) +control (move ((slash np)))))) (it (avm ((cat n) (move ((slash np) (num "
      "sg))))))",
      "(def-category N (visible-atts (move))) (def-category V) (def-modifiers V (:head) (? (N)))",
      "move");
  parse("see it");
  PItem* merged = item("V", 1, 1, 2);
  ASSERT_TRUE(merged);
  EXPECT_EQ(list_of(*merged->_atts, syntax_atts().move)->length(), 1);
}

TEST_F(MergeTest, AnArgumentWithAGapLeavesAnEmptyCategory) {
  make_parser(
      "(easy (avm ((cat a) (args ((cat v) (move ((slash np))))))))"
      "(please (avm ((cat v) (move ((slash np) (role obj)))))) (sleep (avm ((cat v))))"
      "(leave (avm ((cat v) (node VX) (move ((slash np) (role obj))))))",
      "(def-category V (visible-atts (move))) (def-category A)"
      "(def-category VX (visible-atts (move))) (def-subclass V (VX))",
      "move");
  parse("easy please");
  PItem* merged = item("A_V", 1, 1, 2);
  ASSERT_TRUE(merged);
  EXPECT_FALSE(has_att(*merged->_atts, syntax_atts().move));
  PItem* gap = merged->_modifier;
  ASSERT_TRUE(gap);
  EXPECT_EQ(gap->_link, parser()._empty_link);
  EXPECT_EQ(node_of(*gap), parser()._empty_node);
  EXPECT_EQ(gap->_head_child, item("V", 0, 2, 2));
  EXPECT_EQ(gap->_modifier->_low, 2);
  EXPECT_EQ(gap->_modifier->_high, 1);
  EXPECT_EQ(gap->_modifier->_modifier, nullptr);
  EXPECT_EQ(node_of(*gap->_modifier), parser()._empty_node);
  EXPECT_STREQ(trace_of(*gap->_atts, syntax_atts().trace)->records[0].role, "obj");
  EXPECT_FALSE(has_att(*gap->_atts, syntax_atts().move));
  EXPECT_STREQ(parser()._empty_link->_key.c_str(), "EC:ECR:EC");
  parse("easy sleep");  // the argument's own gap is taken over by the modifier
  EXPECT_EQ(items("A_V", 1), "[1,2]");
}

TEST_F(MergeTest, MergedConditionsSeeTheWhole) {
  make_parser("(big (avm ((cat a)))) (boy (avm ((cat n))))",
              "(def-category A) (def-category N) (def-modifiers N"
              " (* (A (merged-cond (int-eq (pitem-length) (int 1))))) (:head))");
  parse("big big boy");
  EXPECT_EQ(items("N", 1), "[2,3] [3,3]");
}

TEST_F(MergeTest, CaseFilter) {
  // word: head attributes; the modifier bears -cm unless it is a preposition
  auto result = [](const char* head, const char* modifier) {
    make_parser("(h (avm (" + std::string(head) + "))) (m (avm (" + modifier + ")))",
                "(def-category V) (def-category P) (def-category N)"
                "(def-modifiers V (:head) (? (N) (P))) (def-modifiers P (:head) (? (N) (P)))"
                "(def-modifiers N (:head) (? (N) (P)))");
    parse("h m");
    for (const char* node : {"V", "P", "N"})
      if (PItem* merged = item(node, 1, 1, 2)) return print(merged, "(cm)");
    return std::string("none");
  };
  EXPECT_EQ(result("(cat v)", "(cat n) -cm"), "()");
  EXPECT_EQ(result("(cat v) +cm", "(cat n) -cm"), "(+cm)");
  EXPECT_EQ(result("(cat v) -cm", "(cat n)"), "(-cm)");
  EXPECT_EQ(result("(cat v) -cm", "(cat n) +cm"), "(-cm)");
  EXPECT_EQ(result("(cat v) -cm -govern", "(cat n) -cm"), "(-cm)");
  EXPECT_EQ(result("(cat v) -cm +govern", "(cat n) -cm"), "(-cm)");  // the head lacks case too
  EXPECT_EQ(result("(cat v) -cm (move ((slash np)))", "(cat n) -cm"), "()");
  EXPECT_EQ(result("(cat p) -cm", "(cat n)"), "()");
  EXPECT_EQ(result("(cat v) -cm", "(cat p)"), "()");
}

TEST_F(MergeTest, ACaselessModifierNeedsCaseFromTheHead) {
  make_parser("(h (avm ((cat v)))) (m (avm ((cat n) -cm))) (of (avm ((cat p))))",
              "(def-category N (visible-atts (cm))) (def-category P) (def-category V)"
              "(def-modifiers V (:head) (? (N))) (def-modifiers P (:head) (? (N)))",
              "cm");
  parse("h m");  // merged takes -cm from the modifier, and the head has none
  EXPECT_EQ(items("V", 1), "");
  parse("of m");
  EXPECT_EQ(items("P", 1),
            "");  // the preposition clears the mark; the modifier still needs a governor
}

}  // namespace
}  // namespace torvane
