// One rule over a tree: which nodes it looks at in which order, a pattern, and an action.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "deps/rs_tree.h"
#include "lexp/lexp.h"

namespace torvane {

class TreeRule {
 public:
  virtual void apply(RSTree* tree) = 0;
  /// Reads the rule behind its first word.
  virtual void init(World& world, IRSlist* args);
  virtual ~TreeRule() = default;
  TreeRule(const TreeRule&) = delete;
  TreeRule& operator=(const TreeRule&) = delete;

  ExpPtr action;         ///< on TreeMatch*, on RSTree* of a root rule; null: nothing is done
  bool shallow = false;  ///< where the action succeeds, what lies behind is passed over
  std::optional<std::string> name;
  std::optional<std::string> comments;

 protected:
  TreeRule() = default;
};

/// A rule from its form; null if its first word names no kind.
std::unique_ptr<TreeRule> make_tree_rule(World& world, IRSlist* form);

/// Takes a node out of its tree by the walk of the rule whose action runs, if the walk stands on
/// it; does nothing otherwise.
void remove_from_walk(World& world, RSTree* node);

}  // namespace torvane
