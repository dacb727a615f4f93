// What the expression language keeps for a world: its types, the scopes of its variables, and what
// expressions leave behind.
#pragma once

#include <memory>
#include <vector>

#include "lexp/functions.h"
#include "lexp/open_streams.h"
#include "lexp/refusal.h"
#include "lexp/types.h"
#include "lexp/variables.h"
#include "shell/world.h"
#include "support/lifetime.h"
#include "support/str_bufs.h"

namespace torvane {

class Expressions : public WorldPart {
 public:
  static constexpr Place kPlace = lexp;

  /// Expressions that variables or functions hold go before what expressions lean on.
  void drop_values() override {
    functions.clear();
    scopes.clear_values();
  }
  void flush() override { streams.flush(); }

  Types types;
  StrBufs constant_texts{4096};
  OpenStreams streams;
  Scopes scopes{types};
  std::vector<std::unique_ptr<Func>> functions;
  ObjFactory* family = nullptr;
  FormTexts form_texts;  ///< kept where places are
};

inline Expressions& expressions(World& world) {
  return world.part<Expressions>();
}

}  // namespace torvane
