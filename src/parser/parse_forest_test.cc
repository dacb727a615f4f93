#include "parser/parse_forest.h"

#include <cmath>
#include <map>

#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

/// Probabilities by triple; 1 for any other.
class FakeStatistics : public DepStatistics {
 public:
  float dependency_probability(const char* word1, const char* relation,
                               const char* word2) override {
    asked += std::string(word1) + " " + relation + " " + word2 + "\n";
    auto found = known.find(std::string(word1) + " " + relation + " " + word2);
    return found == known.end() ? 1.0f : found->second;
  }
  std::map<std::string, float> known;
  std::string asked;
};

class ForestTest : public GrammarTest {
 protected:
  TNode& tnode(const char* name, int position, int low, int high) {
    PItem* first = item(name, position, low, high);
    EXPECT_NE(first, nullptr) << name << low << high;
    return *parser()._forest.get_tnode(first);
  }
  /// The best decomposition: the modifiers' spans, outermost first, and the head's.
  static std::string best(TNode& node) {
    std::string out;
    for (const Derivation* entry : node.best())
      out += (entry->_is_head ? "h" : "m") + std::to_string(entry->_item->_low) + "," +
             std::to_string(entry->_item->_high) + " ";
    return out;
  }
  void parse_fresh(const char* text) {
    parser()._forest.clear();
    parse(text);
  }
};

constexpr char kWords[] =
    "(boy (avm ((cat n)))) (big (avm ((cat a)))) (in (avm ((cat p)))) (the (avm ((cat d))))"
    "(sees (avm ((cat v)))) (box (avm ((cat n)))) (_NUM (avm ((cat n))))";

constexpr char kNouns[] =
    "(def-category A) (def-category P) (def-category Det) (def-category N)"
    "(def-modifiers N (? (Det (dep-type det))) (* (A (dep-type mod))) (:head)"
    "  (* (P (dep-type pp) (dep-weight 2))))"
    "(roots (N))";

TEST_F(ForestTest, StepsFromTheOutermostModifierToTheHead) {
  make_parser(kWords, kNouns);
  parse_fresh("the big boy in");
  TNode& node = tnode("N", 3, 1, 4);
  EXPECT_EQ(best(node), "m4,4 m1,1 m2,2 h3,3 ");
  EXPECT_EQ(node._n_trees, 1);
  EXPECT_FLOAT_EQ(node._weight, tnode("N", 2, 1, 3)._weight + 2 + 0.2f);
}

TEST_F(ForestTest, WithoutADatabaseAStepCostsWhatItAddedAndAShareOfItsLink) {
  make_parser(kWords, kNouns);
  parse_fresh("big boy in");
  TNode& node = tnode("N", 3, 1, 3);
  const Derivation& outer = *node.best().front();
  EXPECT_FLOAT_EQ(outer._local_cost, 2 + 0.1f * 2);
  const Derivation& inner = *outer.head->best;
  EXPECT_FLOAT_EQ(inner._local_cost, 1 + 0.1f);
  EXPECT_FLOAT_EQ(node._weight, 3.3f);
  EXPECT_STREQ(outer._link->_type, "pp");
}

TEST_F(ForestTest, TheCheapestAlternativeCounts) {
  make_parser(kWords,
              "(def-category A) (def-category N)"
              "(def-modifiers N (? (A (dep-type far) (dep-weight 9)) (A (dep-type near))) (:head))"
              "(roots (N))");
  parse_fresh("big boy");
  TNode& node = tnode("N", 1, 1, 2);
  EXPECT_STREQ(node._choices->best->_link->_type, "near");
  EXPECT_EQ(node._n_trees, 2);
}

TEST_F(ForestTest, AProjectionIsAHeadStep) {
  make_parser(kWords,
              "(def-category N (visible-atts (cat))) (def-category NP) (def-category A)"
              "(def-modifiers N (? (A (dep-type mod))) (:head))"
              "(def-modifiers NP (:head (N (dep-type np) (head-cond (pitem-add-weight 4)))))"
              "(roots (NP))");
  parse_fresh("big boy");
  TNode& node = tnode("NP", 0, 1, 2);
  ASSERT_EQ(node.best().length(), 1);
  const Derivation& step = *node.best().front();
  EXPECT_TRUE(step._is_head);
  EXPECT_FLOAT_EQ(step._local_cost, 4);
  EXPECT_EQ(best(*step._child), "m1,1 h2,2 ");
  EXPECT_FLOAT_EQ(node._weight, step._child->_weight + 4);
}

TEST_F(ForestTest, ACopyWithoutALinkAddsItsWeightToTheList) {
  make_parser(kWords, kNouns);
  parse_fresh("big boy");
  PItem* boy = item("N", 2, 2, 2);
  PItem* copy = node("N").copy_item(boy, nullptr);
  copy->_weight += 7;
  TNode& of_copy = *parser()._forest.get_tnode(copy);
  EXPECT_EQ(of_copy._choices->best, tnode("N", 2, 2, 2)._choices->best);
  EXPECT_FLOAT_EQ(of_copy._weight, 7);
}

