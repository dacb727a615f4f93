#include "parser/sentence_tree.h"

#include <map>

#include "deps/tree_walk.h"
#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

class SentenceTreeTest : public GrammarTest {
 protected:
  /// A node from fields; the first one made is the top.
  SentenceNode* add(SentenceNode* parent, int order, const char* label, const char* word,
                    const char* category = nullptr) {
    SentenceNode* node = tree_.new_node();
    node->order = order;
    node->label = label;
    node->word = word;
    node->category = category;
    if (parent) parent->attach(node);
    if (!tree_.root) tree_.root = node;
    return node;
  }
  std::string lines() const {
    Captured out(std::cout);
    print_tree(tree_.root);
    return out.text();
  }
  std::string nested() const {
    std::ostringstream out;
    tree_.print(out);
    return out.str();
  }
  /// Parses and prints, one line a word.
  std::string parsed(const char* text) {
    parser()._constituency = false;
    tree_.reset();
    parse_sentence(text, tree_);
    return lines();
  }

  SentenceTree tree_;
};

TEST_F(SentenceTreeTest, HeadsStandAmongTheirDependents) {
  SentenceNode* top = add(nullptr, -1, "", nullptr);
  SentenceNode* head = add(top, 2, "2", "sees", "V");
  add(head, 3, "3", "it");
  add(head, 1, "1", "who", "N");
  add(head, 2, "2b", "same");
  SentenceNode* hidden = add(head, 4, "E0", nullptr, "EC");
  add(hidden, 5, "5", "(x)");
  EXPECT_EQ(lines(),
            "(\n1\t(who\t N\t2)\n2\t(sees\t V\t*)\n2b\t(same\t U\t2)\n3\t(it\t U\t2)\n"
            "5\t(\"(x)\"\t U\tE0)\n)");
}

TEST_F(SentenceTreeTest, AnEmptyTreePrintsItsFrame) {
  EXPECT_EQ(lines(), "(\n)");
  EXPECT_EQ(nested(), "\n");
}

TEST_F(SentenceTreeTest, TheSecondPrinterNests) {
  SentenceNode* top = add(nullptr, -1, "", nullptr);
  SentenceNode* head = add(top, 1, "1", "a b", "V");
  head->relation = "r";
  head->props.append({"num", "pl"});
  SentenceNode* leaf = add(head, 2, "2", "x");
  leaf->root = "y";
  add(head, 3, "3", nullptr);
  EXPECT_EQ(nested(), "\n(\n  (V \"a b\" (relation r) (num pl)\n    ( x (root y))\n    ()))\n");
}

TEST_F(SentenceTreeTest, AQuoteAsWordGoesToStandardOutput) {
  add(nullptr, 1, "1", "\"");
  Captured out(std::cout);
  std::ostringstream stream;
  tree_.print(stream);
  EXPECT_EQ(stream.str(), "\n()\n");
  EXPECT_EQ(out.text(), " \"\\\"\"");
}

TEST_F(SentenceTreeTest, QuoteWord) {
  EXPECT_EQ(quote_word(nullptr), nullptr);
  const char* plain = "it's,fine";
  EXPECT_EQ(quote_word(plain), plain);
  EXPECT_STREQ(quote_word("a b"), "\"a b\"");
  EXPECT_STREQ(quote_word("\\"), "\"\\\\\"");
  EXPECT_STREQ(quote_word("\""), "\"\\\"\"");
  EXPECT_STREQ(quote_word("na\xc3\xafve"), "\"na\xc3\xafve\"");
}

constexpr char kWords[] =
    "(boy (avm ((cat n)))) (big (avm ((cat a)))) (uh (avm ((cat j)))) (York, New (avm ((cat n))))"
    "(put (avm ((cat v) (args ((cat n) (role obj)) ((cat p) (role loc))))))"
    "(see (avm ((cat v) (node VT) (move ((cat n) (slash np) (role obj))))))"
    "(in (avm ((cat p)))) (end, the very , (avm ((cat n))))";
