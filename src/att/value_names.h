// The allowable values of an attribute: a table of names, of which entry 0 is "~".
#pragma once

#include "att/att_vec.h"
#include "support/array.h"
#include "support/name.h"

namespace torvane {

class ValueNames {
 public:
  ValueNames() { names_.append(Name("~")); }
  /// Takes the names from a facet, its head off; gives how many there are.
  int read(IRSlist& facet);
  /// The position of a name, -1 if it is none of them.
  int find(const char* name) const;
  /// The text of name i, or null beyond the table.
  const char* at(AttWord i) const {
    return i < static_cast<AttWord>(names_.count()) ? names_.begin()[i].c_str() : nullptr;
  }
  int count() const { return names_.count(); }

 private:
  Array<Name> names_;
};

}  // namespace torvane
