// The patterns of several parts: one behind the other, one of them, all of them at once.
#pragma once

#include <vector>

#include "lex/patterns/pattern.h"

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

 protected:
  Reach parts_reach() const override;

 private:
  void match_backward(MatchRun& run, MatchList& results) const;
  void match_forward(MatchRun& run, MatchList& results) const;
};

/// The parts in a row; one match for each way to lay them out, with the parts' matches as
/// components.
class SeqPat : public PatternOf<SeqPat, MultiPattern> {
 public:
  void init(World& world, IRSlist* args) override;
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;

 private:
  void find_from(MatchRun& run, Anchor anchor, int part, int pos, MatchList& results) const;
  void find_rest(MatchRun& run, Anchor anchor, int part, int pos, MatchList& results) const;
  bool may_keep(MatchRun& run, Match& whole, const MatchList& results) const;
  int outermost(Anchor anchor) const { return anchor == Anchor::end ? size() - 1 : 0; }
  int innermost(Anchor anchor) const { return anchor == Anchor::end ? 0 : size() - 1; }
  int size() const { return static_cast<int>(subs.size()); }
  /// Whether this part and those beyond it give the same whenever they are asked.
  bool is_steady(Anchor anchor, int part) const {
    return anchor == Anchor::end ? part < steady_left_ : part >= size() - steady_right_;
  }

  // How many parts from the left and from the right stay within their input.
  int steady_left_ = 0, steady_right_ = 0;
  // One match of a span may stand for the others only where nobody looks at them.
  bool keeps_all_ = false;
  // The constraint stays within its input, too: it is asked as soon as a match is whole.
  bool asks_early_ = false;
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
