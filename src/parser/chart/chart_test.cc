#include "parser/chart/chart.h"

#include <gtest/gtest.h>

#include "parser/forms/test_grammar.h"

namespace torvane {
namespace {

TEST(Chart, TakesBackOnlyWhatNobodyHolds) {
  TestGrammar made("(def-category N)");
  PItem* word = made.item({"N", 1, 1});
  PItem* copy = made.chart().copy_item(word, nullptr);
  made.chart().give_back(copy);
  EXPECT_EQ(made.chart().copy_item(word, nullptr), copy);

  HeldValue held(Value::of(copy));
  made.chart().give_back(copy);
  EXPECT_NE(made.chart().copy_item(word, nullptr), copy);
  EXPECT_EQ(held.get().as<PItem>()->_head_child, word);
}

TEST(Chart, CountsWhatWasTakenBackAgainstTheLimit) {
  TestGrammar made("(def-category N)");
  PItem* word = made.item({"N", 1, 1});
  int copies = 0;
  while (PItem* copy = made.chart().copy_item(word, nullptr)) {
    made.chart().give_back(copy);
    ++copies;
  }
  EXPECT_EQ(copies, ItemPool::kPoolLimit - 1);
  made.parser().reset();
  EXPECT_NE(made.chart().new_item(), nullptr);
}

}  // namespace
}  // namespace torvane
