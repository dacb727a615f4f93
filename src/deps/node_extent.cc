#include "deps/node_extent.h"

#include <algorithm>

#include "deps/deps.h"
#include "deps/tree_walk.h"

namespace torvane {

Extent extent_of(DepTree& node) {
  Extent extent;
  for (TPreIterator<DepTree> walk(&node); const DepTree* below = walk.next();) {
    for (int index : {below->_pos, below->_low, below->_high}) {
      if (index <= 0) continue;
      extent.low = extent.empty() ? index : std::min(extent.low, index);
      extent.high = std::max(extent.high, index);
    }
  }
  return extent;
}

std::vector<DepTree*> nodes_by_word(RSTree* root, const Deps& deps) {
  std::vector<DepTree*> nodes(static_cast<std::size_t>(deps.word_count()));
  for (PreIterator walk(root); RSTree* tree = walk.next();) {
    DepTree* node = dep_tree_of(tree);
    if (!node || node->_pos <= 0 || node->_pos >= deps.word_count()) continue;
    DepTree*& place = nodes[static_cast<std::size_t>(node->_pos)];
    if (!place) place = node;
  }
  return nodes;
}

}  // namespace torvane