constexpr char kGrammar[] =
    "(def-category N) (def-category V) (def-category P) (def-category A) (def-category Conn)"
    "(def-category VT (visible-atts (move))) (def-category C)"
    "(def-modifiers N (* (A (dep-type mod))) (:head))"
    "(def-modifiers V (? (N (dep-type subj))) (:head))"
    "(def-modifiers C (? (N (dep-type top) (check-slash np))) (:head (VT (dep-type head))))"
    "(roots (C) (V) (N) (Conn))";

TEST_F(SentenceTreeTest, OneRootGetsAHolderAboveIt) {
  make_parser(kWords, kGrammar);
  EXPECT_EQ(parsed("big boy"), "(\n1\t(big\t A\t2)\n2\t(boy\t N\t*)\n)");
  ASSERT_TRUE(tree_.root);
  EXPECT_EQ(tree_.root->word, nullptr);
  EXPECT_EQ(tree_.root->children.length(), 1);
  EXPECT_EQ(parser()._deps->_root->_pos, 2);
}

TEST_F(SentenceTreeTest, FragmentsStandUnderOneTop) {
  make_parser(kWords, kGrammar);
  EXPECT_EQ(parsed("boy uh big boy"),
            "(\n1\t(boy\t N\t*)\n2\t(uh\t Conn\t*)\n3\t(big\t A\t4)\n4\t(boy\t N\t*)\n)");
  EXPECT_TRUE(parser()._deps->_root->is_holder());
}

TEST_F(SentenceTreeTest, NoSentenceShowsTheTreeOfTheOneBefore) {
  make_parser(kWords, kGrammar);
  parsed("boy");
  EXPECT_EQ(parsed("zork"), "(\n)");
  EXPECT_EQ(parser()._deps->word_count(), 2);
  parsed("boy");
  parser()._constituency = true;
  tree_.reset();
  parse_sentence("boy", tree_);
  EXPECT_EQ(tree_.root, nullptr);
  parse_sentence(nullptr, tree_);
  EXPECT_EQ(tree_.root, nullptr);
}

TEST_F(SentenceTreeTest, ArgumentsTakeTheirRoles) {
  make_parser(kWords, kGrammar);
  parsed("boy put boy in");
  std::map<std::string, std::string> relations;
  for (TPreIterator<DepTree> walk(parser()._deps->_root); DepTree* node = walk.next();)
    relations[std::to_string(node->_pos)] = or_empty(node->_rel);
  EXPECT_EQ(relations["1"], "subj");
  EXPECT_EQ(relations["3"], "obj");
  EXPECT_EQ(relations["4"], "loc");
}

TEST_F(SentenceTreeTest, EveryWordOfAPhraseHasALine) {
  make_parser(kWords, kGrammar);
  EXPECT_EQ(parsed("uh New York"), "(\n1\t(uh\t Conn\t*)\n2\t(New\t N\t*)\n3\t(York\t U\t2)\n)");
  const DepTree* phrase = static_cast<DepTree*>(parser()._deps->_root->last_child());
  EXPECT_STREQ(phrase->_root_word, "New York");
  EXPECT_EQ(phrase->_high, 3);
}

TEST_F(SentenceTreeTest, ComponentsBecomeNodesOfTheirOwn) {
  make_parser(kWords, kGrammar);
  parser()._constituency = false;
  ASSERT_TRUE(parser().feed("big boy boy", nullptr));
  Slist<const char*> none;
  const LexItem* boy = lex().ending_at(2).front();
  LexItem* whole = lex().make_item("whole", boy->meaning.get(), 1, 3, none);
  whole->head = 2;
  LexItem* part = lex().make_item("part", boy->meaning.get(), 2, 2, none);
  LexItem* other = lex().make_item("other", boy->meaning.get(), 3, 3, none);
  other->role = lex().pool_copy("apposition");
  ASSERT_TRUE(lex().add_component(whole, part));
  ASSERT_TRUE(lex().add_component(whole, other));
  lex().delete_smaller(1, 3);
  lex().add_item(whole, 0);
  parser().parse_items();
  fill_tree(parser(), tree_);
  EXPECT_EQ(lines(), "(\n1\t(big\t U\t2)\n2\t(boy\t N\t*)\n3\t(boy\t N\t2)\n)");
  const DepTree* head = parser()._deps->_root;
  EXPECT_STREQ(head->_root_word, "boy");
  EXPECT_STREQ(static_cast<const DepTree*>(head->first_child())->_rel, "lex-mod");
  EXPECT_STREQ(static_cast<const DepTree*>(head->last_child())->_rel, "apposition");
}

