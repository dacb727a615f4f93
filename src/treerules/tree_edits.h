// What an action of a tree rule does to the tree. An edit that would put a node below itself does
// nothing.
#pragma once

#include "deps/rs_tree.h"

namespace torvane {

/// After an edit around a node: the root of its sentence's tree is the one on top.
void raise_root(RSTree* node);

}  // namespace torvane
