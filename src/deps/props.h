// Named properties of tree nodes. What a property's values are, its type says; which properties
// there are, a start-up file decides. A name that nobody defined is never stored and never found.
#pragma once

#include <ostream>

#include "shell/irslist.h"
#include "support/value.h"

namespace torvane {

class Deps;

/// What the values of a property are.
class ValType {
 public:
  /// The type of a value in the configuration language.
  virtual const char* name() const = 0;
  virtual void print(std::ostream& out, Value value) const = 0;
  /// A copy that lives as long as the tree.
  virtual Value copy(Value value, Deps& owner) const = 0;
  /// A value from what follows the property's name; in the tree's storage.
  virtual Value parse(IRSlist* form, Deps& owner) const = 0;
  /// <0, 0, >0.
  virtual int compare(Value a, Value b) const = 0;
  virtual ~ValType() = default;
};

namespace tags {
inline constexpr TypeTag val_type{"ValType*"};
}
template <>
struct ValueTraits<ValType> : TagOf<ValType, tags::val_type> {};

/// A property on a node.
struct DepProp {
  int id;
  Value value;
  float weight;
};

/// Defines a property and gives its id, from 1 on; one that is there already is reported and stays.
int define_property(const char* name, const ValType* type);
/// 0 for a name that is not defined.
int property_id(const char* name);
/// Null for an id that is none.
const char* property_name(int id);
const ValType* property_type(int id);

}  // namespace torvane
