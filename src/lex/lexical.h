// What the lexical layer keeps for a world.
#pragma once

#include <memory>
#include <vector>

#include "lex/meaning.h"
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
  /// Meanings as constants of expressions, which variables may hold when the expression is gone.
  std::vector<std::unique_ptr<Meaning>> constants;
  ExpPtr small_word;  ///< what a spelled-out name may pass over, once it is asked for
};

inline Lexical& lexical(World& world) {
  return world.part<Lexical>();
}

}  // namespace torvane
