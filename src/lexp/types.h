// The type names of the expression language and their numbers. Nothing fixes the set: the engine's
// own types have fixed numbers, and any other name gets one when it is first used. -1 means any
// type.
#pragma once

#include "support/array.h"
#include "support/name_table.h"

namespace torvane {

inline constexpr int kAnyType = -1;

/// The fixed number of one of the engine's types, from 1 on; 0 for any other name, -1 for null.
int own_type_id(const char* name);

/// The types of a world.
class Types {
 public:
  Types();
  /// The number of a name, new if need be, from 1 on, without regard to case; -1 for null.
  int id(const char* name);
  /// "void*" for -1; "" after "Unknown type id: " for 0 and other negative numbers; null beyond the
  /// table.
  const char* name(int id) const;

 private:
  NameTable<int> ids_{101};
  Array<const char*> names_;
};

}  // namespace torvane
