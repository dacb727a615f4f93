// What the layer of trees keeps for a world.
#pragma once

#include <utility>
#include <vector>

#include "deps/dep_statistics.h"
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

  /// Databases of counts, each with the object that stands for it: that one's value holds the store
  /// that a database also is.
  std::vector<std::pair<Value, DepStatistics*>> databases;
  /// Null for an object that is no database.
  DepStatistics* statistics_of(Value object) const {
    for (const auto& [value, statistics] : databases)
      if (value.word() == object.word()) return statistics;
    return nullptr;
  }
};

inline Trees& trees(World& world) {
  return world.part<Trees>();
}

}  // namespace torvane