TEST_F(SentenceTreeTest, AMovedWordLeavesATrace) {
  make_parser(kWords, kGrammar);
  EXPECT_EQ(parsed("boy see"), "(\n1\t(boy\t N\t2)\n2\t(see\t VT\t*)\n)");
  const DepTree* see = parser()._deps->_root;
  const DepTree* trace = see->child_by_rel("obj");
  ASSERT_TRUE(trace);
  EXPECT_EQ(trace->_low, 3);
  EXPECT_EQ(trace->_high, 2);
  EXPECT_EQ(trace->_pos, -1);
  EXPECT_STREQ(trace->_label, "E0");
  EXPECT_STREQ(trace->_root_word, "boy");
  ASSERT_TRUE(trace->antecedent);
  EXPECT_STREQ(trace->antecedent->_label, "1");
  const SentenceNode* copy = tree_.root->children.front()->children.front();
  EXPECT_STREQ(copy->label, "E0");
  ASSERT_TRUE(copy->antecedent);
  EXPECT_STREQ(copy->antecedent->word, "boy");
}

TEST_F(SentenceTreeTest, EmptyNodesStandAtTheirFirstChild) {
  make_parser(kWords, kGrammar);
  parsed("boy");
  Deps& deps = *parser()._deps;
  auto add_node = [&](DepTree* parent, int pos) {
    DepTree* node = deps.new_node();
    node->_pos = static_cast<std::int16_t>(pos);
    node->_low = node->_high = static_cast<std::int16_t>(pos > 0 ? pos : 0);
    if (parent) parent->append(node);
    return node;
  };
  DepTree* top = add_node(nullptr, -1);
  DepTree* chain = add_node(top, -1);
  add_node(add_node(chain, 5), 3);
  DepTree* bare = add_node(top, -1);
  add_node(top, 2);
  deps.set_root(top);
  tree_.reset();
  fill_tree(parser(), tree_);
  std::string orders;
  for (const SentenceNode* node : tree_.root->children.front()->children)
    orders += std::to_string(node->order) + " ";
  EXPECT_EQ(orders, "-1 2 3 ");
  EXPECT_EQ(bare->_pos, -1);
}

TEST_F(SentenceTreeTest, WeightsAndIdsOfAResult) {
  make_parser(kWords, kGrammar);
  parsed("big boy");
  int id = std::stoi(parser()._deps->_id);
  EXPECT_FLOAT_EQ(static_cast<DepTree*>(parser()._deps->_root->first_child())->_weight, 1.1f);
  parsed("big boy");
  EXPECT_EQ(std::stoi(parser()._deps->_id), id + 1);
  Ref<Deps> kept = parser()._deps;
  parsed("uh");
  EXPECT_EQ(kept->word_count(), 3);
  EXPECT_EQ(parser()._deps->word_count(), 2);
}

/// Puts a mark on the root.
class Marker : public DepsModifier {
 public:
  void modify(RSTree* root) override {
    static_cast<DepTree*>(root)->set_cat("marked");
    ++runs;
  }
  int runs = 0;
};

TEST_F(SentenceTreeTest, AModifierRunsOnceASentence) {
  make_parser(kWords, kGrammar);
  Marker marker;
  parser()._deps_modifier = &marker;
  EXPECT_EQ(parsed("boy"), "(\n1\t(boy\t marked\t*)\n)");
  EXPECT_EQ(marker.runs, 1);
  parsed("zork");
  EXPECT_EQ(marker.runs, 1);
}

}  // namespace
}  // namespace torvane
