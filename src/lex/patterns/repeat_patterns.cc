// The patterns of one part: its absence, and how often it may stand.
#include <utility>

#include "lex/patterns/offers.h"
#include "lex/patterns/pattern.h"

namespace torvane {

namespace {

class OnePat : public LPattern {
 public:
  /// Options, then the part; what stands after it is ignored.
  void init(World& world, IRSlist* args) override {
    bool has_sub = false;
    long unused = 0;
    while (!args->empty()) {
      // Kept: min-and-max-do-nothing
      if (take_option(world, args) || take_number(args, ":min", unused) ||
          take_number(args, ":max", unused))
        continue;
      std::unique_ptr<IRSlist> item = args->pop_front();
      if (!std::exchange(has_sub, true)) sub = make_pattern(world, item.get());
    }
  }

 protected:
  Reach parts_reach() const override { return sub.reach(); }

  PatternPtr sub;
};

/// A word at which the part does not match.
class NoPat : public PatternOf<NoPat, OnePat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    if (pos < 1 || pos > run.analyzer.last_position()) return;
    MatchList found(MatchList::Keep::one_per_span);
    sub.find(run, anchor, pos, found);
    if (found.empty()) results.add(Match::make(&run.analyzer, pos, pos));
  }
};

/// The part's matches, and the empty one.
class OptionalPat : public PatternOf<OptionalPat, OnePat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    add_constrained(results, [&](MatchList& out) {
      sub.find(run, anchor, pos, out);
      out.add(Match::empty_at(&run.analyzer, anchor, pos));
      out.finish();
    });
  }
};

/// The longest row of first matches of the part: one match at most. Each step takes the first match
/// that the part gives and never goes back on it.
class PlusPat : public PatternOf<PlusPat, OnePat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    add_constrained(results, [&](MatchList& out) {
      if (Ref<Match> match = chain(run, anchor, pos)) out.add(std::move(match));
    });
  }

 private:
  Ref<Match> chain(MatchRun& run, Anchor anchor, int pos) const {
    using Keep = MatchList::Keep;
    bool at_end = anchor == Anchor::end;
    bool steady = run.remembers() && sub.reach() == Reach::input;
    auto place = [&](int at) { return MatchRun::Place{this, 0, at, anchor, Keep::one_per_span}; };
    auto remember = [&](int at, const MatchList& found) {
      if (steady) run.remember(place(at), found);
    };

    MatchList steps;
    MatchList beyond;
    while (pos >= 1 && !(steady && run.recall(place(pos), beyond)) && run.may_step(steady)) {
      MatchList found(Keep::one_per_span);
      sub.find(run, anchor, pos, found);
      if (found.empty()) {
        remember(pos, beyond);
        break;
      }
      // Kept: repetition-never-backs-up
      const Match& step = *found.front();
      int next = at_end ? step.low - 1 : step.high + 1;
      bool moves = at_end ? next < pos : next > pos;
      steps.add(found.front());
      if (!moves) break;
      pos = next;
    }

    Ref<Match> chain = beyond.empty() ? Ref<Match>() : beyond.front();
    for (int i = steps.size() - 1; i >= 0; --i) {
      chain = Match::join(anchor, steps[i], chain);
      MatchList so_far;
      so_far.add(chain);
      remember(at_end ? steps[i]->high : steps[i]->low, so_far);
    }
    return chain;
  }
};

/// As PlusPat, and the empty match where that has none.
class StarPat : public PatternOf<StarPat, PlusPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    PlusPat::find(run, anchor, pos, results);
    if (!results.empty()) return;
    add_constrained(results,
                    [&](MatchList& out) { out.add(Match::empty_at(&run.analyzer, anchor, pos)); });
  }
};

constexpr Prototype kRepeatPatterns[] = {
    pattern<StarPat>("*", "(* <lpat>) matches a sequence of 0 or more matches of <lpat>"),
    pattern<PlusPat>("+", "(+ <lpat>) matches a sequence of 1 or more matches of <lpat>"),
    pattern<OptionalPat>("?", "(? <lpat>) matches 0 or 1 match of <lpat>"),
    pattern<NoPat>("no", "(no <lpat>) matches a word that does not match <lpat>"),
};

}  // namespace

constinit const Offer offers::repeat_patterns{kRepeatPatterns};

}  // namespace torvane
