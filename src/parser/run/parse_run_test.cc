#include "parser/run/parse_run.h"

#include <gtest/gtest.h>

#include "parser/forms/test_grammar.h"

namespace torvane {
namespace {

/// Lets the items arrive one by one.
void deliver(TestGrammar& made, const std::vector<TestItem>& items) {
  ParseRun run(made.grammar(), made.chart());
  for (const TestItem& what : items) run.receive(made.node(what.node), made.item(what), nullptr);
}

TEST(ParseRun, ItemsTravelToTheNodesThatCanUseThem) {
  const std::vector<TestItem> nvn = {{"N", 1, 1}, {"V", 2, 2}, {"N", 3, 3}};
  const std::vector<TestItem> nnv = {{"N", 1, 1}, {"N", 2, 2}, {"V", 3, 3}};
  struct {
    const char* positions;
    std::vector<TestItem> items;
    const char* spans;  // of V's items
  } const cases[] = {
      {"(? (N)) (:head)", nvn, "1-2 2-2 "},
      {"(:head) (? (N))", nvn, "2-2 2-3 "},
      {"(? (N)) (:head) (? (N))", nvn, "1-2 2-2 1-3 2-3 "},
      // What must be there.
      {"((N)) (:head)", nvn, "1-2 "},
      {"((N)) (:head)", {{"V", 1, 1}}, ""},
      {"(? (N)) ((N)) (:head)", nnv, "1-3 2-3 "},
      // Once, or more than once.
      {"(? (N)) (:head)", nnv, "2-3 3-3 "},
      {"(* (N)) (:head)", nnv, "1-3 2-3 3-3 "},
      {"(+ (N)) (:head)", nnv, "1-3 2-3 "},
      {"(:head) (* (N))", {{"V", 1, 1}, {"N", 2, 2}, {"N", 3, 3}}, "1-1 1-2 1-3 "},
      // What could be a modifier has to be one.
      {"(? :minimal (N)) (:head)", nvn, "1-2 "},
      // Conditions, and how far the words may be apart.
      {"(? (N (modifier-cond (int 0)))) (:head)", nvn, "2-2 "},
      {"(? (N (modifiee-cond (int 0)))) (:head)", nvn, "2-2 "},
      {"(* (N (max-dist 1))) (:head)", nnv, "2-3 3-3 "},
      {"(:head) (* (N (max-dist 1)))", {{"V", 1, 1}, {"N", 2, 2}, {"N", 3, 3}}, "1-1 1-2 "},
      // A word between them is in the way.
      {"(? (N)) (:head)", {{"N", 1, 1}, {"V", 3, 3}}, "3-3 "},
  };
  for (const auto& [positions, items, spans] : cases) {
    TestGrammar made(std::string("(def-category N) (def-category V) (def-modifiers V ") +
                     positions + ")");
    deliver(made, items);
    EXPECT_EQ(made.spans("V"), spans) << positions;
  }
}

TEST(ParseRun, SubclassesAndFramesSendTheirItemsUp) {
  TestGrammar made(
      "(def-category N) (def-category V) (def-subclass N (Name) (Number))"
      "(def-modifiers V (? (N)) (:head)) (def-subcat VN V (:head) ((N)))");
  deliver(made, {{"Name", 1, 1}, {"VN", 2, 2}, {"Number", 3, 3}});
  EXPECT_EQ(made.spans("N"), "1-1 3-3 ");
  EXPECT_EQ(made.spans("VN"), "2-2 2-3 ");
  EXPECT_EQ(made.spans("V"), "1-3 2-3 ");
  made.chart().reset();
  EXPECT_EQ(made.spans("N") + made.spans("VN") + made.spans("V"), "");
}

TEST(ParseRun, EqualItemsAreAlternatives) {
  TestGrammar made("(def-category V (visible-atts (num))) (def-modifiers V (:head))");
  deliver(made, {{"V", 1, 1, "(num sg)"}, {"V", 1, 1, "(num pl)"}, {"V", 1, 1, "(num sg) -cm"}});
  EXPECT_EQ(made.spans("V"), "1-1 1-1 ");
  const PItem* first = made.chart().bucket(made.node("V"), 0, 1).front();
  EXPECT_TRUE(first->_next && !first->_next->_next);
}

// A condition may give a head another start after it was stored: it equals what has that start.
TEST(ParseRun, EqualItemsAreFoundByTheSpanTheyHaveNow) {
  TestGrammar made(
      "(def-category N) (def-category V)"
      "(def-modifiers V (:head) (? (N (modifiee-cond (include-preceding-word)))))",
      {"a", "b", "c"});
  deliver(made, {{"V", 2, 2}, {"N", 3, 3}, {"V", 1, 2}});
  EXPECT_EQ(made.spans("V"), "1-2 1-3 ");
  EXPECT_TRUE(made.chart().bucket(made.node("V"), 0, 2).front()->_next);
}

TEST(ParseRun, ConjunctsAreJoined) {
  const std::vector<TestItem> pair = {{"N", 1, 1}, {"N", 3, 3}};
  struct {
    std::vector<const char*> words;
    int conjunction;  // the word before the last conjunct
    std::vector<TestItem> items;
    const char* spans;
  } const cases[] = {
      {{"a", "and", "b"}, 2, pair, "1-1 1-3 3-3 "},
      {{"a", "near", "b"}, 0, pair, "1-1 3-3 "},
      {{"a", "and", "b"}, 2, {{"N", 1, 1, "(num sg)"}, {"N", 3, 3, "(num pl)"}}, "1-1 3-3 "},
      // Only whether the first kind of attribute is there counts.
      {{"a", "and", "b"}, 2, {{"N", 1, 1, "(cat n)"}, {"N", 3, 3, "(cat v)"}}, "1-1 1-3 3-3 "},
      {{"a", "and", "b"}, 2, {{"N", 1, 1, "(cat n)"}, {"N", 3, 3}}, "1-1 3-3 "},
      // A comma joins what has a conjunction further on.
      {{"a", ",", "b", "and", "c"},
       4,
       {{"N", 1, 1}, {"N", 3, 3}, {"N", 5, 5}},
       "1-1 3-3 1-5 3-5 5-5 "},
      {{"a", ",", "b"}, 0, pair, "1-1 3-3 "},
  };
  for (const auto& [words, conjunction, items, spans] : cases) {
    TestGrammar made("(def-category N (conj-atts (cat) (num))) (def-modifiers N (:head))", words);
    if (conjunction) made.grammar()._lex->last_conjunctions.set(conjunction);
    deliver(made, items);
    EXPECT_EQ(made.spans("N"), spans) << words[1];
  }
}

// The words of a sentence may have brought more frames than the chart had columns for.
TEST(ParseRun, ItemsStayWhereTheChartGrows) {
  TestGrammar made("(def-category N) (def-category V) (def-modifiers V (? (N)) (:head))");
  deliver(made, {{"N", 1, 1}, {"V", 2, 2}});
  made.parser().reset();
  std::string frames = "(def-category W)";
  for (int i = 0; i < 50; ++i)
    frames += "(def-subcat W" + std::to_string(i) + " W (:head) ((N)) ((N)))";
  made.world.interpreter.load_string(frames.c_str());
  deliver(made, {{"N", 1, 1}, {"V", 2, 2}, {"W49", 2, 2}});
  EXPECT_EQ(made.spans("V"), "1-2 2-2 ");
  EXPECT_EQ(made.spans("W49"), "2-2 ");
}

}  // namespace
}  // namespace torvane
