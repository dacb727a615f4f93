#include "parser/forest/next_trees.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>

#include "parser/forms/test_grammar.h"

namespace torvane {
namespace {

/// A derivation: what it costs without what belongs to its chain, and its steps.
using Found = std::pair<float, std::string>;

std::string name_of(const PItem* item) {
  return std::to_string(item->order);
}

/// All of a chain, one by one.
std::vector<Found> derivations(const PItem* first) {
  std::vector<Found> all;
  for (const PItem* item = first; item; item = item->_next) {
    const Derivation* entry = item->chain->own.best;
    if (!item->_head_child) {
      all.emplace_back(entry->_cost, name_of(item));
    } else if (!item->_modifier) {
      for (const Found& head : derivations(item->_head_child)) all.push_back(head);
    } else {
      const float added = item->_head_child->chain->choices.own_weight +
                          item->_modifier->chain->choices.own_weight + entry->_local_cost;
      for (const Found& head : derivations(item->_head_child))
        for (const Found& modifier : derivations(item->_modifier))
          all.emplace_back(head.first + modifier.first + added,
                           name_of(item) + "(" + modifier.second + ")" + head.second);
    }
  }
  return all;
}

std::string text_of(TNode& node) {
  std::string text;
  for (const Derivation* step : node.best())
    text += step->_child ? name_of(step->merged) + "(" + text_of(*step->_child) + ")"
                         : name_of(step->_item);
  return text;
}

TEST(NextTrees, AreAllThatThereAreTheCheapestFirst) {
  std::size_t looked_at = 0;
  std::mt19937 random(4711);
  auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  for (int round = 0; round < 300; ++round) {
    TestGrammar grammar("(def-category N)");
    std::vector<PItem*> items;
    for (int i = 0; i < 9; ++i) {
      PItem* item = grammar.item({"N", 1, 1});
      item->order = i;
      item->_weight = static_cast<float>(below(20)) / 2;
      if (i > 0 && below(3) > 0) item->_head_child = items[static_cast<std::size_t>(below(i))];
      if (item->_head_child && below(4) > 0) {
        item->_modifier = items[static_cast<std::size_t>(below(i))];
        item->_link = &grammar.grammar().empty_link();
      }
      if (i > 0 && below(2) > 0) item->_next = items.back();
      items.push_back(item);
    }
    ParseForest forest(&grammar.parser().costs);
    forest._roots.append(forest.get_tnode(items.back()));
    std::vector<Found> wanted = derivations(items.back());
    if (wanted.size() > 2000) continue;
    std::vector<std::string> texts{text_of(*forest._roots.front())};
    std::vector<float> costs{forest._roots.front()->_weight};
    NextTrees trees(forest, grammar.grammar(), grammar.parser().chart);
    while (trees.next()) {
      texts.push_back(text_of(*trees.roots().front()));
      costs.push_back(trees.cost());
    }
    ASSERT_EQ(texts.size(), wanted.size());
    looked_at += wanted.size();
    std::sort(wanted.begin(), wanted.end());
    const float of_chain = items.back()->chain->choices.own_weight;
    for (std::size_t i = 0; i < wanted.size(); ++i)
      EXPECT_NEAR(costs[i], wanted[i].first + of_chain, 0.01f) << round;
    std::vector<std::string> wanted_texts;
    for (const Found& one : wanted) wanted_texts.push_back(one.second);
    std::sort(wanted_texts.begin(), wanted_texts.end());
    std::sort(texts.begin(), texts.end());
    EXPECT_EQ(texts, wanted_texts) << round;
  }
  EXPECT_GT(looked_at, 5000U);
}

}  // namespace
}  // namespace torvane
