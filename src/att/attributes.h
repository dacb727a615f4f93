// What the attribute layer keeps for a world: the types of vectors, and which is the current one.
#pragma once

#include <memory>
#include <vector>

#include "att/att_interpreter_list.h"
#include "shell/world.h"

namespace torvane {

class Attributes : public WorldPart {
 public:
  static constexpr Place kPlace = att;

  /// The list that stands wherever a form leaves the type out; may be null.
  AttInterpreterList* current = nullptr;
  /// The attribute made last, until its type takes it over.
  std::unique_ptr<AttInterpreter> pending;
  Ref<AttVec> last_made;
  std::vector<std::unique_ptr<AttInterpreterList>> types;
};

inline Attributes& attributes(World& world) {
  return world.part<Attributes>();
}

}  // namespace torvane
