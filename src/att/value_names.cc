#include "att/value_names.h"

#include <cstring>

namespace torvane {

int ValueNames::read(IRSlist& facet) {
  names_.resize(1);
  while (!facet.empty())
    if (const char* name = facet.get_str_val()) names_.append(Name(name));
  return count() - 1;
}

int ValueNames::find(const char* name) const {
  for (int i = 0; i < count(); ++i)
    if (std::strcmp(names_[i].c_str(), name) == 0) return i;
  return -1;
}

}  // namespace torvane
