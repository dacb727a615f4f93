// The empty nodes of a tree: where a word lacks what another node stands for, an empty node below
// that word refers to it.
#pragma once

#include <utility>
#include <vector>

#include "deps/deps.h"
#include "parser/chart/p_item.h"

namespace torvane {

class Traces {
 public:
  void clear();
  /// A node stands for the words of a lexical item.
  void note_word(const DepTree& node, const LexItem& lexitem) {
    words_.push_back({&node, &lexitem});
  }
  /// A merge put `modifier` under `head`; one of the two may have filled a gap in the other.
  void note_merge(DepTree& head, DepTree& modifier, const PItem& merged);
  /// Adds the empty nodes to the finished tree.
  void add_to(Deps& deps) const;

 private:
  /// A node that fills a gap: the item has the record of where the gap is.
  struct Gap {
    DepTree* filler;
    const PItem* item;
  };

  std::vector<Gap> gaps_;
  std::vector<std::pair<const DepTree*, const LexItem*>> words_;
};

}  // namespace torvane
