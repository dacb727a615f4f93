// The form that names the node of the grammar whose words a vector describes.
#include "lexp/form.h"
#include "parser/forms/offers.h"
#include "parser/grammar/grammar.h"

namespace torvane {
namespace {

/// The name of the node that a vector belongs to.
struct NodeName : Form<NodeName> {
  static constexpr const char* kName = "node-name";
  static constexpr const char* kUsage = "`(node-name)` the node that a vector's words belong to";
  NodeName() {
    in_type = type_id_of<AttVec>();
    out_type = type_id_of<const char*>();
  }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    const AttVec* vec = input.as<AttVec>();
    if (!vec) return Value();
    return Value::made_text(node_name_of(*vec));
  }
};

constexpr Prototype kNodeNameForms[] = {
    form<NodeName>(),
};

}  // namespace

constinit const Offer offers::node_name{kNodeNameForms};

}  // namespace torvane
