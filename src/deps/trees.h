// What the layer of trees keeps for a world.
#pragma once

#include <memory>
#include <vector>

#include "deps/props.h"
#include "shell/world.h"

namespace torvane {

class Trees : public WorldPart {
 public:
  static constexpr Place kPlace = deps;

  Properties properties;
  /// Flags of the text format.
  bool print_weight = true;
  bool print_governor = true;
  int made = 0;  ///< how many trees, which gives each its number
};

inline Trees& trees(World& world) {
  return world.part<Trees>();
}

}  // namespace torvane
