#include "treerules/tree_edits.h"

#include <vector>

#include "deps/deps.h"
#include "lexp/form.h"
#include "support/messages.h"
#include "treerules/offers.h"
#include "treerules/tree_match.h"
#include "treerules/tree_rules.h"

namespace torvane {

void raise_root(RSTree* node) {
  DepTree* dep = dep_tree_of(node);
  if (!dep || !dep->_deps->_root) return;
  Deps& deps = *dep->_deps;
  while (DepTree* above = deps._root->parent()) deps.set_root(above);
}

namespace {

bool is_match_root(const TreeMatch* match, const RSTree* node) {
  return match && match->node == node;
}

/// The rule stands on the match's node: it stays in its place.
bool may_move(const TreeMatch* match, const RSTree* node, const char* message) {
  if (!is_match_root(match, node) || !node->_parent) return true;
  messages() << message;
  return false;
}
constexpr const char* kNoInsert = "Cannot insert the root node of a tree match\n";
constexpr const char* kNoAppend = "Cannot append the root node of a tree match\n";
constexpr const char* kNoInherit = "The root node of a tree match cannot inherit children\n";

/// A node goes neither below itself nor into another sentence's tree, which may die before its own.
bool can_stand_below(RSTree* node, RSTree* parent) {
  if (!parent || node == parent) return false;
  if (!node->empty() && node->is_ancestor_of(parent)) return false;
  const DepTree* below = dep_tree_of(node);
  const DepTree* above = dep_tree_of(parent);
  return below && above ? below->_deps == above->_deps : below == above;
}

RSTree* move_beside(TreeMatch* match, RSTree* node, RSTree* anchor, bool after) {
  if (!node || !anchor || !may_move(match, node, kNoInsert)) return nullptr;
  if (!can_stand_below(node, anchor->_parent)) return nullptr;
  RSTree* parent = after ? anchor->insert_after(node) : anchor->insert_before(node);
  raise_root(node);
  return parent;
}

Value insert_before(TreeMatch* match, RSTree* node, RSTree* anchor) {
  return Value::of(move_beside(match, node, anchor, false));
}

Value insert_after(TreeMatch* match, RSTree* node, RSTree* anchor) {
  return Value::of(move_beside(match, node, anchor, true));
}

bool detach_for(TreeMatch* match, RSTree* node, RSTree* parent, const char* message) {
  if (!node || !parent || !may_move(match, node, message)) return false;
  if (!can_stand_below(node, parent)) return false;
  if (node->_parent) node->detach();
  return true;
}

Value insert_node(TreeMatch* match, RSTree* node, RSTree* parent) {
  if (!detach_for(match, node, parent, kNoInsert)) return Value();
  parent->insert(node);
  raise_root(node);
  return Value::of(parent);
}

Value append_node(TreeMatch* match, RSTree* node, RSTree* parent) {
  // Kept: append-node-gives-null
  if (detach_for(match, node, parent, kNoAppend)) {
    parent->append(node);
    raise_root(node);
  }
  return Value();
}

Value detach_node(World& world, TreeMatch* match, RSTree* node) {
  if (!node || !node->_parent) return Value::of(node);
  if (is_match_root(match, node)) remove_from_walk(world, node);
  if (node->_parent) node->detach();
  return Value::of(node);
}

std::vector<RSTree*> take_children(RSTree* parent) {
  std::vector<RSTree*> children;
  while (RSTree* child = parent->pop_child()) children.push_back(child);
  return children;
}

Value adopt_following(TreeMatch*, RSTree* node) {
  if (!node || !node->_parent) return Value::of(node);
  RSTree* parent = node->_parent;
  bool follows = false;
  for (RSTree* child : take_children(parent)) {
    RSTree* place = follows && child != node ? node : parent;
    place->append(child);
    follows = follows || child == node;
  }
  return Value::of(node);
}

Value inherit_children(TreeMatch* match, RSTree* node) {
  if (!node) return Value();
  if (is_match_root(match, node)) {
    messages() << kNoInherit;
    return Value();
  }
  if (RSTree* parent = node->_parent) {
    for (RSTree* child : take_children(parent))
      if (child != node) node->append(child);
    parent->append(node);
  }
  return Value::of(node);
}

constexpr Prototype kTreeEditsForms[] = {
    function<inherit_children>(
        "inherit-children", nullptr,
        "(inherit-children <node>) make the siblings of <node> its children"),
    function<adopt_following>(
        "adopt-following", nullptr,
        "(adopt-following <node>) make the siblings after node the children \n"
        "of <node>. For example:\n"
        "(A (B)          (adopt-following C)  (A (B)     \n"
        "   (C (D))\t\t==>\t        (C (D)\n"
        "   (E)\t\t\t\t           (E)   \n"
        "   (F (G)))\t\t\t           (F (G))))\n"),
    function<insert_before>("insert-before", nullptr,
                            "(insert-before <node> <anchor>) insert <node> before <anchor>:\n"
                            "(A (B)          (insert-before C G)  (A (B)     \n"
                            "   (C (D))\t\t==>\t        (E)\n"
                            "   (E)\t\t\t\t        (F (C (D))\n"
                            "   (F (G)))\t\t\t           (G)))\n"),
    // Kept: insert-after-doc
    function<insert_after>("insert-after", nullptr,
                           "(insert-after <node> <anchor>) insert <node> after <anchor>:\n"
                           "(A (B)          (insert-before C G)  (A (B)     \n"
                           "   (C (D))\t\t==>\t        (E)\n"
                           "   (E)\t\t\t\t        (F (G)\n"
                           "   (F (G)))\t\t\t           (C (D))))\n"),
    function<insert_node>("insert-node", nullptr,
                          "(insert-node <node> <parent>) insert <node> as the first \n"
                          "child of <parent>. For example:\n"
                          "(A (B)          (insert-node A F)  (A (F (G))\n"
                          "   (C (D))\t\t==>\t      (B)\n"
                          "   (E)\t\t\t\t      (C (D))\n"
                          "   (F (G)))\t\t\t      (E))\n"),
    function<append_node>("append-node", nullptr,
                          "(append-node <node> <parent>) append <node> as the last \n"
                          "child of <parent>. For example:\n"
                          "(A (B)          (append-node C G)  (A (B)\n"
                          "   (C (D))\t\t==>\t      (C (D)\n"
                          "   (E)\t\t\t\t         (G))\n"
                          "   (F (G)))\t\t\t      (E)\n"
                          "                                      (F))\n"),
    // Kept: detatch-node
    function<detach_node>("detach-node", nullptr,
                          "(detatch-node <node>) detach the subtree rooted at <node> \n"
                          "from its parent. The detached subtree is returned. For example:\n"
                          "(A (B)          (detach-node C)  (A (B)\n"
                          "   (C (D))\t\t==>\t    (E)\n"
                          "   (E)\t\t\t\t    (F (G)))\n"
                          "   (F (G)))\n"),
};

}  // namespace

constinit const Offer offers::tree_edits{kTreeEditsForms};

}  // namespace torvane
