#include "parser/grammar.h"

#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

class GrammarCommandsTest : public GrammarTest {
 protected:
  void SetUp() override { make_parser("", "", "num cat"); }
  static Link& link(const char* parent, int position, int i = 0) {
    return *node(parent)._positions.at(position).at(i);
  }
  static std::string atts(const AttSet& set) {
    std::string out;
    LBitSetIterator bits(set);
    for (int i = bits.next(); i >= 0; i = bits.next()) {
      if (!out.empty()) out += ' ';
      out += parser()._att_type->at(i)->name;
    }
    return out;
  }
};

TEST_F(GrammarCommandsTest, MarkersSetTheMasks) {
  run("(def-category A) (def-category N)"
      "(def-modifiers N (* (A)) (?) (+ (A)) (:head) (? :minimal (A)) (? :SKIP-ADJUNCT (A)) (odd "
      "(A)))");
  GCate& n = node("N");
  EXPECT_EQ(n._n_positions, 7);
  EXPECT_EQ(n._positions.size(), 8u);
  EXPECT_EQ(n._head, 3);
  EXPECT_EQ(n._repeat, 0b0000101u);
  EXPECT_EQ(n._required, 0b1001100u);
  EXPECT_EQ(n._minimal, 0b0010000u);
  EXPECT_EQ(n._skip_adjunct, 0b0100000u);
  EXPECT_TRUE(n._positions[1].empty());
  EXPECT_EQ(link("N", 4)._no_guest, 1);
  EXPECT_EQ(link("N", 5)._no_guest, 0);
  EXPECT_EQ(n._skip_conds.size(), 7u);
  EXPECT_TRUE(n.any_required(0, 3));
  EXPECT_FALSE(n.any_required(4, 6));
  EXPECT_FALSE(n.any_required(-5, 2));
  EXPECT_FALSE(n.any_required(7, 100));
}

TEST_F(GrammarCommandsTest, SkipWordIsOneConditionAPosition) {
  run("(def-category A) (def-category N)"
      "(def-modifiers N (? :skip-word (str= x) (A)) (:head) (:skip-word))");
  GCate& n = node("N");
  EXPECT_TRUE(n.skip_cond(0));
  EXPECT_FALSE(n.skip_cond(1));
  EXPECT_FALSE(n.skip_cond(2));
  EXPECT_FALSE(n.skip_cond(7));
  EXPECT_EQ(n._positions[0].size(), 1u);
}

TEST_F(GrammarCommandsTest, UnknownNamesAreNoOpsAndOnlyLinksReport) {
  EXPECT_EQ(report("(def-modifiers Nix (:head)) (def-modifiers) (def-subclass Nix (A))"
                   "(def-conj-constraints Nix (dep-weight 2)) (def-category) (visible-atts (num))"
                   "(modifier-cond (t)) (percolate (num)) (dep-weight 4) (check-slash wh)"),
            "");
  EXPECT_EQ(parser()._nodes.count(), 0);
  run("(def-subcat VT Nix (:head))");
  EXPECT_EQ(node("VT")._is_subcat, 0);
  EXPECT_EQ(report("(def-category N) (def-modifiers N (? (Nix)) (:head) (? (N) stray))"),
            "Node: Nix is not defined\nNode: stray is not defined\n");
  EXPECT_EQ(node("N")._positions[2].size(), 1u);
}

TEST_F(GrammarCommandsTest, LinksPercolateWhatIsVisibleAndDefault) {
  run("(def-category A (visible-atts (num cm))) (def-category N)"
      "(def-modifiers N (? (A) (A (percolate (cm role))) (A (block (num))) (A (block (role)) "
      "(percolate (role)))"
      "  (A (percolate num))) (:head (A)))");
  EXPECT_EQ(atts(link("N", 0, 0)._percolate), "num");
  EXPECT_EQ(atts(link("N", 0, 1)._percolate), "cm role");
  EXPECT_EQ(atts(link("N", 0, 2)._percolate), "");
  EXPECT_EQ(atts(link("N", 0, 3)._percolate), "role");
  EXPECT_EQ(atts(link("N", 0, 4)._percolate), "num");
  EXPECT_EQ(atts(link("N", 1)._percolate), "cm num");
  run("(default-percolating-atts (cm)) (def-category M) (def-modifiers M (? (A)) (:head))");
  EXPECT_EQ(atts(link("M", 0)._percolate), "cm");
  EXPECT_EQ(atts(link("N", 0)._percolate), "num");
}

