// Conditions on a node of a tree: each gives the node that it found, or null.
#pragma once

#include "deps/rs_tree.h"
#include "lexp/form.h"

namespace torvane {

/// Base of all forms that test a node.
class RTCond : public LExp {
 public:
  RTCond() { in_type = out_type = type_id_of<RSTree>(); }
  Value eval(Value input, int type) override {
    if (!accepts(type)) return Value();
    auto* tree = input.as<RSTree>();
    return tree ? test(tree) : Value();
  }

 protected:
  virtual Value test(RSTree* tree) = 0;
  Value value_on(const ExpPtr& exp, RSTree* tree) const {
    return exp.eval(Value::of(tree), in_type);
  }
  /// A missing condition passes.
  bool holds(const ExpPtr& cond, RSTree* tree) const {
    return passes(cond, Value::of(tree), in_type);
  }
};

}  // namespace torvane
