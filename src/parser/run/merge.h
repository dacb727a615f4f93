// The tying of two items: every test that stands between a modifier and its head, in its order.
#pragma once

#include "parser/chart/chart.h"

namespace torvane {

/// `modifier` under `head` by a link; null if anything speaks against it, or the pool is exhausted.
/// An adjunct that stands between the two goes below the head. `position`: the one that the head
/// has been filled up to.
PItem* merge(Chart& chart, const Grammar& grammar, PItem& modifier, PItem& head, PItem* adjunct,
             int position, const Link& link);

}  // namespace torvane
