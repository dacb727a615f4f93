// Patterns over trees: each tests a node and what stands below it, and gives a match of what it
// found. The first that fits is taken for good; nothing is tried a second time.
#pragma once

#include "lexp/variables.h"
#include "treerules/tree_conditions.h"
#include "treerules/tree_match.h"

namespace torvane {

class World;

class RTPat : public RTCond {
 public:
  RTPat() { out_type = type_id_of<TreeMatch>(); }

  bool optional = false;  ///< the form that holds this one does without a match
  Ref<Var> var;           ///< bound to the node found; may be null

 protected:
  /// The name in front of the arguments, if there is one.
  void take_var(World& world, IRSlist* args);
  void bind(RSTree* tree) const {
    if (var) assign(tree);
  }

 private:
  [[gnu::noinline]] void assign(RSTree* tree) const;  // apart, since most patterns have no variable
};

/// A pattern as a part of another one.
struct SubPattern {
  ExpPtr exp;
  bool optional = false;

  SubPattern() = default;
  explicit SubPattern(std::unique_ptr<LExp> compiled);
};
inline bool is_pattern(const LExp& exp) {
  return exp.out_type == type_id_of<TreeMatch>();
}
/// The match that an expression makes on a node. Null for anything else that it may give: one that
/// already stands in a tree of matches cannot stand in another.
TreeMatch* new_match(const ExpPtr& exp, RSTree* tree);

/// `VAR`, in the scope where the rule's other expressions look for it.
Ref<Var> node_variable(World& world, const char* name);

}  // namespace torvane