TEST_F(ForestTest, ACategoryThatIsItsOwnHeadEnds) {
  make_parser(kWords, kNouns);
  parse_fresh("big boy");
  PItem* boy = item("N", 2, 2, 2);
  PItem* again = node("N").copy_item(boy, nullptr);
  again->_link = node("N")._guest_link;
  again->_next = boy->_next;
  boy->_next = again;
  parser()._forest.clear();
  EXPECT_EQ(tnode("N", 2, 2, 2)._n_trees, 1);
  EXPECT_EQ(best(tnode("N", 2, 2, 2)), "h2,2 ");
  // On its own it is a step to the other.
  TNode& step = *parser()._forest.get_tnode(again);
  EXPECT_EQ(step.best().front()->_child, &tnode("N", 2, 2, 2));
}

TEST_F(ForestTest, AmbiguityDoesNotMultiplyTheWork) {
  make_parser(kWords,
              "(def-category N)"
              "(def-modifiers N (* (N (dep-type l1)) (N (dep-type l2))) (:head)"
              "  (* (N (dep-type r1)) (N (dep-type r2))))"
              "(roots (N))");
  parse_fresh("boy boy boy boy boy boy boy boy");
  parser()._forest.collect_roots();
  EXPECT_GT(parser()._forest._roots.front()->_n_trees, 100000);
  parser()._constituency = false;
  std::string text;
  for (int i = 0; i < 40; ++i) text += "boy ";
  parse(text);
  ASSERT_TRUE(parser()._deps && parser()._deps->_root);
}

TEST_F(ForestTest, RootsAreFilteredAndPenalized) {
  make_parser(kWords, kNouns);
  run("(roots (N (int-eq (pitem-length) (int 1)) (int 7)) (Det) (Nowhere))");
  parse_fresh("the boy in");
  parser()._forest.collect_roots();
  ASSERT_EQ(parser()._forest._roots.length(), 3);
  EXPECT_EQ(parser()._forest._roots.front()->_item->_high, 3);
  EXPECT_EQ(parser()._forest._roots.front()->_root_penalty, 7);
  EXPECT_EQ(parser()._forest._roots.nth(1)->_item->_low, 1);
  EXPECT_EQ(parser()._forest._roots.back()->_node->_name, "Det");
}

TEST_F(ForestTest, PrintsItsNodes) {
  make_parser(kWords, kNouns);
  parse_fresh("boy");
  parser()._show = std::make_unique<AttSet>();
  tnode("N", 2, 1, 1);
  std::ostringstream out;
  parser()._forest.print(out);
  EXPECT_EQ(out.str(), "TNodes:\nN: (1) w=0\n[1,1] boy\n  w=0 () boy\n");
}

class DepCostTest : public ForestTest {
 protected:
  void SetUp() override {
    make_parser(kWords,
                "(def-category N) (def-category V_X) (def-category I) (def-category Prep)"
                "(def-category P) (def-category NN) (def-category A)");
    parser()._reldb = &statistics_;
    testing::internal::CaptureStderr();  // the table of distances is missing
  }
  void TearDown() override { testing::internal::GetCapturedStderr(); }

  /// An item of a word, in a node.
  PItem& word(const char* root, const char* node_name, int position, const char* atts = "()") {
    Slist<const char*> none;
    LexItem* lexitem = lex().make_item(root, nullptr, position, position, none);
    PItem* made = parser().new_item();
    IRSlistReader reader;
    AttVec vec(reader.start_string(atts), parser()._att_type);
    made->_atts->unify(vec, nullptr, 1);
    made->_atts->set(syntax_atts().lexitem, reinterpret_cast<AttWord>(lexitem));
    made->_low = made->_high = static_cast<std::int16_t>(position);
    made->_node = parser().get_node(node_name, false);
    return *made;
  }
  float cost(const PItem& head, const PItem& modifier, const char* relation) {
    return dep_cost(parser(), head, modifier, relation);
  }

  FakeStatistics statistics_;
};

TEST_F(DepCostTest, AddsDistanceAndAssociation) {
  statistics_.known["see V:obj:N boy"] = 0.25f;
  float expected = -std::log(0.25f) - 0.5f * std::log(1 / 3.0f);
  EXPECT_FLOAT_EQ(cost(word("see", "V_X", 2), word("boy", "NN", 5), "obj"), expected);
  EXPECT_FLOAT_EQ(cost(word("see", "V_X", 5), word("boy", "N", 2), "obj"), expected);
  EXPECT_EQ(statistics_.asked, "see V:obj:N boy\n");
  // Next to each other, and unknown to the database.
  EXPECT_FLOAT_EQ(cost(word("do", "I", 2), word("boy", "N", 3), "obj"), 0.1f);
  EXPECT_NE(statistics_.asked.find("do V:obj:N boy"), std::string::npos);
}

