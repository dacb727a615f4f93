// Forms that lead an action from its match to a node.
#include <cstdlib>

#include "lexp/form.h"
#include "support/messages.h"
#include "support/text.h"
#include "treerules/child_walk.h"
#include "treerules/tree_edits.h"
#include "treerules/tree_patterns.h"

namespace torvane {
namespace {

/// Child numbers that lead down a match, from 1.
class MatchPath {
 public:
  void take(IRSlist* args) {
    while (const char* text = args->nth_str_val(0)) {
      long n = 0;
      scan_long(text, n);
      numbers_.append(n);
      args->pop_front();
    }
  }
  /// Null, reported, if the path leads nowhere.
  TreeMatch* follow(TreeMatch* match) const {
    for (long n : numbers_) {
      match = match->child(n);
      if (match) continue;
      messages() << "(match ...) resulted in nil\n";
      return nullptr;
    }
    return match;
  }

 private:
  Array<long> numbers_;
};

/// `(match N ... N)`; what follows the numbers is evaluated on the node.
class MatchNode : public Form<MatchNode, CompExp> {
 public:
  static constexpr const char* kName = "match";
  MatchNode() {
    in_type = type_id_of<TreeMatch>();
    out_type = type_id_of<RSTree>();
  }
  void init(World& world, IRSlist* args) override {
    path_.take(args);
    CompExp::init(world, args);
    if (!exps.empty()) out_type = exps.back()->out_type;
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    auto* match = input.as<TreeMatch>();
    if (match) match = path_.follow(match);
    if (!match) return Value();
    return CompExp::eval(Value::of(match->node), type_id_of<RSTree>());
  }

 private:
  MatchPath path_;
};

/// `(forall-subtree-matches VAR N ... N EXPR)`
class ForAllMatches : public Form<ForAllMatches> {
 public:
  static constexpr const char* kName = "forall-subtree-matches";
  ForAllMatches() {
    in_type = type_id_of<TreeMatch>();
    out_type = type_id_of<int>();
  }
  void init(World& world, IRSlist* args) override {
    if (const char* name = args->get_str_val()) var_ = node_variable(world, name);
    path_.take(args);
    body_ = get_exp(world, args->nth(0));
  }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    auto* top = input.as<TreeMatch>();
    if (top) top = path_.follow(top);
    if (!top) return Value();
    bool all = true;
    Round round;
    top->for_each([&](const TreeMatch& match) {
      if (!match.node) return;
      if (var_) var_->assign(Value::of(match.node), type_id_of<RSTree>());
      if (!body_.eval(Value::integer(1), kAnyType)) all = false;
      round.next();
    });
    return Value::truth(all);
  }

 private:
  MatchPath path_;
  Ref<Var> var_;
  ExpPtr body_;
};

/// A node that an expression gives; without one, the input.
class NodeArg : public LExp {
 public:
  NodeArg() { out_type = type_id_of<RSTree>(); }
  void init(World& world, IRSlist* args) override {
    node_ = get_exp(world, args->nth(0));
    args->pop_front();
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

 protected:
  RSTree* from(RSTree* start) override { return start->_parent; }
};

class TreeRoot : public Form<TreeRoot, NodeArg> {
 public:
  static constexpr const char* kName = "tree-root";

 protected:
  RSTree* from(RSTree* start) override { return start->root(); }
};

/// `(get-node X COND ... COND)`: each condition leads to a child.
class RSTreeGetNode : public Form<RSTreeGetNode, NodeArg> {
 public:
  static constexpr const char* kName = "get-node";
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

}  // namespace

void register_node_selectors(World& world) {
  register_form<MatchNode>(world);
  register_form<ForAllMatches>(world);
  register_form<TreeRoot>(world);
  register_form<RSTreeParent>(world);
  register_form<RSTreeGetNode>(world);
}

}  // namespace torvane
