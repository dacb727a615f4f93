// Which relations a report is about, as its form says: by name, or by expressions on the name.
#pragma once

#include <cstdlib>

#include "shell/irslist.h"
#include "support/bit_set.h"
#include "triples/db/mutual_info.h"

namespace torvane {

class RelationSet {
 public:
  /// Takes `:rels`, `:feature` and `:inv-feature` off a form. A relation is in if it passes each
  /// that was given. The expressions are evaluated here, on every name that the database has, and
  /// never during a walk over entries: they may run commands.
  RelationSet(World& world, TripleDb& db, IRSlist& form);

  bool has(int id) const { return everything_ || (id < 0 ? inverse_ : direct_).test(std::abs(id)); }
  bool is_everything() const { return everything_; }

 private:
  bool everything_;
  LBitSet direct_;
  LBitSet inverse_;
};

}  // namespace torvane
