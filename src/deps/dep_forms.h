// Forms on the nodes of a dependency tree: what a node has, where it leads, and how it is edited
// and printed.
#pragma once

#include "deps/deps.h"
#include "lexp/form.h"

namespace torvane {

/// Takes a node and gives one component of it:
///   R component(DepTree& node) const
/// with R an integer, a pointer, or a Value of the declared type Out.
template <class D, class Out>
class DepTreeComponent : public Form<D, LAdaptor> {
 public:
  DepTreeComponent() {
    this->in_type = type_id_of<DepTree>();
    this->mid_type = type_id_of<Out>();
  }
  Value convert(Value input) override {
    DepTree* node = dep_tree_of(input);
    if (!node) return Value();
    return form_detail::to_value(static_cast<const D*>(this)->component(*node));
  }
};

}  // namespace torvane
