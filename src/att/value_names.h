// The allowable values of an attribute: a table of names, of which entry 0 is "~".
#pragma once

#include "att/att_vec.h"
#include "support/array.h"

namespace torvane {

class ValueNames {
 public:
  ValueNames() { names_.append("~"); }
  /// Takes the names from a facet, its head off; gives how many there are.
  int read(IRSlist& facet);
  /// The position of a name, -1 if it is none of them.
  int find(const char* name) const;
  /// Name i, or null beyond the table. Names live for ever.
  const char* at(AttWord i) const {
    return i < static_cast<AttWord>(names_.count()) ? names_.begin()[i] : nullptr;
  }
  int count() const { return names_.count(); }

 private:
  Array<const char*> names_;
};

}  // namespace torvane