TEST_F(GrammarCommandsTest, AttributeListsSkipUnknownNames) {
  EXPECT_EQ(report("(def-category N (visible-atts (num nix (a b) cat)))"),
            "GCate::get_atts: nix is not an attribute name\n"
            "GCate::get_atts: (a b) is not an attribute name\n");
  EXPECT_EQ(atts(node("N")._visible), "cat num");
}

TEST_F(GrammarCommandsTest, TypesMakeKeys) {
  run("(def-category COMP) (def-category NN) (def-category N_x) (def-category V_N)"
      "(def-modifiers V_N (:head) (? (COMP (dep-type c)) (NN (dep-type obj)) (N_x (dep-type a:b)) "
      "(NN)))");
  EXPECT_EQ(link("V_N", 1, 0)._key, "V:c:C");
  EXPECT_EQ(link("V_N", 1, 1)._key, "V:obj:N");
  EXPECT_EQ(link("V_N", 1, 2)._key, "V:a:b:N");
  EXPECT_EQ(link("V_N", 1, 3)._key, "");
  EXPECT_EQ(link("V_N", 1, 3)._type, nullptr);
  EXPECT_EQ(node("V_N")._short_name, "V");
  EXPECT_STREQ(node("V_N")._guest_link->_type, "guest");
  EXPECT_EQ(node("V_N")._guest_link->_weight, 30.0f);
}

TEST_F(GrammarCommandsTest, LinkCommandsSetTheirFields) {
  run("(def-category N) (def-modifiers N (:head) (? (N (modifier-cond (t)) (modifiee-cond (t))"
      " (merged-cond (t)) (head-cond (t)) (max-dist 3) (check-arg 2) (allow-guest) (check-slash wh "
      "np))"
      " (N (modifier-cond (t)) (modifier-cond))))");
  Link& set = link("N", 1, 0);
  EXPECT_TRUE(set._modifier_cond && set._modifiee_cond && set._merged_cond && set._head_cond);
  EXPECT_EQ(set._max_dist, 3);
  EXPECT_EQ(set._check_arg, 2);
  EXPECT_EQ(set._no_guest, 0);
  EXPECT_EQ(set._check, 3u);
  Link& plain = link("N", 1, 1);
  EXPECT_FALSE(plain._modifier_cond);
  EXPECT_EQ(plain._max_dist, 64);
  EXPECT_EQ(plain._check_arg, -1);
  EXPECT_EQ(plain._no_guest, 1);
}

TEST_F(GrammarCommandsTest, OutLinksStandByWeightThenDefinition) {
  run("(def-category N) (def-category V)"
      "(def-modifiers V (:head) (? (N (dep-type a) (dep-weight 5)) (N (dep-type b))"
      " (N (dep-type c) (dep-weight 0.5)) (N (dep-type d) (dep-weight 1)) (N (dep-type e) "
      "(dep-weight 5))))");
  std::string order;
  for (Link* l : node("N")._out_links) order += l->_type;
  EXPECT_EQ(order, "cbdae");
}

