#include "treerules/tree_modifier.h"

#include "deps/deps.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/depth.h"
#include "treerules/offers.h"

namespace torvane {
namespace {

thread_local DepthLimit nested_rules{"The tree rules are run by tree rules too deeply", 50};

/// The tree that rules are run over. It stays alive meanwhile, whatever an action does; an edit may
/// give it a new root.
class TreeInHand {
 public:
  explicit TreeInHand(RSTree* root) : root_(root), node_(dep_tree_of(root)) {
    // One that nobody counts is its owner's business.
    if (node_ && node_->_deps->refcount > 0) deps_ = Ref<Deps>(node_->_deps);
    whole_ = !root->_parent;
  }
  /// Null once the tree was given up.
  RSTree* root() {
    if (node_ && !node_->_deps) return nullptr;
    if (whole_) root_ = root_->root();
    return root_;
  }

 private:
  RSTree* root_;
  DepTree* node_;
  Ref<Deps> deps_;
  bool whole_;
};

}  // namespace

void TreeModifier::modify(RSTree* root) {
  DepthGuard guard(nested_rules);
  if (!guard || !root) return;
  TreeInHand tree(root);
  ++running_;
  std::size_t count = rules_.size();
  std::size_t gone = cleared_.size();
  for (std::size_t i = 0; i < count && cleared_.size() == gone; ++i) {
    RSTree* now = tree.root();
    if (!now) break;
    rules_[i]->apply(now);
  }
  if (--running_ == 0) cleared_.clear();
}

void TreeModifier::clear() {
  for (auto& rule : rules_) cleared_.push_back(std::move(rule));
  rules_.clear();
  if (running_ == 0) cleared_.clear();
}

void parse_rules(World& world, IRSlist* forms, TreeModifier& rules) {
  for (IRSlist* form : forms->items)
    if (auto rule = make_tree_rule(world, form)) rules.add(std::move(rule));
}

void clear_rules(TreeModifier& rules) {
  rules.clear();
}

void apply_rules(TreeModifier* rules, RSTree* tree) {
  if (rules) rules->modify(tree);
}

namespace {

TreeModifier* find_rules(World& world, const char* name) {
  return world.objects.find_as<TreeModifier>(name, "TreeModifier", false);
}

Value def_tree_rules(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  TreeModifier* rules = find_rules(world, name);
  if (!rules) {
    rules = world.own_object(name, std::make_unique<TreeModifier>(), "TreeModifier");
    if (!rules) return Value();
  }
  parse_rules(world, form, *rules);
  return Value();
}

Value clear_tree_rules(World& world, IRSlist* form) {
  if (TreeModifier* rules = find_rules(world, form->get_str_val())) clear_rules(*rules);
  return Value();
}

constexpr Command kTreeModifierCommands[] = {
    {"def-tree-rules", def_tree_rules, "(def-tree-rules <name> <rule> ... <rule>)"},
    {"clear-tree-rules", clear_tree_rules, "(clear-tree-rules <name>)"},
};

}  // namespace

constinit const Offer offers::tree_modifier{kTreeModifierCommands};

}  // namespace torvane
