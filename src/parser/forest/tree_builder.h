// From the forest to the tree that is the result: the best decompositions become nodes, heads above
// their modifiers.
#pragma once

#include <vector>

#include "parser/forest/parse_forest.h"
#include "parser/forest/word_trees.h"

namespace torvane {

/// Used again for each sentence, with the room that it has.
class TreeBuilder {
 public:
  /// Sets the root of `deps`: the tree of the only root, or a holder of those of all.
  void build(const Slist<TNode*>& roots, Deps& deps);

 private:
  /// A modifier, and which argument of its head it is.
  struct Part {
    DepTree* node;
    int argument;
    const PItem* merged;
  };

  DepTree* make_tree(TNode& tnode, WordTrees& words);
  DepTree* make_parts(TNode& tnode, WordTrees& words);
  DepTree* make_subtree(const Derivation& entry, WordTrees& words);
  void take_part(DepTree& head, const Part& part, const PItem& item);

  TreeBudget budget_;
  Traces traces_;
  std::vector<Part> parts_;
};

}  // namespace torvane