TEST_F(GrammarCommandsTest, SubcategoriesAndSubclassesSurviveNewPositions) {
  run("(def-category V (visible-atts (num))) (def-category VP) (def-category N)"
      "(def-subcat VT V (:head) (? (N)))"
      "(def-subclass VP (V (dep-weight 2)) (N))"
      "(def-modifiers V (? (N (dep-type old))) (:head))"
      "(def-modifiers VP (? (N)) (:head))");
  EXPECT_EQ(node("VT")._is_subcat, 1);
  EXPECT_EQ(node("V")._positions[1].size(), 1u);
  EXPECT_EQ(node("V")._positions[1][0]->_child, &node("VT"));
  EXPECT_EQ(node("V")._positions[1][0]->_position, 1);
  ASSERT_EQ(node("VP")._positions[2].size(), 2u);
  EXPECT_EQ(node("VP")._positions[2][0]->_weight, 2.0f);
  EXPECT_EQ(node("VP")._positions[2][0]->_position, 2);
  EXPECT_EQ(node("VP")._positions[2][0]->_is_subclass, 1);
  auto leaves = [](const char* name, const char* type) {
    for (Link* l : node(name)._out_links)
      if (l->_type && std::string(l->_type) == type) return true;
    return false;
  };
  EXPECT_TRUE(leaves("N", "old"));
  EXPECT_TRUE(leaves("N", "subclass"));
  run("(def-modifiers V (:head))");
  EXPECT_FALSE(leaves("N", "old"));
  EXPECT_EQ(node("V")._positions[0].size(), 1u);
  run("(def-modifiers V (? (N)))");
  EXPECT_FALSE(leaves("VT", "subcat"));
}

TEST_F(GrammarCommandsTest, CategoryCommands) {
  run("(def-category N (visible-atts (num)) (subcat-atts (role)) (full-pitem-cond (t))"
      " (minimal-modifier-cond (t)) (conj-atts (cat num) (cm)))"
      "(def-conj-constraints N (dep-weight 4) (merged-cond (t)))"
      "(def-category M (full-pitem-cond (t)) (full-pitem-cond))");
  GCate& n = node("N");
  EXPECT_TRUE(n._full_cond && n._minimal_cond);
  EXPECT_EQ(atts(n._subcat_atts), "role");
  EXPECT_EQ(atts(n._conj_same), "cat num");
  EXPECT_EQ(atts(n._conj_consistent), "cm");
  ASSERT_TRUE(n._conj_link);
  EXPECT_STREQ(n._conj_link->_type, "conj");
  EXPECT_EQ(n._conj_link->_weight, 4.0f);
  EXPECT_TRUE(n._conj_link->_merged_cond);
  EXPECT_TRUE(n._out_links.empty());
  EXPECT_FALSE(node("M")._full_cond);
  EXPECT_EQ(parser().current_category, nullptr);
  EXPECT_EQ(parser().current_link, nullptr);
  run("(def-modifiers N (:head)) (visible-atts (cm))");
  EXPECT_EQ(atts(n._visible), "cm");
}

TEST_F(GrammarCommandsTest, RootsReplaceTheTable) {
  run("(def-category N) (def-category V) (roots (N) (V)) (roots (V (t) (int 3)) (Nix) (N (t)))");
  ASSERT_EQ(parser()._roots.size(), 2u);
  EXPECT_EQ(parser()._roots[0].node, &node("V"));
  EXPECT_TRUE(parser()._roots[0].filter && parser()._roots[0].penalty);
  EXPECT_TRUE(parser()._roots[1].filter);
  EXPECT_FALSE(parser()._roots[1].penalty);
}

TEST_F(GrammarCommandsTest, ARewriteOfTheNodeInItsOwnPositions) {
  run("(def-category N) (def-modifiers N (? (N (def-modifiers N (:head)))) (:head) (? (N)))");
  EXPECT_EQ(node("N")._n_positions, 1);
}

TEST_F(GrammarCommandsTest, FortyPositionsWrapTheirMasks) {
  std::string grammar = "(def-category N) (def-modifiers N (:head)";
  for (int i = 1; i < 40; ++i) grammar += i == 35 ? "(* (N))" : "((N))";
  run(grammar + ")");
  EXPECT_TRUE(GCate::bit(node("N")._repeat, 35));
  EXPECT_FALSE(node("N").required(35));
  EXPECT_FALSE(node("N").required(3));
  EXPECT_TRUE(node("N").required(36));
}

}  // namespace
}  // namespace torvane
