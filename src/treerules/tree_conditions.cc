#include "treerules/tree_conditions.h"

#include "deps/deps.h"
#include "deps/tree_walk.h"
#include "treerules/child_walk.h"
#include "treerules/offers.h"
#include "treerules/tree_match.h"

namespace torvane {
namespace {

class ExistChild : public Form<ExistChild, RTCond> {
 public:
  static constexpr const char* kName = "exist-child";
  static constexpr const char* kUsage =
      "`(exist-child [exp])` the first child on which the expression holds";
  void init(World& world, IRSlist* args) override { cond = get_exp(world, args->nth(0)); }

  ExpPtr cond;

 protected:
  Value test(RSTree* tree) override {
    for (ChildWalk walk(tree); RSTree* child = walk.child(); walk.next())
      if (holds(cond, child)) return Value::of(child);
    return Value();
  }
};

class AllChildren : public Form<AllChildren, ExistChild> {
 public:
  static constexpr const char* kName = "all-children";
  static constexpr const char* kUsage =
      "`(all-children [exp])` the node if the expression holds on all its children";

 protected:
  Value test(RSTree* tree) override {
    bool all = true;
    for (ChildWalk walk(tree); RSTree* child = walk.child(); walk.next())
      if (!holds(cond, child)) all = false;
    return all ? Value::of(tree) : Value();
  }
};

class NumChildren : public Form<NumChildren, ExistChild> {
 public:
  static constexpr const char* kName = "num-children";
  static constexpr const char* kUsage =
      "`(num-children [exp])` how many children the node has, or how many on which the expression "
      "holds";
  NumChildren() { out_type = type_id_of<int>(); }

 protected:
  Value test(RSTree* tree) override {
    int n = 0;
    for (ChildWalk walk(tree); RSTree* child = walk.child(); walk.next()) n += holds(cond, child);
    return Value::integer(n);
  }
};

class SelfOrExistAncestor : public Form<SelfOrExistAncestor, ExistChild> {
 public:
  static constexpr const char* kName = "self-or-exist-ancestor";
  static constexpr const char* kUsage =
      "`(self-or-exist-ancestor exp)` the first node, from the node upwards, on which the "
      "expression holds";

 protected:
  Value test(RSTree* tree) override {
    Patience patience;
    for (; tree && patience.lasts(); tree = tree->_parent)
      if (holds(cond, tree)) return Value::of(tree);
    return Value();
  }
};

/// With a second expression that bounds the search.
class BlockedCond : public ExistChild {
 public:
  void init(World& world, IRSlist* args) override {
    ExistChild::init(world, args);
    block = get_exp(world, args->nth(1));
  }

  ExpPtr block;

 protected:
  bool blocked_by(RSTree* tree) const { return block && value_on(block, tree); }
};

class ExistDecendent : public Form<ExistDecendent, BlockedCond> {
 public:
  // Kept: exist-decendent
  static constexpr const char* kName = "exist-decendent";
  static constexpr const char* kUsage =
      "`(exist-decendent exp [block])` the first node of the subtree, the node itself included, on "
      "which the expression holds; what stands below a node that passes `block` is passed over";

 protected:
  Value test(RSTree* tree) override {
    if (!cond) return Value();
    // Kept: decendent-may-be-itself
    PreIterator walk(tree);
    while (RSTree* node = walk.next()) {
      if (node != tree && blocked_by(node)) {
        walk.skip();
      } else if (holds(cond, node)) {
        return Value::of(node);
      }
    }
    return Value();
  }
};

class ExistCCmd : public Form<ExistCCmd, BlockedCond> {
 public:
  static constexpr const char* kName = "exist-c-commander";
  static constexpr const char* kUsage =
      "`(exist-c-commander exp [block])` the first node among the children of the node and of what "
      "stands above it; a node above that passes `block` ends the search";

