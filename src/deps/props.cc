#include "deps/props.h"

#include "deps/deps.h"

namespace torvane {

const Properties::Property& Properties::at(int id) const {
  auto i = static_cast<std::size_t>(id);
  return properties_[id > 0 && i < properties_.size() ? i : 0];
}

int Properties::define(const char* name, const ValType* type) {
  bool added;
  auto* entry = ids_.insert(name, static_cast<int>(properties_.size()), nullptr, &added);
  if (added) properties_.push_back({entry->key, type});
  return entry->value;
}

int Properties::id(const char* name) const {
  const auto* entry = ids_.find(name);
  return entry ? entry->value : 0;
}

DepProp* find_prop(DepTree& node, int id) {
  for (DepProp& prop : node._props)
    if (id != 0 && prop.id == id) return &prop;
  return nullptr;
}

DepTree* ante_of(DepTree& node) {
  const DepProp* prop = find_prop(node, node._deps->properties().id("ante"));
  return prop ? dep_tree_of(prop->value) : nullptr;
}

}  // namespace torvane
