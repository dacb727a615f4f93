// The families of things that can be written in a start-up file: for each family a table from a
// word to the prototype behind it.
#pragma once

#include <ostream>

#include "support/name_table.h"
#include "support/value.h"

namespace torvane {

class IRSlist;

class ObjFactory : public NameTable<Value> {
 public:
  /// Makes an object from a prototype; null if the family has none.
  using Maker = Value (*)(Value prototype);

  explicit ObjFactory(Maker maker_fn, int buckets = 20) : NameTable(buckets), maker(maker_fn) {}

  /// Adds a family to the class table; the title (may be null) is its documentation.
  static ObjFactory* add_family(const char* family, const char* title, Maker maker);
  /// The family, or null.
  static ObjFactory* family(const char* name);
  /// Enters a prototype into a family. A duplicate is reported; an unknown family gives
  /// "ObjFactory::proto no maker for '". False in both cases.
  static bool proto(const char* family, const char* name, Value prototype, const char* doc);
  /// For each family whose name matches, in table order, its prototypes whose names match, as
  /// `help` does.
  static void list_objects(std::ostream& out, const char* object_regexp, const char* family_regexp);

  Maker maker;
};

void register_object_factory_commands();

}  // namespace torvane
