// Which words a subtree reaches over, and which node stands at a word.
#pragma once

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "deps/dep_tree.h"

namespace torvane {

/// The smallest and the largest word index among a node and what is below it: heads, and first and
/// last words. Without any word `low` is 0.
struct Extent {
  int low = 0;
  int high = 0;
  /// Makes room for a word index; one below 1 is none.
  void take(int index) {
    if (index <= 0) return;
    low = empty() ? index : std::min(low, index);
    high = std::max(high, index);
  }
  bool empty() const { return low == 0; }
  bool lies_in(int from, int to) const { return !empty() && low >= from && high <= to; }
};
Extent extent_of(DepTree& node);
/// The same for each node of a tree.
std::unordered_map<const RSTree*, Extent> extents_in(RSTree& root);

/// For each word index of the sentence the first node of a tree, in pre-order, that has it as its
/// position; null without one.
std::vector<DepTree*> nodes_by_word(RSTree* root, const Deps& deps);

}  // namespace torvane
