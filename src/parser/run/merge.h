// The tying of two items: every test that stands between a modifier and its head, in its order.
#pragma once

#include "lexp/refusal.h"
#include "parser/chart/chart.h"

namespace torvane {

/// `modifier` under `head` by a link; null if anything speaks against it, or the pool is exhausted.
/// An adjunct that stands between the two goes below the head. `position`: the one that the head
/// has been filled up to.
PItem* merge(Chart& chart, const Grammar& grammar, PItem& modifier, PItem& head, PItem* adjunct,
             int position, const Link& link);

/// The test of a merge that refuses it.
enum class MergeTest {
  none,
  argument,
  moved,
  span,
  distance,
  pool,
  unification,
  gap,
  merged,
  mark
};

/// The same for who wants to know why: which test says no, and the item as far as it was made (null
/// if it was not), which the caller gives back. `before`: set to what the item had before the
/// modifier's values were to go into it.
struct WatchedMerge {
  MergeTest refused = MergeTest::none;
  PItem* item = nullptr;
  Ref<AttVec> before;
  Refusal refusal;  ///< of the merged item's condition
};
WatchedMerge watch_merge(Chart& chart, const Grammar& grammar, PItem& modifier, PItem& head,
                         PItem* adjunct, int position, const Link& link);

}  // namespace torvane
