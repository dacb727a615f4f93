#include "shell/named_objects.h"

#include <cstring>

#include "support/messages.h"

namespace torvane {

NamedObjects::NamedObjects() : table_(101) {
  static constexpr NamedComparison kBytes{byte_compare};
  static constexpr NamedComparison kWithoutCase{stricmp};
  table_.insert("strcmp", Value::of(&kBytes), "function");
  table_.insert("strcasecmp", Value::of(&kWithoutCase), "function");
}

bool NamedObjects::add(const char* name, Value object, const char* type) {
  bool added;
  table_.insert(name, object, type, &added);
  return added;
}

Value NamedObjects::find(const char* name, const char* expected_type, bool report) const {
  if (const auto* entry = table_.find(name); entry && expected_type && entry->text) {
    // Kept: type-by-substring
    if (std::strstr(entry->text, expected_type)) return entry->value;
    messages() << "The named object '" << name << "' is of the type '" << entry->text
               << "', not the expected type '" << expected_type << "'\n";
    return Value();
  }
  if (report)
    messages() << "The named object '" << or_empty(name) << "' (type=" << or_empty(expected_type)
               << ") is not found\n";
  return Value();
}

}  // namespace torvane