 protected:
  Value test(RSTree* tree) override { return search(tree, false); }
  Value search(RSTree* tree, bool ancestors_too) {
    Patience patience;
    for (RSTree* a = tree; a && patience.lasts(); a = a->_parent) {
      for (ChildWalk walk(a); RSTree* child = walk.child(); walk.next()) {
        if (child == tree) break;
        if (holds(cond, child)) return Value::of(child);
      }
      if (ancestors_too && a != tree && holds(cond, a)) return Value::of(a);
      if (a->_parent && blocked_by(a->_parent)) break;
    }
    return Value();
  }
};

class ExistCCmdOrAncestor : public Form<ExistCCmdOrAncestor, ExistCCmd> {
 public:
  static constexpr const char* kName = "exist-c-commander-or-ancestor";
  static constexpr const char* kUsage =
      "`(exist-c-commander-or-ancestor exp [block])` the same, the nodes above themselves included";

 protected:
  Value test(RSTree* tree) override { return search(tree, true); }
};

/// Acts on the first match of a pattern in the subtree.
class ExistMatch : public Form<ExistMatch, ExistChild> {
 public:
  static constexpr const char* kName = "exist-match";
  static constexpr const char* kUsage =
      "`(exist-match pattern [:action exp])` the node, if the pattern matches in its subtree; the "
      "action runs on the first match";
  void init(World& world, IRSlist* args) override {
    action = get_exp(world, args->take_keyword_node(":action").get());
    ExistChild::init(world, args);
  }

  ExpPtr action;

 protected:
  Value test(RSTree* tree) override {
    for (PostIterator walk(tree); RSTree* node = walk.next();) {
      Value match = value_on(cond, node);
      if (!match.as<TreeMatch>()) continue;
      // Kept: exist-match-gives-the-start
      action.eval(match, type_id_of<TreeMatch>());
      return Value::of(tree);
    }
    return Value();
  }
};

class FirstChild : public Form<FirstChild, RTCond> {
 public:
  static constexpr const char* kName = "first-child";
  static constexpr const char* kUsage =
      "`(first-child)` the node if it is the first child, or a root";

 protected:
  Value test(RSTree* tree) override {
    bool is_first = !tree->_parent || tree->_parent->first_child() == tree;
    return is_first ? Value::of(tree) : Value();
  }
};

class LastChild : public Form<LastChild, RTCond> {
 public:
  static constexpr const char* kName = "last-child";
  static constexpr const char* kUsage =
      "`(last-child)` the node if it is the last child, or a root";

 protected:
  Value test(RSTree* tree) override {
    bool is_last = !tree->_parent || tree->_parent->last_child() == tree;
    return is_last ? Value::of(tree) : Value();
  }
};

class AncestorOf : public Form<AncestorOf, BinaryFunc> {
 public:
  static constexpr const char* kName = "ancestor-of";
  static constexpr const char* kUsage =
      "`(ancestor-of a b)` 1 if the node of `a` stands above that of `b`";
  AncestorOf() { out_type = type_id_of<int>(); }

  Value eval(Value input, int type) override {
    auto* upper = a.eval(input, type).as<RSTree>();
    auto* lower = b.eval(input, type).as<RSTree>();
    return Value::truth(upper && upper->is_ancestor_of(lower));
  }
};

bool pre_head(TreeMatch*, RSTree* tree) {
  const DepTree* node = dep_tree_of(tree);
  const DepTree* parent = node ? node->parent() : nullptr;
  return parent && node->order() < parent->order();
}

constexpr Prototype kTreeConditionsForms[] = {
    form<ExistChild>(),
    form<AllChildren>(),
    form<NumChildren>(),
    form<SelfOrExistAncestor>(),
    form<ExistDecendent>(),
    form<ExistCCmd>(),
    form<ExistCCmdOrAncestor>(),
    form<ExistMatch>(),
    form<FirstChild>(),
    form<LastChild>(),
    form<AncestorOf>(),
    function<pre_head>("pre-head",
                       "`(pre-head node)` 1 if the node stands before its parent in the sentence"),
};

}  // namespace

constinit const Offer offers::tree_conditions{kTreeConditionsForms};

}  // namespace torvane
