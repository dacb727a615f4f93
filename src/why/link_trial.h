// One link and two words: what the parser tested, and where that ended.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "parser/run/merge.h"
#include "why/run_replay.h"
#include "why/word_way.h"

namespace torvane {

/// How far things came with a link; a later one is further.
enum class Stage {
  none,
  side,
  reading,
  lost,
  item,
  far_modifier,  ///< the condition on the modifier, which is no neighbour of a head
  distant,
  position,
  modifier,
  distance,
  modifiee,
  merge,
  merged,
  whole,
  equal,
  made,
  elsewhere,
  dearer,
  chosen
};

/// A reason, and how far things had come.
struct Outcome {
  Stage stage = Stage::none;
  WhyReason reason;

  /// Takes another one that came further.
  void improve(Stage other_stage, WhyReason other) {
    if (other_stage <= stage) return;
    stage = other_stage;
    reason = std::move(other);
  }
};

class LinkTrial {
 public:
  LinkTrial(TorvaneParser& parser, const WordWay& modifier, const WordWay& head, const Link& link);

  /// Where the link ended that did not tie the two.
  Outcome run();

 private:
  /// A complete phrase of the modifier, and whether its condition holds.
  struct Candidate {
    PItem* item;
    bool passes;
  };
  /// The span of a head that was looked at.
  struct Span {
    int low, high;
  };

  void find_candidates();
  void look_before();
  void look_behind();
  void extend(PItem& head, int position);
  void take_others(PItem& head, int position, int end, PItem* adjunct);
  void tell_positions(const PItem& head, const PItem& modifier, int filled);
  WhyReason refusal_of(const Candidate& candidate) const;
  void meet(PItem& head, PItem* adjunct, int position, const Candidate& candidate);
  void meet_alternatives(const PItem& head, PItem* adjunct, int position,
                         const Candidate& candidate, const WhyReason& first);
  Outcome tie(const PItem& head, PItem* adjunct, int position, const PItem& modifier);
  Outcome end_of_merge(const WatchedMerge& merge, const PItem& head, const PItem& modifier);
  Outcome end_of_whole(const PItem& merged);
  void tell_distant();

  TorvaneParser& parser_;
  RunReplay replay_;
  const WordWay& modifier_;
  const WordWay& head_;
  const Link& link_;
  const GCate& parent_;
  const bool before_;
  std::vector<Candidate> candidates_;
  std::vector<Span> heads_;
  Outcome best_;
  int heads_left_ = 300;  // that may be built again
  int ties_left_ = 600;   // that may be tried
};

}  // namespace torvane
