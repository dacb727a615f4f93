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
  /// Where attributes go until their type takes them over: those that the item of a
  /// `def-att-list` makes, or else the one made last.
  using Made = std::vector<std::unique_ptr<AttInterpreter>>;
  Made* of_item = nullptr;
  std::unique_ptr<AttInterpreter> pending;
  std::vector<std::unique_ptr<AttInterpreterList>> types;
};

inline Attributes& attributes(World& world) {
  return world.part<Attributes>();
}

}  // namespace torvane
