// The patterns of several parts: one after the other, one of them, all of them at once.
#include <algorithm>
#include <climits>
#include <vector>

#include "lex/patterns/offers.h"
#include "lex/patterns/pattern.h"
#include "support/depth.h"

namespace torvane {

namespace {
thread_local DepthLimit seq_depth{"(seq ...): too many parts in a row"};
}

namespace {

class MultiPattern : public LPattern {
 public:
  /// Options and parts in any order; an atom that begins with ":" is never a part.
  void init(World& world, IRSlist* args) override {
    subs.reserve(static_cast<std::size_t>(args->length()));
    long unused = 0;
    while (!args->empty()) {
      if (take_option(world, args) || take_number(args, ":min", unused) ||
          take_number(args, ":max", unused))
        continue;
      std::unique_ptr<IRSlist> item = args->pop_front();
      if (item->is_list() || item->atom[0] != ':')
        subs.emplace_back(make_pattern(world, item.get()));
    }
  }
  /// Without `overlapping` the scan goes on beyond what it found. From the right it begins at the
  /// word count, where only the end of the sentence matches.
  void match(MatchRun& run, MatchList& results) const override {
    run.start(reach());
    if (front_to_back()) {
      match_forward(run, results);
    } else {
      match_backward(run, results);
    }
    run.limit(results);
  }

 protected:
  Reach parts_reach() const override {
    Reach all = Reach::input;
    for (const PatternPtr& sub : subs) all |= sub.reach();
    return all;
  }

  std::vector<PatternPtr> subs;

 private:
  void match_backward(MatchRun& run, MatchList& results) const {
    for (int i = run.analyzer.word_count(); i >= 1 && !run.is_full(results); --i) {
      MatchList here;
      find(run, Anchor::end, i, here);
      results.append(here);
      if (overlapping()) continue;
      for (const Ref<Match>& match : here)
        if (match->low < i) i = match->low;
    }
  }
  void match_forward(MatchRun& run, MatchList& results) const {
    int last = run.analyzer.last_position();
    for (int i = 1; i <= last && !run.is_full(results); ++i) {
      MatchList here;
      find(run, Anchor::start, i, here);
      results.append(here);
      if (overlapping()) continue;
      for (const Ref<Match>& match : here)
        if (match->high > i) i = match->high;
    }
  }
};

/// The parts in a row; one match for each way to lay them out, with the parts' matches as
/// components.
class SeqPat : public PatternOf<SeqPat, MultiPattern> {
 public:
  void init(World& world, IRSlist* args) override {
    MultiPattern::init(world, args);
    auto reaches_out = [](const PatternPtr& sub) { return sub.reach() != Reach::input; };
    auto first = std::find_if(subs.begin(), subs.end(), reaches_out);
    auto last = std::find_if(subs.rbegin(), subs.rend(), reaches_out);
    steady_left_ = static_cast<int>(first - subs.begin());
    steady_right_ = static_cast<int>(last - subs.rbegin());
    keeps_all_ = constraint() || steady_left_ < size();
    asks_early_ = constraint() && constraint().reach() == Reach::input;
  }
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    if (subs.empty()) return;
    if (asks_early_) {
      find_from(run, anchor, outermost(anchor), pos, results);
    } else {
      add_constrained(results,
                      [&](MatchList& out) { find_from(run, anchor, outermost(anchor), pos, out); });
    }
  }

 private:
  // Part `part` at `pos`, and those beyond it, away from the anchored end.
  void find_from(MatchRun& run, Anchor anchor, int part, int pos, MatchList& results) const {
    auto keep = keeps_all_ ? MatchList::Keep::all : results.keep();
    MatchList matches(keep);
    subs[static_cast<std::size_t>(part)].find(run, anchor, pos, matches);
    bool asks = asks_early_ && part == outermost(anchor);
    auto add = [&](Ref<Match> whole) {
      if (!asks || may_keep(run, *whole, results)) results.add(std::move(whole));
    };
    auto room_for = [&](int ways) { return asks ? ways : run.room_in(results, ways); };

    if (part == innermost(anchor)) {
      int room = room_for(matches.size());
      for (int i = 0; i < room; ++i) add(Match::join(anchor, matches[i], Ref<Match>()));
      results.finish();
      return;
    }
    bool at_end = anchor == Anchor::end;
    int next_part = at_end ? part - 1 : part + 1;
    bool steady = is_steady(anchor, next_part);
    MatchList rest(keep);
    int rest_pos = INT_MIN;
    for (const Ref<Match>& match : matches) {
      int next = at_end ? match->low - 1 : match->high + 1;
      if (next != rest_pos || !steady) {
        if (!run.may_step(steady && run.remembers())) break;
        rest.clear();
        find_rest(run, anchor, next_part, next, rest);
        rest_pos = next;
      }
      if (rest.empty()) continue;
      int room = room_for(rest.size());
      for (int i = 0; i < room; ++i) add(Match::join(anchor, match, rest[i]));
      if (room < rest.size()) break;
    }
    results.finish();
  }
  void find_rest(MatchRun& run, Anchor anchor, int part, int pos, MatchList& results) const {
    DepthGuard guard(seq_depth);
    if (!guard) return;
    if (part == innermost(anchor) || !run.remembers() || !is_steady(anchor, part)) {
      find_from(run, anchor, part, pos, results);
      return;
    }
    MatchRun::Place place{this, part, pos, anchor, results.keep()};
    if (run.recall(place, results)) return;
    find_from(run, anchor, part, pos, results);
    run.remember(place, results);
  }
  bool may_keep(MatchRun& run, Match& whole, const MatchList& results) const {
    return run.may_step() && passes_constraint(whole) && run.room_in(results, 1) == 1;
  }
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
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    for (const PatternPtr& sub : subs) {
      sub.find(run, anchor, pos, results);
      if (!results.empty()) return;
    }
  }
};

/// The first part's matches whose span every other part matches too.
class AndPat : public PatternOf<AndPat, MultiPattern> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    if (subs.empty()) return;
    subs[0].find(run, anchor, pos, results);
    for (std::size_t i = 1; i < subs.size(); ++i) {
      if (results.empty() && subs[i].reach() == Reach::input) continue;
      MatchList others(MatchList::Keep::one_per_span);
      subs[i].find(run, anchor, pos, others);
      results.keep_if([&](const Match& m) { return others.has_span(m.low, m.high); });
    }
  }
};

constexpr Prototype kMultiPatterns[] = {
    pattern<SeqPat>(
        "seq",
        "(seq <lpat> <lpat> ... <lpat>) matches a sequence of lexical items such that each of "
        "them matches the corresponding pattern in the list"),
    pattern<OrPat>(
        "!",
        "(! <lpat> <lpat> ... <lpat>) matches a lexical item that matches one of the patterns "
        "in the list"),
    pattern<OrPat>(
        "or-pat",
        "(or-pat <lpat> <lpat> ... <lpat>) matches a lexical item that matches one of the "
        "patterns in the list"),
    pattern<AndPat>(
        "&",
        "(& <lpat> <lpat> ... <lpat>) matches a lexical item that matches all of the patterns "
        "in the list"),
    pattern<AndPat>(
        "and-pat",
        "(and-pat <lpat> <lpat> ... <lpat>) matches a lexical item that matches all of the "
        "patterns in the list"),
};

}  // namespace

constinit const Offer offers::multi_patterns{kMultiPatterns};

}  // namespace torvane
