// Forms that lead from a node to another: `parent`, `tree-root`, `get-node`.
#include "deps/rs_tree.h"
#include "lexp/form.h"
#include "treerules/child_walk.h"
#include "treerules/offers.h"

namespace torvane {
namespace {

/// A node that an expression gives; without one, the input.
class NodeArg : public LExp {
 public:
  NodeArg() { out_type = type_id_of<RSTree>(); }
  void init(World& world, IRSlist* args) override {
    node_ = take_exp(world, *args);
    if (!node_) in_type = type_id_of<RSTree>();
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    RSTree* start = (node_ ? node_.eval(input, type) : input).as<RSTree>();
    return start ? Value::of(from(start)) : Value();
  }

 protected:
  virtual RSTree* from(RSTree* start) = 0;

 private:
  ExpPtr node_;
};

class RSTreeParent : public Form<RSTreeParent, NodeArg> {
 public:
  static constexpr const char* kName = "parent";
  static constexpr const char* kUsage = "`(parent [exp])` the parent of the node";

 protected:
  RSTree* from(RSTree* start) override { return start->_parent; }
};

class TreeRoot : public Form<TreeRoot, NodeArg> {
 public:
  static constexpr const char* kName = "tree-root";
  static constexpr const char* kUsage =
      "`(tree-root [exp])` the root of the tree in which the node stands";

 protected:
  RSTree* from(RSTree* start) override { return start->root(); }
};

/// `(get-node X COND ... COND)`: each condition leads to a child.
class RSTreeGetNode : public Form<RSTreeGetNode, NodeArg> {
 public:
  static constexpr const char* kName = "get-node";
  static constexpr const char* kUsage =
      "`(get-node node cond ... cond)` from the node down, each time to the first child that "
      "passes the condition";
  void init(World& world, IRSlist* args) override {
    NodeArg::init(world, args);
    for (IRSlist* item : args->items)
      if (auto exp = get_exp(world, item)) conds_.append(std::move(exp));
  }

 protected:
  RSTree* from(RSTree* start) override {
    RSTree* node = start;
    for (const ExpPtr& cond : conds_) {
      ChildWalk walk(node);
      while (walk.child() && !passes(cond, Value::of(walk.child()), type_id_of<RSTree>()))
        walk.next();
      node = walk.child();
      if (!node) break;
    }
    return node;
  }

 private:
  Array<ExpPtr> conds_;
};

constexpr Prototype kNodeSelectorsForms[] = {
    form<TreeRoot>(),
    form<RSTreeParent>(),
    form<RSTreeGetNode>(),
};

}  // namespace

constinit const Offer offers::node_selectors{kNodeSelectorsForms};

}  // namespace torvane
