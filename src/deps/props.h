// Named properties of tree nodes. What a property's values are, its type says; which properties
// there are, a start-up file decides. A name that nobody defined is never stored and never found.
#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "shell/irslist.h"
#include "support/name_table.h"
#include "support/value.h"

namespace torvane {

class Deps;
class DepTree;

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

/// The properties of a world.
class Properties {
 public:
  /// Defines a property and gives its id, from 1 on; one that is there already is reported and
  /// stays.
  int define(const char* name, const ValType* type);
  /// 0 for a name that is not defined.
  int id(const char* name) const;
  /// Null for an id that is none.
  const char* name(int id) const { return at(id).name; }
  const ValType* type(int id) const { return at(id).type; }

 private:
  struct Property {
    const char* name;
    const ValType* type;
  };
  const Property& at(int id) const;

  NameTable<int> ids_{101};
  std::vector<Property> properties_{{nullptr, nullptr}};  // by id; 0 is none
};

/// A property by its name, which may be defined later.
class PropName {
 public:
  PropName() = default;
  PropName(const Properties& properties, std::string name)
      : properties_(&properties), name_(std::move(name)) {}
  int id() const { return id_ || !properties_ ? id_ : id_ = properties_->id(name_.c_str()); }

 private:
  const Properties* properties_ = nullptr;
  std::string name_;
  mutable int id_ = 0;
};

/// The first entry of a property on a node, or null.
DepProp* find_prop(DepTree& node, int id);
/// The node that the property `ante` of a node names, or null.
DepTree* ante_of(DepTree& node);

}  // namespace torvane
