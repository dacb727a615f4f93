// One walk of a pattern over a chart. It remembers what parts of the pattern gave at a position, so
// that what several ways through the pattern have in common is worked out once; without that, the
// work would grow with the number of ways even where none of them leads to a match. What may be
// remembered is what would be the same again: the parts read no variable and change nothing, and
// no test of the whole pattern can change the chart.
#pragma once

#include <cstdint>
#include <memory>

#include "lex/patterns/match.h"
#include "lexp/lexp.h"

namespace torvane {

class MatchRun {
 public:
  /// The part of a pattern from which on, where, and for what.
  struct Place {
    const void* pattern;
    int part;
    int pos;
    Anchor anchor;
    MatchList::Keep keep;
    friend bool operator==(const Place&, const Place&) = default;
  };

  explicit MatchRun(LexAnalyzer& chart);
  ~MatchRun();
  MatchRun(const MatchRun&) = delete;
  MatchRun& operator=(const MatchRun&) = delete;

  /// Begins to match a pattern of this reach.
  void start(Reach reach) { remembers_ = reach == Reach::input || reach == Reach::variables; }
  /// Whether anything may be remembered at all.
  bool remembers() const { return remembers_; }
  /// Whether the pattern has given too much to look any further.
  bool is_full(const MatchList& results) const { return results.size() > kMostMatches; }
  /// Cuts what is too much, which is reported once.
  void limit(MatchList& results);
  /// Appends what was remembered; false if nothing was. Only for places whose parts stay within
  /// their input.
  bool recall(const Place& place, MatchList& out) const;
  void remember(const Place& place, const MatchList& matches);
  /// Asked before a step of a sequence or row: false, reported once, when the walk has taken too
  /// many. What cannot be remembered, so that its tests run again, counts as many.
  bool may_step(bool steady = true) {
    steps_left_ -= steady ? 1 : kUnsteadySteps;
    return steps_left_ >= 0 || report_steps();
  }
  /// How many of so many matches may be added to a list: fewer, which is reported once, when there
  /// are too many. A match that is kept costs memory, and so counts as several steps.
  int room_in(const MatchList& list, int wanted) {
    if (wanted > kMostMatches - list.size()) [[unlikely]]
      wanted = cut_matches(list);
    if (wanted * kKeptSteps > steps_left_) [[unlikely]]
      wanted = cut_kept(wanted);
    steps_left_ -= wanted * kKeptSteps;
    return wanted;
  }

  LexAnalyzer& analyzer;

  static constexpr int kMostMatches = 1 << 18;
  static constexpr int kMostSteps = 1 << 24;

 private:
  static constexpr int kKeptSteps = 8;
  static constexpr int kUnsteadySteps = 32;
  class Memory;

  int cut_kept(int wanted);
  int cut_matches(const MatchList& list);
  void report_matches();
  bool report_steps();

  std::unique_ptr<Memory> memory_;
  bool remembers_ = false;
  bool reported_ = false;
  int steps_left_ = kMostSteps;
};

}  // namespace torvane
