// One walk of a pattern over a chart. It remembers what parts of the pattern gave at a position, so
// that what several ways through the pattern have in common is worked out once; without that, the
// work would grow with the number of ways even where none of them leads to a match.
#pragma once

#include <cstdint>
#include <memory>

#include "lex/match.h"

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

  /// Appends what was remembered; false if nothing was.
  bool recall(const Place& place, MatchList& out) const;
  void remember(const Place& place, const MatchList& matches);
  /// Asked before a sequence adds a match: false, reported once, when there are too many.
  bool may_add();

  LexAnalyzer& analyzer;

  static constexpr int kMostMatches = 1 << 18;

 private:
  class Memory;
  std::unique_ptr<Memory> memory_;
  int added_ = 0;
};

}  // namespace torvane
