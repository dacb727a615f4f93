// Where a node leads: to a relative with a relation, to its antecedent, to the first node of a
// kind; and the two edits that keep the words in order.
#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

#include "deps/dep_forms.h"
#include "deps/node_extent.h"
#include "deps/offers.h"
#include "deps/props.h"
#include "deps/tree_walk.h"
#include "lexp/tuples.h"

namespace torvane {

namespace {

// A node reached by the name of a relation: `(FORM REL [sub])`.
template <class D>
class ByRelation : public DepTreeComponent<D, DepTree> {
 public:
  void init(World& world, IRSlist* args) override {
    if (const char* rel = args->get_str_val()) {
      rel_ = rel;
      known_ = true;
    }
    LAdaptor::init(world, args);
  }

 protected:
  const char* rel() const { return known_ ? rel_.c_str() : nullptr; }

 private:
  std::string rel_;
  bool known_ = false;
};

struct GetChild : ByRelation<GetChild> {
  static constexpr const char* kName = "get-child";
  static constexpr const char* kUsage = "`(get-child REL [sub])` the first child with the relation";
  DepTree* component(DepTree& node) const { return node.child_by_rel(rel()); }
};

struct GetParent : ByRelation<GetParent> {
  static constexpr const char* kName = "get-parent";
  static constexpr const char* kUsage =
      "`(get-parent REL [sub])` the parent, if the node has the relation to it";
  DepTree* component(DepTree& node) const {
    bool is_so = rel() && node._rel && std::string_view(node._rel) == rel();
    return is_so ? node.parent() : nullptr;
  }
};

// A node found or changed by an expression on nodes: `(FORM exp [sub])`.
template <class D>
class ByExpression : public DepTreeComponent<D, DepTree> {
 public:
  void init(World& world, IRSlist* args) override {
    exp_ = LExp::take_exp(world, *args);
    LAdaptor::init(world, args);
  }

 protected:
  bool holds_on(DepTree& node) const { return passes(exp_, Value::of(&node), this->in_type); }
  Value value_on(DepTree& node) const { return exp_.eval(Value::of(&node), this->in_type); }

 private:
  ExpPtr exp_;
};

struct GetAntecedent : ByExpression<GetAntecedent> {
  static constexpr const char* kName = "get-antecedent";
  static constexpr const char* kUsage =
      "`(get-antecedent cond [sub])` the first node that passes on the chain of antecedents";
  DepTree* component(DepTree& node) const {
    std::unordered_set<const DepTree*> seen{&node};
    for (DepTree* ante = ante_of(node); ante; ante = ante_of(*ante)) {
      if (!seen.insert(ante).second) return nullptr;
      if (holds_on(*ante)) return ante;
    }
    return nullptr;
  }
};

struct FindFirstNode : ByExpression<FindFirstNode> {
  static constexpr const char* kName = "find-first-node";
  static constexpr const char* kUsage =
      "`(find-first-node cond [sub])` the first node of the whole tree, from the top, that passes";
  DepTree* component(DepTree& node) const {
    // Kept: find-first-from-the-root
    for (PreIterator walk(node.root()); RSTree* tree = walk.next();) {
      DepTree* found = dep_tree_of(tree);
      if (found && holds_on(*found)) return found;
    }
    return nullptr;
  }
};

struct ExpandNode : ByExpression<ExpandNode> {
  static constexpr const char* kName = "expand-node";
  static constexpr const char* kUsage =
      "`(expand-node cond [sub])` widens the node over the subtrees of the children that pass, and "
      "detaches the children inside; the node";
  DepTree* component(DepTree& node) const {
    for (RSlistIterator walk(&node); RSTree* tree = walk.next();) {
      DepTree* child = dep_tree_of(tree);
      if (!child || !holds_on(*child)) continue;
      Extent extent = extent_of(*child);
      if (!extent.empty()) widen(node, extent);
    }
    for (RSlistIterator walk(&node); RSTree* tree = walk.next();) {
      DepTree* child = dep_tree_of(tree);
      // Kept: expand-node-drops-children
      if (child && extent_of(*child).lies_in(node._low, node._high)) walk.remove();
    }
    return &node;
  }

 private:
  static void widen(DepTree& node, const Extent& extent) {
    int low = node._low > 0 ? std::min<int>(node._low, extent.low) : extent.low;
    node._low = static_cast<std::int16_t>(low);
    node._high = static_cast<std::int16_t>(std::max<int>(node._high, extent.high));
  }
};

struct ReattachNode : ByExpression<ReattachNode> {
  static constexpr const char* kName = "reattach-node";
  static constexpr const char* kUsage =
      "`(reattach-node exp [sub])` puts the node, in the order of the words, under the one that "
      "`exp` gives; refused if that one lies below it";
  DepTree* component(DepTree& node) const {
    DepTree* target = dep_tree_of(value_on(node));
    if (!target) return &node;
    // Trees do not share nodes, since each dies with its own Deps.
    bool possible = target->_deps == node._deps && target != &node && !node.is_ancestor_of(target);
    if (!possible) return nullptr;
    target->add_child(&node);
    return &node;
  }
};

// `(compatible-modifier LIST NODE TEST)`: the first candidate that passes.
class CompatibleModifier : public Form<CompatibleModifier, TernaryFunc> {
 public:
  static constexpr const char* kName = "compatible-modifier";
  static constexpr const char* kUsage =
      "`(compatible-modifier list node test)` the first node of the list that passes the test";
  CompatibleModifier() { in_type = out_type = type_id_of<DepTree>(); }

  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    Value list = a.eval(input, type);
    auto* candidates = list.as<ValueList>();
    if (!candidates || !dep_tree_of(b.eval(input, type))) return Value();
    // A test may evaluate the same list again, which empties it.
    std::vector<HeldValue> values(candidates->values.begin(), candidates->values.end());
    for (const HeldValue& value : values) {
      DepTree* node = dep_tree_of(value.get());
      if (node && passes(c, Value::of(node), in_type)) return Value::of(node);
    }
    return Value();
  }
};

constexpr Prototype kDepWalkForms[] = {
    form<GetChild>(),      form<GetParent>(),  form<GetAntecedent>(), form<CompatibleModifier>(),
    form<FindFirstNode>(), form<ExpandNode>(), form<ReattachNode>(),
};

}  // namespace

constinit const Offer offers::dep_walk_forms{kDepWalkForms};

}  // namespace torvane
