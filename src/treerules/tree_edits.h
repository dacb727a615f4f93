// What an action of a tree rule does to the tree. An edit that would put a node below itself does
// nothing.
#pragma once

#include "deps/rs_tree.h"

namespace torvane {

class World;

/// After an edit around a node: the root of its sentence's tree is the one on top.
void raise_root(RSTree* node);

/// `insert-node`, `detach-node` and their like.
void register_tree_edits(World& world);
/// `match`, `forall-subtree-matches`, `get-node`, `parent`, `tree-root`.
void register_node_selectors(World& world);
/// What actions do to the nodes of a dependency tree, and print of a match.
void register_match_forms(World& world);

}  // namespace torvane
