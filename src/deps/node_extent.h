// Which words a subtree reaches over, and which node stands at a word.
#pragma once

#include <vector>

#include "deps/dep_tree.h"

namespace torvane {

/// The smallest and the largest word index among a node and what is below it: heads, and first and
/// last words. Without any word `low` is 0.
struct Extent {
  int low = 0;
  int high = 0;
  bool empty() const { return low == 0; }
  bool lies_in(int from, int to) const { return !empty() && low >= from && high <= to; }
};
Extent extent_of(DepTree& node);

/// For each word index of the sentence the first node of a tree, in pre-order, that has it as its
/// position; null without one.
std::vector<DepTree*> nodes_by_word(RSTree* root, const Deps& deps);

}  // namespace torvane
