// The patterns of several parts: one behind the other, one of them, all of them at once.
#pragma once

#include <vector>

#include "lex/pattern.h"

namespace torvane {

class World;

class MultiPattern : public LPattern {
 public:
  /// Options and parts in any order; an atom that begins with ":" is never a part.
  void init(World& world, IRSlist* args) override;
  /// Without `overlapping` the scan goes on beyond what it found. From the right it begins at the
  /// word count, where only the end of the sentence matches.
  void match(MatchRun& run, MatchList& results) const override;

  std::vector<PatternPtr> subs;

 private:
  void match_forward(MatchRun& run, MatchList& results) const;
};

/// The parts in a row; one match for each way to lay them out, with the parts' matches as
/// components.
class SeqPat : public PatternOf<SeqPat, MultiPattern> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;

 private:
  void find_from(MatchRun& run, Anchor anchor, int part, int pos, MatchList& results) const;
  void find_rest(MatchRun& run, Anchor anchor, int part, int pos, MatchList& results) const;
};

/// The matches of the first part that has any.
class OrPat : public PatternOf<OrPat, MultiPattern> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// The first part's matches whose span every other part matches too.
class AndPat : public PatternOf<AndPat, MultiPattern> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

}  // namespace torvane
