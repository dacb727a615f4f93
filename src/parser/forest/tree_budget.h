// What a dependency tree may grow to. Empty items and the components of lexical items can be shared
// over and over; a tree of them may be far larger than what it is made from.
#pragma once

#include "parser/chart/item_pool.h"
#include "support/depth.h"
#include "support/messages.h"

namespace torvane {

inline thread_local DepthLimit tree_depth{"The dependency tree is too deep"};

class TreeBudget {
 public:
  static constexpr int kMostTrees = 4 * ItemPool::kPoolLimit;

  void reset() { trees_ = 0; }
  /// There is room for one more subtree.
  bool take() {
    if (++trees_ == kMostTrees) messages() << "The dependency tree is too large\n";
    return trees_ < kMostTrees;
  }

 private:
  int trees_ = 0;
};

}  // namespace torvane
