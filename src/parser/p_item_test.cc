#include "parser/p_item.h"

#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

class PItemTest : public GrammarTest {
 protected:
  void SetUp() override { make_parser("(boy (avm ((cat n))))", "(def-category N)"); }

  static Ref<AttVec> vec(const char* text) {
    IRSlistReader reader;
    return make_ref<AttVec>(reader.start_string(text), parser()._att_type);
  }
  static std::string print(const AttVec& v) {
    std::ostringstream out;
    v.print(out);
    return out.str();
  }
};

TEST_F(PItemTest, PoolReusesTheLastMadeFirstAndEndsAtItsLimit) {
  PItem* first = parser().new_item();
  PItem* second = parser().new_item();
  second->_weight = 3;
  second->_atts->read(IRSlistReader().start_string("(+opt)"));
  parser().reset();
  EXPECT_EQ(parser().new_item(), second);
  EXPECT_EQ(second->_weight, 0);
  EXPECT_TRUE(second->_atts->is_empty());
  EXPECT_EQ(parser().new_item(), first);
  for (int i = 2; i < TorvaneParser::kPoolLimit; ++i) ASSERT_TRUE(parser().new_item());
  EXPECT_EQ(parser().new_item(), nullptr);
  EXPECT_EQ(parser()._pool.size(), std::size_t{TorvaneParser::kPoolLimit});
}

TEST_F(PItemTest, AVectorThatSomeoneHoldsIsNotRecycled) {
  PItem* item = parser().new_item();
  Ref<AttVec> held = item->_atts;
  EXPECT_TRUE(held->of_sentence);
  item->_atts->set(syntax_atts().cm, 1);
  parser().reset();
  ASSERT_EQ(parser().new_item(), item);
  EXPECT_NE(item->_atts.get(), held.get());
  EXPECT_TRUE(item->_atts->of_sentence);
  EXPECT_TRUE(is_true(*held, syntax_atts().cm));
}

TEST_F(PItemTest, EquivalenceNeedsTheSpanAndTheVisibleAttributes) {
  PItem* a = parser().new_item();
  PItem* b = parser().new_item();
  a->_atts->unify(*vec("((cat n) (num sg))"), nullptr, 1);
  b->_atts->unify(*vec("((cat n) (num pl))"), nullptr, 1);
  b->_weight = 7;
  LBitSet visible;
  EXPECT_TRUE(equivalent(*a, *b, visible));
  visible.set(syntax_atts().cat);
  EXPECT_TRUE(equivalent(*a, *b, visible));
  visible.set(AttInterpreterList::get_att("syn", "num"));
  EXPECT_FALSE(equivalent(*a, *b, visible));
  visible.reset();
  b->_low = 1;
  EXPECT_FALSE(equivalent(*a, *b, visible));
}

TEST_F(PItemTest, NodeAndHeadPositionAreFoundDownTheHeads) {
  parse("boy boy");
  PItem* lexical = item("N", 0, 2, 2);
  ASSERT_TRUE(lexical);
  EXPECT_EQ(node_of(*lexical), &node("N"));
  LBitSet nothing;
  PItem* bare = node("N").copy_item(lexical, &nothing);
  EXPECT_EQ(lexitem_of(*bare), nullptr);
  EXPECT_EQ(head_position(*bare), 2);
  EXPECT_EQ(node_of(*bare), &node("N"));
  EXPECT_EQ(head_child(bare), bare);
  bare->_modifier = lexical;
  EXPECT_EQ(head_child(bare), lexical);
  EXPECT_EQ(modifiee(bare), lexical);
  PItem* alone = parser().new_item();
  alone->_low = 5;
  EXPECT_EQ(head_position(*alone), 5);
}

TEST_F(PItemTest, RolesBecomeTracesAndTracesAreDischarged) {
  const SyntaxAtts& syn = syntax_atts();
  Ref<AttVec> entry = vec("((move ((slash wh) (role obj)) ((slash np) (role subj))))");
  PItem* item = parser().new_item();
  item->_atts->unify(*entry, nullptr, 1);
  stamp_roles(*item);
  EXPECT_EQ(print(*entry), "((move ((role \"obj\") (slash wh)) ((role \"subj\") (slash np))))");
  AttVecList* move = list_of(*item->_atts, syn.move);
  ASSERT_EQ(move->length(), 2);
  EXPECT_FALSE(has_att(*move->at(1), syn.role));
  TraceChain* trace = trace_of(*move->at(1), syn.trace);
  ASSERT_EQ(trace->records.count(), 1);
  EXPECT_STREQ(trace->records[0].role, "subj");
  EXPECT_EQ(trace->records[0].item, item);

  PItem* copy = node("N").copy_item(item, nullptr);
  Captured errors(std::cerr);
  discharge(*copy, 2);
  EXPECT_NE(errors.text().find("Array index out of bounds: 2"), std::string::npos);
  discharge(*copy, 1);
  EXPECT_STREQ(trace_of(*copy->_atts, syn.trace)->records[0].role, "subj");
  EXPECT_EQ(list_of(*copy->_atts, syn.move)->length(), 1);
  EXPECT_EQ(list_of(*item->_atts, syn.move)->length(), 2);
  discharge(*copy, 0);
  EXPECT_STREQ(trace_of(*copy->_atts, syn.trace)->records[0].role, "obj");
  EXPECT_FALSE(has_att(*copy->_atts, syn.move));
  discharge(*copy, 0);
  EXPECT_FALSE(has_att(*copy->_atts, syn.move));
}

TEST_F(PItemTest, AVectorOfAnotherTypeHasNoSyntacticAttributes) {
  run("(def-att-list other (defattribute x IntAtt) (defattribute y IntAtt))"
      "(set-att-itp-list syn)");
  AttVec other(AttInterpreterList::find("other"));
  for (int i = 0; i < 2; ++i) other.set(i, 77);
  for (int att : {syntax_atts().args, syntax_atts().cm}) {
    EXPECT_FALSE(has_att(other, att));
    EXPECT_EQ(list_of(other, att), nullptr);
    EXPECT_EQ(own_list(other, att), nullptr);
  }
  EXPECT_EQ(node_name_of(other), "");
}

}  // namespace
}  // namespace torvane
