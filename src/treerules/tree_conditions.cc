#include "treerules/tree_conditions.h"

#include "deps/tree_walk.h"
#include "treerules/child_walk.h"
#include "treerules/tree_match.h"

namespace torvane {
namespace {

class ExistChild : public Form<ExistChild, RTCond> {
 public:
  static constexpr const char* kName = "exist-child";
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

 protected:
  Value test(RSTree* tree) override { return search(tree, true); }
};

/// Acts on the first match of a pattern in the subtree.
class ExistMatch : public Form<ExistMatch, ExistChild> {
 public:
  static constexpr const char* kName = "exist-match";
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

 protected:
  Value test(RSTree* tree) override {
    bool is_first = !tree->_parent || tree->_parent->first_child() == tree;
    return is_first ? Value::of(tree) : Value();
  }
};

class LastChild : public Form<LastChild, RTCond> {
 public:
  static constexpr const char* kName = "last-child";

 protected:
  Value test(RSTree* tree) override {
    bool is_last = !tree->_parent || tree->_parent->last_child() == tree;
    return is_last ? Value::of(tree) : Value();
  }
};

class AncestorOf : public Form<AncestorOf, BinaryFunc> {
 public:
  static constexpr const char* kName = "ancestor-of";
  AncestorOf() { out_type = type_id_of<int>(); }

  Value eval(Value input, int type) override {
    auto* upper = a.eval(input, type).as<RSTree>();
    auto* lower = b.eval(input, type).as<RSTree>();
    return Value::truth(upper && upper->is_ancestor_of(lower));
  }
};

}  // namespace

void register_tree_conditions(World& world) {
  register_form<ExistChild>(world);
  register_form<AllChildren>(world);
  register_form<NumChildren>(world);
  register_form<SelfOrExistAncestor>(world);
  register_form<ExistDecendent>(world);
  register_form<ExistCCmd>(world);
  register_form<ExistCCmdOrAncestor>(world);
  register_form<ExistMatch>(world);
  register_form<FirstChild>(world);
  register_form<LastChild>(world);
  register_form<AncestorOf>(world);
}

}  // namespace torvane
