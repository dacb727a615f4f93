#include "parser/grammar_fixture.h"

namespace torvane {
namespace {

class SentenceTest : public GrammarTest {
 protected:
  static std::string words() {
    std::string out;
    for (int i = 1; i <= lex().last_position(); ++i) {
      out += lex().gap(i);
      out += '<' + std::string(lex().word(i)) + '>';
    }
    return out;
  }
};

TEST_F(SentenceTest, TheSentenceTokenizer) {
  make_parser("", "");
  auto cut = [](const char* text) {
    EXPECT_TRUE(parser().feed(text, nullptr));
    return words();
  };
  EXPECT_EQ(cut("The cat\t sat."), "<The> <cat>\t <sat><.>");
  EXPECT_EQ(cut("AT&T, 1,000 (it)\n"), "<AT&T><,> <1,000> <(><it><)>");
  EXPECT_EQ(cut("don't well-known"), "<don><'t> <well><-><known>");
  EXPECT_EQ(cut("say \"x\" now"), "<say> <\"><x><\"> <now>");
  EXPECT_EQ(cut(""), "");
  EXPECT_TRUE(parser().feed_words({"a b", "c"}));
  EXPECT_EQ(words(), " <a b> <c>");
}

TEST_F(SentenceTest, AnotherTokenizer) {
  make_parser("", "");
  Tokenizer bars(" ", "|", "|", "", 0, 0, 64, 64);
  ASSERT_TRUE(parser().feed("a|b. c", &bars));
  EXPECT_EQ(words(), "<a><|><b.> <c>");
  Tokenizer separated("|", 64, 64);
  ASSERT_TRUE(parser().feed("a|b", &separated));
  EXPECT_EQ(words(), "<a|><b>");
}

TEST_F(SentenceTest, VeryLongSentencesAreCut) {
  make_parser("", "");
  std::vector<const char*> many(LexAnalyzer::kMostWords + 10, "w");
  Captured errors(std::cerr);
  EXPECT_TRUE(parser().feed_words(many));
  EXPECT_EQ(lex().last_position(), LexAnalyzer::kMostWords);
  EXPECT_NE(errors.text().find("more than"), std::string::npos);
}

TEST_F(SentenceTest, CategoriesAreWeighedByTheirFrequency) {
  make_parser(
      "(boy (avm ((cat n))) (freq NN 7.9 \"V B\" 3)) (girl (avm ((cat n)))) (cow (avm ((cat n))))",
      "(def-category N)");
  ASSERT_TRUE(parser().feed("boy boy boy girl cow", nullptr));
  const char* categories[] = {"NN", "V B", "X", "NN", ""};
  int i = 0;
  lex().for_each_item([&](LexItem* found) {
    if (found->vec()) found->category = lex().pool_copy(categories[i++]);
  });
  ASSERT_EQ(i, 5);
  parser().parse_items();
  const float weights[] = {7, 3, 18, 18, 0};
  for (int w = 1; w <= 5; ++w) EXPECT_EQ(item("N", 0, w, w)->_weight, weights[w - 1]) << w;
}

TEST_F(SentenceTest, WordsComeByStartThenWeightThenOrder) {
  make_parser(
      "(a (avm ((cat n) (num sg))) (avm ((cat n) (num pl))) (avm ((cat n))))",
      "(def-category N (full-pitem-cond (or (comp (pitem-attvec) (attvec2str num) (print-str "
      ":suffix \";\")) (t))))");
  ASSERT_TRUE(parser().feed("a", nullptr));
  int i = 0;
  const std::int16_t weights[] = {4, 2, 2};
  lex().for_each_item([&](LexItem* found) { found->weight = weights[i++]; });
  Captured out(std::cout);
  parser().parse_items();
  EXPECT_EQ(out.text(), "((num pl));();((num sg));");
}

TEST_F(SentenceTest, ResetForgetsWhatTheSentenceTouched) {
  make_parser("(big (avm ((cat a)))) (boy (avm ((cat n))))",
              "(def-category A) (def-category N) (def-modifiers N (* (A)) (:head))");
  parse("big boy");
  parser().span_limits(1).second = 1;
  parser().case_marks.set(2);
  ASSERT_EQ(items("N", 1), "[1,2] [2,2]");
  const Link& link = *node("N")._positions[0][0];
  EXPECT_FALSE(link.waiting_at(1).empty());
  EXPECT_TRUE(node("N")._ends.test(2));
  parser().reset();
  EXPECT_TRUE(link.waiting_at(1).empty());
  EXPECT_TRUE(node("N")._ends.is_empty());
  EXPECT_TRUE(node("N").bucket(1, 2).empty());
  EXPECT_FALSE(parser().case_marks.test(2));
  EXPECT_TRUE(parser().span_allowed(1, 2));
  EXPECT_EQ(lex().last_position(), 0);
  EXPECT_EQ(parser()._pool_free, static_cast<int>(parser()._pool.size()));
  parser().parse_items();
  EXPECT_EQ(items("N", 1), "");
}

TEST_F(SentenceTest, ASentenceWithinASentenceIsRefused) {
  make_parser("(boy (avm ((cat n))))",
              "(def-category N (full-pitem-cond (or (exec-commands (parse boy) (reset-parser)"
              " (def-modifiers N) (def-category N (full-pitem-cond)) (roots (N))) (t))))");
  Captured errors(std::cerr);
  Captured out(std::cout);
  parse("boy boy");
  EXPECT_NE(errors.text().find("parse: a sentence is being parsed"), std::string::npos);
  EXPECT_NE(errors.text().find("the grammar: a sentence is being parsed"), std::string::npos);
  EXPECT_EQ(items("N", 0), "[1,1] [2,2]");
  EXPECT_EQ(node("N")._n_positions, 1);
  EXPECT_TRUE(parser()._roots.empty());
  parse("boy");
  EXPECT_EQ(items("N", 0), "[1,1]");
}

TEST_F(SentenceTest, WordsOfAnotherTypeOrWithoutANodeAreLeftOut) {
  run("(def-att-list other (defattribute cat IntAtt)) (set-att-itp-list syn)"
      "(make-avmeaning-proto other oavm)");
  make_parser("(boy (oavm ((cat 3))) (freq NN 1)) (girl (avm ((num sg))) (avm ((cat n))))",
              "(def-category N)");
  parse("boy girl");
  EXPECT_EQ(items("N", 0), "[2,2]");
}

TEST_F(SentenceTest, WithoutAnAnalyserNothingHappens) {
  TorvaneParser alone("alone", 11);
  ASSERT_EQ(parser()._lex, nullptr);
  parse("boy");
  parser().parse_items();
  parser().reset();
  EXPECT_FALSE(parser().feed_words({"boy"}));
}

}  // namespace
}  // namespace torvane
