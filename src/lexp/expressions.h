// What the expression language keeps for a world: its types, the scopes of its variables, and what
// expressions leave behind.
#pragma once

#include <memory>
#include <vector>

#include "lexp/functions.h"
#include "lexp/stream_forms.h"
#include "lexp/types.h"
#include "lexp/variables.h"
#include "shell/world.h"
#include "support/str_bufs.h"

namespace torvane {

class Expressions : public WorldPart {
 public:
  static constexpr Place kPlace = lexp;

  void flush() override { streams.flush(); }

  Types types;
  Scopes scopes{types};
  OpenStreams streams;
  StrBufs constant_texts{4096};
  std::vector<std::unique_ptr<Func>> functions;
  Array<ExpPtr> kept;  ///< expressions handed over as values, whose takers may keep them
  ObjFactory* family = nullptr;
  int commands_running = 0;  ///< from within expressions
};

inline Expressions& expressions(World& world) {
  return world.part<Expressions>();
}

}  // namespace torvane
