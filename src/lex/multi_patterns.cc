#include "lex/multi_patterns.h"

#include <climits>

#include "support/depth.h"

namespace torvane {

namespace {
thread_local DepthLimit seq_depth{"(seq ...): too many parts in a row"};
}

void MultiPattern::init(World& world, IRSlist* args) {
  subs.reserve(static_cast<std::size_t>(args->length()));
  while (!args->empty()) {
    if (take_option(world, args)) continue;
    std::unique_ptr<IRSlist> item = args->pop_front();
    if (item->is_list() || item->atom[0] != ':') subs.emplace_back(make_pattern(world, item.get()));
  }
}

void MultiPattern::match(MatchRun& run, MatchList& results) const {
  if (front_to_back) {
    match_forward(run, results);
    return;
  }
  for (int i = run.analyzer.word_count(); i >= 1; --i) {
    MatchList here;
    match_end(run, i, here);
    results.append(here);
    if (overlapping) continue;
    for (const Ref<Match>& match : here)
      if (match->low < i) i = match->low;
  }
}

void MultiPattern::match_forward(MatchRun& run, MatchList& results) const {
  int last = run.analyzer.last_position();
  for (int i = 1; i <= last; ++i) {
    MatchList here;
    match_start(run, i, here);
    results.append(here);
    if (overlapping) continue;
    for (const Ref<Match>& match : here)
      if (match->high > i) i = match->high;
  }
}

void SeqPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  if (subs.empty()) return;
  int outer = anchor == Anchor::end ? static_cast<int>(subs.size()) - 1 : 0;
  add_constrained(results, [&](MatchList& out) { find_from(run, anchor, outer, pos, out); });
}

// Part `part` at `pos`, and those beyond it, away from the anchored end.
void SeqPat::find_from(MatchRun& run, Anchor anchor, int part, int pos, MatchList& results) const {
  bool at_end = anchor == Anchor::end;
  bool is_innermost = at_end ? part == 0 : part + 1 == static_cast<int>(subs.size());
  MatchList matches(results.keep());
  subs[static_cast<std::size_t>(part)].find(run, anchor, pos, matches);

  MatchList rest(results.keep());
  int rest_pos = INT_MIN;
  for (const Ref<Match>& match : matches) {
    if (is_innermost) {
      results.add(Match::join(anchor, match, Ref<Match>()));
      continue;
    }
    int next = at_end ? match->low - 1 : match->high + 1;
    if (next != rest_pos) {
      rest.clear();
      find_rest(run, anchor, at_end ? part - 1 : part + 1, next, rest);
      rest_pos = next;
    }
    for (const Ref<Match>& tail : rest) {
      if (!run.may_add()) break;
      results.add(Match::join(anchor, match, tail));
    }
  }
  results.finish();
}

void SeqPat::find_rest(MatchRun& run, Anchor anchor, int part, int pos, MatchList& results) const {
  DepthGuard guard(seq_depth);
  if (!guard) return;
  int parts_left = anchor == Anchor::end ? part + 1 : static_cast<int>(subs.size()) - part;
  if (parts_left == 1) {
    find_from(run, anchor, part, pos, results);
    return;
  }
  MatchRun::Place place{this, part, pos, anchor, results.keep()};
  if (run.recall(place, results)) return;
  find_from(run, anchor, part, pos, results);
  run.remember(place, results);
}

void OrPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  for (const PatternPtr& sub : subs) {
    sub.find(run, anchor, pos, results);
    if (!results.empty()) return;
  }
}

void AndPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  if (subs.empty()) return;
  subs[0].find(run, anchor, pos, results);
  for (std::size_t i = 1; i < subs.size() && !results.empty(); ++i) {
    MatchList others(MatchList::Keep::one_per_span);
    subs[i].find(run, anchor, pos, others);
    results.keep_if([&](const Match& m) { return others.has_span(m.low, m.high); });
  }
}

}  // namespace torvane
