// The families of things that can be written in a start-up file: for each family a table from a
// word to the prototype behind it.
#pragma once

#include <memory>
#include <ostream>

#include "support/name_table.h"
#include "support/value.h"

namespace torvane {

class World;

class ObjFactory : public NameTable<Value> {
 public:
  /// Makes an object from a prototype; null if the family has none.
  using Maker = Value (*)(Value prototype);

  explicit ObjFactory(Maker maker_fn, int buckets = 20) : NameTable(buckets), maker(maker_fn) {}

  Maker maker;
};

/// The class table of a world.
class Families {
 public:
  Families() : table_(1979) {}
  /// Adds a family; the title (may be null) is its documentation.
  ObjFactory* add(const char* family, const char* title, ObjFactory::Maker maker);
  /// The family; it is added if it is not there.
  ObjFactory& open(const char* family, const char* title, ObjFactory::Maker maker);
  /// The family, or null.
  ObjFactory* find(const char* name) const;
  /// Enters a prototype into a family; who owns it keeps it as long as the world. A duplicate is
  /// reported; an unknown family gives "ObjFactory::proto no maker for '". False in both cases.
  bool add_proto(const char* family, const char* name, Value prototype, const char* doc);
  /// The families whose names match, as `help` prints.
  void print(std::ostream& out, const char* family_regexp) const;
  /// For each family whose name matches, in table order, its prototypes whose names match, as
  /// `help` does.
  void list_objects(std::ostream& out, const char* object_regexp, const char* family_regexp) const;

 private:
  NameTable<std::unique_ptr<ObjFactory>> table_;
};

}  // namespace torvane
