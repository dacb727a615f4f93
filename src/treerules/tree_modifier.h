// A list of tree rules, which a start-up file defines under a name.
#pragma once

#include <memory>
#include <vector>

#include "deps/deps_modifier.h"
#include "treerules/tree_rules.h"

namespace torvane {

class World;

class TreeModifier : public DepsModifier {
 public:
  /// Each rule once, in order, on the tree as the earlier ones left it. Rules that an action adds
  /// run from the next tree on.
  void modify(RSTree* root) override;
  void add(std::unique_ptr<TreeRule> rule) { rules_.push_back(std::move(rule)); }
  void clear();
  bool empty() const { return rules_.empty(); }

 private:
  std::vector<std::unique_ptr<TreeRule>> rules_;
  std::vector<std::unique_ptr<TreeRule>> cleared_;  // while they may be running
  int running_ = 0;
};

namespace tags {
inline constexpr TypeTag tree_modifier{"TreeModifier*", &deps_modifier};
}
template <>
struct ValueTraits<TreeModifier> {
  using Base = DepsModifier;
  static const TypeTag& tag() { return tags::tree_modifier; }
};

/// Adds the rules of a list of forms; what is no rule is passed over.
void parse_rules(World& world, IRSlist* forms, TreeModifier& rules);
void clear_rules(TreeModifier& rules);
/// Does nothing for a null list or tree.
// Part of the interface; nothing in the engine calls it yet.
void apply_rules(TreeModifier* rules, RSTree* tree);

}  // namespace torvane
