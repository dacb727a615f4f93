// Functions that a start-up file defines: positional parameters, and a body of expressions.
#pragma once

#include <optional>
#include <string>

#include "lexp/variables.h"

namespace torvane {

class World;

struct Func {
  std::string name;
  std::optional<std::string> doc;
  Array<Ref<Var>> params;
  Array<ExpPtr> body;
  Reach reach = Reach::anything;  ///< of the body, once it is whole
};

}  // namespace torvane
