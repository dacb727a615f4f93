#include "lexp/types.h"

#include <iostream>

#include "support/array.h"
#include "support/name_table.h"

namespace torvane {

namespace {

struct TypeTable {
  NameTable<int> ids{101};
  Array<const char*> names;

  // Number 0 is no type, so that numbers start at 1.
  TypeTable() { names.append(nullptr); }
};

TypeTable& types() {
  static auto& table = *new TypeTable;
  return table;
}

}  // namespace

int type_id(const char* name) {
  if (!name) return kAnyType;
  TypeTable& table = types();
  if (auto* entry = table.ids.find(name)) return entry->value;
  // Kept: misspelt-type
  int id = table.names.count();
  table.names.append(table.ids.insert(name, id)->key);
  return id;
}

const char* type_name(int id) {
  if (id == kAnyType) return "void*";
  if (id <= 0) {
    std::cerr << "Unknown type id: " << id << '\n';
    return "";
  }
  return types().names.at_or_zero(id);
}

}  // namespace torvane
