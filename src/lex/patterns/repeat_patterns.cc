#include "lex/patterns/repeat_patterns.h"

#include <utility>

namespace torvane {

void OnePat::init(World& world, IRSlist* args) {
  bool has_sub = false;
  while (!args->empty()) {
    // Kept: min-and-max-do-nothing
    if (take_option(world, args) || take_number(args, ":min", min) ||
        take_number(args, ":max", max))
      continue;
    std::unique_ptr<IRSlist> item = args->pop_front();
    if (!std::exchange(has_sub, true)) sub = make_pattern(world, item.get());
  }
}

void NoPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  if (pos < 1 || pos > run.analyzer.last_position()) return;
  MatchList found(MatchList::Keep::one_per_span);
  sub.find(run, anchor, pos, found);
  if (found.empty()) results.add(Match::make(&run.analyzer, pos, pos));
}

void OptionalPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  add_constrained(results, [&](MatchList& out) {
    sub.find(run, anchor, pos, out);
    out.add(Match::empty_at(&run.analyzer, anchor, pos));
    out.finish();
  });
}

void PlusPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  add_constrained(results, [&](MatchList& out) {
    if (Ref<Match> match = chain(run, anchor, pos)) out.add(std::move(match));
  });
}

Ref<Match> PlusPat::chain(MatchRun& run, Anchor anchor, int pos) const {
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

void StarPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  PlusPat::find(run, anchor, pos, results);
  if (!results.empty()) return;
  add_constrained(results,
                  [&](MatchList& out) { out.add(Match::empty_at(&run.analyzer, anchor, pos)); });
}

}  // namespace torvane
