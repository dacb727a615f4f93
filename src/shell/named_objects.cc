#include "shell/named_objects.h"

#include <cstring>
#include <iostream>

#include "support/name_table.h"

namespace torvane {

namespace {

NameTable<Value>& named_objects() {
  static auto& table = *[] {
    static constexpr NamedComparison kBytes{byte_compare};
    static constexpr NamedComparison kWithoutCase{stricmp};
    auto* objects = new NameTable<Value>(101);
    objects->insert("strcmp", Value::of(&kBytes), "function");
    objects->insert("strcasecmp", Value::of(&kWithoutCase), "function");
    return objects;
  }();
  return table;
}

}  // namespace

bool register_object(const char* name, Value object, const char* type) {
  bool added;
  named_objects().insert(name, object, type, &added);
  return added;
}

Value find_object(const char* name, const char* expected_type, bool report) {
  if (const auto* entry = named_objects().find(name); entry && expected_type && entry->text) {
    // Kept: type-by-substring
    if (std::strstr(entry->text, expected_type)) return entry->value;
    std::cerr << "The named object '" << name << "' is of the type '" << entry->text
              << "', not the expected type '" << expected_type << "'\n";
    return Value();
  }
  if (report)
    std::cerr << "The named object '" << or_empty(name) << "' (type=" << or_empty(expected_type)
              << ") is not found\n";
  return Value();
}

}  // namespace torvane
