#include "treerules/tree_rules.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "deps/tree_walk.h"
#include "lexp/expression_run.h"
#include "lexp/form.h"
#include "treerules/offers.h"
#include "treerules/tree_match.h"
#include "treerules/tree_modifier.h"

namespace torvane {
namespace {

std::mt19937 chance;
std::vector<RSTree>* nodes;

std::size_t below(std::size_t n) {
  return chance() % n;
}

RSTree* pick(Value) {
  return &(*nodes)[below(nodes->size())];
}
bool perhaps(Value) {
  return below(2) == 0;
}

class TreeRules : public testing::Test {
 protected:
  TreeRules() {
    using namespace offers;
    enter_all(run_.world(), {&tree_modifier, &tree_patterns, &tree_conditions, &tree_edits,
                             &node_selectors, &node_edits, &match_forms});
    static constexpr Prototype kForms[] = {function<pick>("pick", nullptr),
                                           function<perhaps>("perhaps", nullptr)};
    Offer(kForms).enter(run_.world());
  }
  ~TreeRules() override { nodes = nullptr; }

  std::unique_ptr<TreeRule> rule(const std::string& text) {
    IRSlistReader reader(run_.world().double_byte);
    return make_tree_rule(run_.world(), reader.start_string(text.c_str()));
  }

  ExpressionRun run_;
};

// Every node stands once below one parent, and none below itself.
void expect_trees(const std::vector<RSTree>& all) {
  std::size_t seen = 0;
  for (const RSTree& node : all) {
    int places = 0;
    if (node._parent)
      for (RSTree* child : *node._parent) places += child == &node;
    EXPECT_EQ(places, node._parent ? 1 : 0);
    if (node._parent) continue;
    for (PreIterator walk(const_cast<RSTree*>(&node)); walk.next();) ++seen;
  }
  EXPECT_EQ(seen, all.size());
}

TEST_F(TreeRules, RandomEditsDuringAWalkLeaveTrees) {
  const char* kinds[] = {"up", "up shallow", "down", "down shallow"};
  const char* targets[] = {"(match)",
                           "(parent (match))",
                           "(pick)",
                           "(match 1)",
                           "(get-node (match) (first-child))",
                           "(tree-root (match))"};
  const char* edits[] = {"insert-before", "insert-after",     "insert-node",
                         "append-node",   "detach-node",      "adopt-following",
                         "detach-node",   "inherit-children", "detach-node"};
  for (unsigned seed = 0; seed < 3000; ++seed) {
    chance.seed(seed);
    std::vector<RSTree> all(1 + below(14));
    nodes = &all;
    for (std::size_t i = 1; i < all.size(); ++i) all[below(i)].append(&all[i]);
    std::string action;
    for (std::size_t i = 1 + below(3); i > 0; --i) {
      std::size_t edit = below(std::size(edits));
      action += std::string(" (if (perhaps) (") + edits[edit] + ' ' + targets[below(6)];
      action += (edit < 4 ? std::string(" ") + targets[below(6)] : "") + "))";
    }
    std::string pattern = below(3) ? "(node (perhaps))" : "(tree (t) (t? (node (perhaps))))";
    std::string text = below(5) ? std::string("(") + kinds[below(4)] + ' ' + pattern
                                : "(flat (:max " + pattern + " ? " + pattern + ")";
    SCOPED_TRACE(text + action);
    auto one = rule(text + " (prog" + action + " (perhaps)))");
    ASSERT_TRUE(one);
    one->apply(&all[below(all.size())]);
    expect_trees(all);
  }
  run_.errors();
}

}  // namespace
}  // namespace torvane
