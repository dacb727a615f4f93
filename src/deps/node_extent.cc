#include "deps/node_extent.h"

#include "deps/deps.h"
#include "deps/tree_walk.h"

namespace torvane {

namespace {

void take_node(Extent& extent, RSTree* tree) {
  const DepTree* node = dep_tree_of(tree);
  if (!node) return;
  for (int index : {node->_pos, node->_low, node->_high}) extent.take(index);
}

}  // namespace

Extent extent_of(DepTree& node) {
  Extent extent;
  for (PreIterator walk(&node); RSTree* below = walk.next();) take_node(extent, below);
  return extent;
}

std::unordered_map<const RSTree*, Extent> extents_in(RSTree& root) {
  std::unordered_map<const RSTree*, Extent> extents;
  for (PostIterator walk(&root); RSTree* tree = walk.next();) {
    Extent& extent = extents[tree];
    take_node(extent, tree);
    if (tree == &root) continue;
    Extent& above = extents[tree->_parent];  // references stay
    above.take(extent.low);
    above.take(extent.high);
  }
  return extents;
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
