// The patterns of one part: its absence, and how often it may stand.
#pragma once

#include "lex/patterns/pattern.h"

namespace torvane {

class World;

class OnePat : public LPattern {
 public:
  /// Options, then the part; what stands behind it is ignored.
  void init(World& world, IRSlist* args) override;
  PatternPtr sub;
  long min = 0, max = 0;  ///< read, and used by nothing

 protected:
  Reach parts_reach() const override { return sub.reach(); }
};

/// A word at which the part does not match.
class NoPat : public PatternOf<NoPat, OnePat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// The part's matches, and the empty one.
class OptionalPat : public PatternOf<OptionalPat, OnePat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// The longest row of first matches of the part: one match at most. Each step takes the first match
/// that the part gives and never goes back on it.
class PlusPat : public PatternOf<PlusPat, OnePat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;

 private:
  Ref<Match> chain(MatchRun& run, Anchor anchor, int pos) const;
};

/// As PlusPat, and the empty match where that has none.
class StarPat : public PatternOf<StarPat, PlusPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

}  // namespace torvane
