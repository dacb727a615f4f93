// The instances that a start-up file makes under a name, each with its type: a path of class names,
// most derived first, such as "SocketTokenizer/TokenizerBase". A look-up may name any level, since
// it is tested by substring.
#pragma once

#include "support/name_table.h"
#include "support/value.h"

namespace torvane {

/// A comparison of texts under a name. "strcmp" and "strcasecmp", of the type "function", are there
/// from the start.
struct NamedComparison {
  int (*compare)(const char*, const char*);
};
namespace tags {
inline constexpr TypeTag comparison{"function"};
}
template <>
struct ValueTraits<NamedComparison> : TagOf<NamedComparison, tags::comparison> {};

class NamedObjects {
 public:
  NamedObjects();
  /// Enters an object under a copy of its name. A name that stands already is reported and keeps
  /// its object; false then.
  bool add(const char* name, Value object, const char* type);
  /// The object of a name, or none. The wrong type is always reported, a missing object if
  /// `report`.
  Value find(const char* name, const char* expected_type, bool report) const;
  /// The same, as a T.
  template <class T>
  T* find_as(const char* name, const char* expected_type, bool report) const {
    return find(name, expected_type, report).as<T>();
  }
  /// Calls `visit(name, type)` for each object.
  template <class Visit>
  void for_each(Visit visit) const {
    table_.for_each([&](const auto& entry) { visit(entry.key, entry.text); });
  }

 private:
  NameTable<Value> table_;
};

}  // namespace torvane
