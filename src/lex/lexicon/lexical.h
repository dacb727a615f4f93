// What the lexical layer keeps for a world.
#pragma once

#include "lexp/lexp.h"
#include "shell/world.h"

namespace torvane {

struct LexEntry;

class Lexical : public WorldPart {
 public:
  static constexpr Place kPlace = lex;

  /// The entry whose meanings are being read: where `phrases` adds to.
  LexEntry* current_entry = nullptr;
  /// Makes `analyze` print the chart.
  bool debug = false;
  ExpPtr small_word;  ///< what a spelled-out name may pass over, once it is asked for
};

inline Lexical& lexical(World& world) {
  return world.part<Lexical>();
}

}  // namespace torvane