TEST_F(DepCostTest, TheCacheOutlivesTheSentenceUnlessItIsDebugged) {
  PItem& see = word("see", "V_X", 1);
  PItem& boy = word("boy", "N", 3);
  statistics_.known["see V:obj:N boy"] = 0.5f;
  float first = cost(see, boy, "obj");
  statistics_.known.clear();
  parser().reset();
  EXPECT_FLOAT_EQ(cost(word("see", "V_X", 1), word("boy", "N", 3), "obj"), first);
  run("(debug-weight 1)");
  parser().reset();
  testing::internal::GetCapturedStderr();
  testing::internal::CaptureStderr();
  cost(word("see", "V_X", 1), word("boy", "N", 3), "obj");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "see\tV:obj:N\tboy\t0 dist=2 distp=0.346574\n");
  testing::internal::CaptureStderr();
  run("(debug-weight 0)");
}

TEST_F(DepCostTest, SpecialWordsAndCategories) {
  cost(word("{go/went}", "V_X", 1), word("", "N", 2, "((cform that))"), "x");
  cost(word("", "V_X", 1), word("_NUM", "A", 2), "x");
  cost(word("of", "P", 1, "((cat p) (pform of))"), word("in", "P", 2, "((cat p))"), "subj");
  EXPECT_EQ(statistics_.asked, "go V:x:N that\n~ V:x:N _NUM\nof C:subj-of:N in\n");
}

TEST_F(DepCostTest, APrepositionAsCategoryCostsItsDistanceOnly) {
  EXPECT_FLOAT_EQ(cost(word("of", "Prep", 1), word("boy", "N", 3), "x"), -0.5f * std::log(0.5f));
  EXPECT_EQ(statistics_.asked, "");
}

TEST_F(DepCostTest, BadTriplesCostFortyAtAnyDistance) {
  parser()._bad_triples = std::make_unique<NameTable<char>>(11);
  parser()._bad_triples->insert("see\tV:obj:N\tboy", 1);
  EXPECT_EQ(cost(word("see", "V_X", 1), word("boy", "N", 30), "obj"), 40.0f);
  statistics_.known["see V:obj:N box"] = 0;
  EXPECT_FLOAT_EQ(cost(word("see", "V_X", 1), word("box", "N", 2), "obj"), 40.1f);
}

TEST_F(DepCostTest, TheCheapestAlternativeOfAModifierCounts) {
  PItem& see = word("see", "V_X", 1);
  PItem& boy = word("boy", "N", 2);
  PItem& box = word("box", "N", 2);
  boy._next = &box;
  statistics_.known["see V:obj:N boy"] = 0.001f;
  Link* link = parser().make_link(see._node, boy._node);
  link->set_type("obj");
  PItem* merged = see._node->merge_items(&boy, &see, nullptr);
  merged->_link = link;
  const Derivation& step = *parser()._forest.get_tnode(merged)->best().front();
  EXPECT_FLOAT_EQ(step._local_cost, 0.1f + 0.1f);
  // A guest is ten dearer.
  merged = see._node->merge_items(&box, &see, nullptr);
  merged->_link = see._node->_guest_link;
  EXPECT_FLOAT_EQ(parser()._forest.get_tnode(merged)->best().front()->_local_cost,
                  0.1f + 10 + 0.1f * 30);
}

TEST_F(DepCostTest, RelationOfAStep) {
  PItem& see = word("see", "V_X", 1, "((args ((role goal)) ((cat n))))");
  auto relation = [&](PItem& head, PItem& modifier, const char* type, int position) {
    PItem merged;
    Link link(head._node, modifier._node);
    link.set_type(type);
    link._position = static_cast<std::int16_t>(position);
    merged._head_child = &head;
    merged._modifier = &modifier;
    merged._link = &link;
    return std::string(or_empty(step_relation(merged)));
  };
  PItem& boy = word("boy", "N", 2);
  PItem& in = word("in", "P", 2, "((cat p) (pform into))");
  EXPECT_EQ(relation(see, boy, "comp1", 1), "goal");
  EXPECT_EQ(relation(see, boy, "comp2", 2), "comp2");
  EXPECT_EQ(relation(see, boy, "comp9", 9), "comp9");
  EXPECT_EQ(relation(see, in, "comp1", 1), "into");
  EXPECT_EQ(relation(boy, see, "mod", 1), "mod");
  PItem& gap = word("gap", "V_X", 1, "((move ((slash np) (cat n) (role obj))))");
  stamp_roles(gap);
  PItem& filler = word("who", "N", 2, "((check np) (cat n))");
  EXPECT_EQ(relation(gap, filler, "top", 1), "obj");
  PItem& other = word("who", "N", 2, "((check np) (cat v))");
  EXPECT_EQ(relation(gap, other, "top", 1), "top");
}

}  // namespace
}  // namespace torvane
