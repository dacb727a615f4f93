#include "deps/props.h"

#include <vector>

#include "deps/dep_tree.h"
#include "support/name_table.h"

namespace torvane {
namespace {

struct Property {
  const char* name;
  const ValType* type;
};

struct Table {
  NameTable<int> ids{101};
  std::vector<Property> properties{{nullptr, nullptr}};  // by id; 0 is none
};

Table& table() {
  static auto& table = *new Table;
  return table;
}

const Property& property(int id) {
  const auto& all = table().properties;
  return all[id > 0 && static_cast<std::size_t>(id) < all.size() ? static_cast<std::size_t>(id)
                                                                 : 0];
}

}  // namespace

int define_property(const char* name, const ValType* type) {
  Table& t = table();
  bool added;
  auto* entry = t.ids.insert(name, static_cast<int>(t.properties.size()), nullptr, &added);
  if (added) t.properties.push_back({entry->key, type});
  return entry->value;
}

int property_id(const char* name) {
  const auto* entry = table().ids.find(name);
  return entry ? entry->value : 0;
}

const char* property_name(int id) {
  return property(id).name;
}

const ValType* property_type(int id) {
  return property(id).type;
}

DepProp* find_prop(DepTree& node, int id) {
  for (DepProp& prop : node._props)
    if (id != 0 && prop.id == id) return &prop;
  return nullptr;
}

DepTree* ante_of(DepTree& node) {
  static const PropName ante("ante");
  const DepProp* prop = find_prop(node, ante.id());
  return prop ? dep_tree_of(prop->value) : nullptr;
}

}  // namespace torvane
