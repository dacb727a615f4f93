#include "parser/forest/parse_forest.h"

#include <gtest/gtest.h>

#include "parser/forms/test_grammar.h"

namespace torvane {
namespace {

struct Made {
  float weight;
  int head = -1, modifier = -1, next = -1;  // numbers of other items
};

TEST(ParseForest, TakesTheCheapestOfTheAlternatives) {
  struct {
    const char* what;
    std::vector<Made> items;  // the first is asked for
    int trees;
    float cost;
    std::vector<int> best;  // the items of the steps, from the outermost modifier to the head
  } const cases[] = {
      {"a word", {{3}}, 1, 3, {0}},
      {"two readings", {{3, -1, -1, 1}, {2}}, 2, 2, {1}},
      {"of equals the first", {{3, -1, -1, 1}, {3}}, 2, 3, {0}},
      // A merge costs what it adds to head and modifier, and a tenth of its link's weight.
      {"a merge", {{7, 1, 2}, {2}, {4}}, 1, 7.1f, {2, 1}},
      {"two modifiers", {{9, 1, 3}, {5, 2, 4}, {2}, {3}, {1}}, 1, 9.2f, {3, 4, 2}},
      {"readings of head and modifier",
       {{7, 1, 2}, {2, -1, -1, 3}, {4, -1, -1, 4}, {1}, {2}},
       4,
       4.1f,
       {2, 3}},
      {"a dear merge beside a cheap word", {{9, 1, 2, 3}, {2}, {4}, {1}}, 2, 1, {3}},
      // An item that is an alternative of its own head.
      {"a circle", {{2, -1, -1, 1}, {5, 0, 2}, {1}}, 2, 2, {0}},
  };
  for (const auto& [what, made, trees, cost, best] : cases) {
    TestGrammar grammar("(def-category N)");
    std::vector<PItem*> items;
    for (std::size_t i = 0; i < made.size(); ++i) items.push_back(grammar.item({"N", 1, 1}));
    auto item = [&](int i) { return i < 0 ? nullptr : items[static_cast<std::size_t>(i)]; };
    for (std::size_t i = 0; i < made.size(); ++i) {
      items[i]->_weight = made[i].weight;
      items[i]->_head_child = item(made[i].head);
      items[i]->_modifier = item(made[i].modifier);
      items[i]->_next = item(made[i].next);
      if (items[i]->_modifier) items[i]->_link = &grammar.grammar().empty_link();
    }
    ParseForest forest(&grammar.parser().costs);
    TNode* node = forest.get_tnode(items[0]);
    EXPECT_EQ(node->_n_trees, trees) << what;
    EXPECT_FLOAT_EQ(node->_weight, cost) << what;
    std::vector<const PItem*> wanted, steps;
    for (int i : best) wanted.push_back(item(i));
    for (const Derivation* step : node->best()) steps.push_back(step->_item);
    EXPECT_EQ(steps, wanted) << what;
  }
}

}  // namespace
}  // namespace torvane
