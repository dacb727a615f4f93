#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

class FramesTest : public GrammarTest {
 protected:
  void SetUp() override {
    make_parser("",
                "(def-category V (visible-atts (num)) (subcat-atts (role))) (def-category N)"
                "(def-category P) (def-modifiers V (? (N)) (:head)) (def-category Lone)"
                "(def-category C) (def-modifiers C (? (N)))",
                "num");
  }
  static Ref<AttVec> vec(const char* text) {
    return make_ref<AttVec>(IRSlistReader().start_string(text), parser()._att_type);
  }
  static std::string name(const char* text) { return node_name_of(*vec(text)); }
  static const char* node_for(const char* text) {
    GCate* found = parser().node_of_vec(*vec(text));
    return found ? found->_name.c_str() : "";
  }
};

TEST_F(FramesTest, NamesOfNodes) {
  const char* letters[][2] = {{"a", "A"},    {"c", "C"}, {"d", "Det"}, {"i", "I"},
                              {"j", "Conn"}, {"n", "N"}, {"p", "P"},   {"v", "V"}};
  for (auto& [value, letter] : letters)
    EXPECT_EQ(name(("((cat " + std::string(value) + "))").c_str()), letter);
  EXPECT_EQ(name("()"), "");
  EXPECT_EQ(name("(~cat)"), "");
  EXPECT_EQ(name("((num pl))"), "");
  EXPECT_EQ(name("((cat v) (args ((cat n)) ((cat d)) ()))"), "V_N_Det_");
  EXPECT_EQ(name("((cat v) +head_final (args ((cat n)) ((cat p))))"), "N_P_V");
  EXPECT_EQ(name("((cat v) +head_final)"), "V");
  EXPECT_EQ(name("((cat v) (node odd) (args ((cat n))))"), "odd");
  EXPECT_EQ(name("((cat v) ~node)"), "");
}

TEST_F(FramesTest, NodesOfWords) {
  EXPECT_STREQ(node_for("((cat n))"), "N");
  EXPECT_STREQ(node_for("((cat n) (node lone))"), "Lone");
  EXPECT_STREQ(node_for("((cat n) (node nix))"), "N");
  EXPECT_STREQ(node_for("((cat a))"), "");
  EXPECT_STREQ(node_for("((cat a) (args ((cat n))))"), "");
  EXPECT_EQ(parser().get_node("A_N", false), nullptr);
  EXPECT_STREQ(node_for("((cat v) (args ((cat n))))"), "V_N");
  EXPECT_STREQ(node_for("((cat v) (node own) (args ((cat n))))"), "own");
}

TEST_F(FramesTest, AFrameIsMadeOnce) {
  GCate* frame = parser().node_of_vec(*vec("((cat v) (args ((cat n)) ((cat a))))"));
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame, parser().node_of_vec(*vec("((cat v) (args ((cat n)) ((cat a))))")));
  EXPECT_EQ(frame->_is_subcat, 1);
  EXPECT_EQ(frame->_n_positions, 3);
  EXPECT_EQ(frame->_head, 0);
  EXPECT_EQ(frame->_required, 0u);
  EXPECT_EQ(frame->_skip_adjunct, 0b110u);
  int role = syntax_atts().role;
  int num = AttInterpreterList::get_att("syn", "num");
  EXPECT_TRUE(frame->_visible.test(num) && frame->_visible.test(role));
  ASSERT_EQ(frame->_out_links.size(), 1u);
  const Link& up = *frame->_out_links[0];
  EXPECT_EQ(up._parent, &node("V"));
  EXPECT_EQ(up._position, 1);
  EXPECT_STREQ(up._type, "subcat");
  for (int att : {role, num, syntax_atts().cat, syntax_atts().lexitem})
    EXPECT_TRUE(up._percolate.test(att));

  const Link& object = *frame->_positions[1].at(0);
  EXPECT_EQ(object._child, &node("N"));
  EXPECT_STREQ(object._type, "comp1");
  EXPECT_EQ(object._check_arg, 0);
  EXPECT_EQ(object._no_guest, 0);
  EXPECT_TRUE(object._percolate == parser()._percolating);
  EXPECT_EQ(node("N")._out_links.back(), &object);
  EXPECT_EQ(frame->_positions[2].at(0)->_child, nullptr);
  EXPECT_EQ(frame->_positions[2].at(0)->_check_arg, 1);
}

TEST_F(FramesTest, AHeadFinalFrameCountsFromZero) {
  GCate* frame = parser().node_of_vec(*vec("((cat v) +head_final (args ((cat n)) ((cat p))))"));
  EXPECT_EQ(frame->_head, 2);
  EXPECT_STREQ(frame->_positions[0].at(0)->_type, "comp0");
  EXPECT_EQ(frame->_positions[1].at(0)->_check_arg, 1);
  EXPECT_EQ(frame->_skip_adjunct, 0b011u);
  EXPECT_TRUE(frame->_positions[2].empty());
}

TEST_F(FramesTest, AFrameOfAHeadlessBaseStandsAlone) {
  GCate* frame = parser().node_of_vec(*vec("((cat c) (args ((cat n))))"));
  ASSERT_TRUE(frame);
  EXPECT_TRUE(frame->_out_links.empty());
}

}  // namespace
}  // namespace torvane
