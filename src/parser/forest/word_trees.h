// The nodes of single words and of lexical items with their components.
#pragma once

#include <string>

#include "deps/deps.h"
#include "parser/chart/p_item.h"
#include "parser/forest/traces.h"
#include "parser/forest/tree_budget.h"

namespace torvane {

class WordTrees {
 public:
  WordTrees(Deps& deps, TreeBudget& budget, Traces& traces)
      : deps_(deps), budget_(budget), traces_(traces) {}

  /// The node of a word's item; null if there is no room for it.
  DepTree* make_word(const PItem& item);
  /// A node without a word, where the item begins.
  DepTree* make_empty(const PItem& item);
  /// Gives a node what the vector knows.
  static void unite(DepTree& node, const AttVec& atts);

 private:
  struct Parts;

  DepTree* make_lexical(const LexItem& lexitem, const PItem& item);
  void make_components(const LexItem& lexitem, const PItem& item, Parts& parts);
  DepTree* make_head(const LexItem& lexitem, const PItem& item, int low, int high);
  DepTree* make_leaf(int word);
  std::string words_joined(int low, int high) const;

  Deps& deps_;
  TreeBudget& budget_;
  Traces& traces_;
};

}  // namespace torvane
