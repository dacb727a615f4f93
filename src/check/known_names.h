// The names that a loaded grammar knows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/world.h"

namespace torvane {

class KnownNames {
 public:
  explicit KnownNames(World& world);

  using Names = std::vector<std::string>;
  Names commands, forms, patterns, meanings, att_types, objects;
  Names attributes;  ///< of all types, with their aliases
  Names values;      ///< of all attributes that have a list of them
  Names categories, relations;
};

/// Whether a name is among them, without regard to case.
bool knows(const KnownNames::Names& names, std::string_view name);

}  // namespace torvane
