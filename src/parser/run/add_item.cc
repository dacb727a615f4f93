// The storing of an item in the chart of its node.
#include "parser/grammar/syntax_atts.h"
#include "parser/run/parse_run.h"
#include "support/step_counts.h"

namespace torvane {
namespace {

/// A frame's item, whose arguments say what is still missing.
bool has_arguments(const GCate& node, const PItem& item) {
  return node._is_subcat && has_att(*item._atts, syntax_atts(*item._atts).args);
}

/// The arguments behind the position may be missing.
bool arguments_complete(const GCate& node, const PItem& item, int position) {
  const SyntaxAtts& syn = syntax_atts(*item._atts);
  for (int i = position; i <= node.n_positions() - 2; ++i) {
    const AttVec* arg = argument_of(*item._atts, syn.args, i);
    if (arg && !is_true(*arg, syn.opt)) return false;
  }
  return true;
}

bool positions_complete(const GCate& node, const PItem& item, int position) {
  return !node.any_required(position + 1, node.n_positions()) && passes(node._full_cond, &item);
}

}  // namespace

bool is_complete(const GCate& node, const PItem& item, int position) {
  return has_arguments(node, item) ? arguments_complete(node, item, position)
                                   : positions_complete(node, item, position);
}

/// Chains the item to one at these positions that equals it in all that the node shows. True if
/// that was so, or the item is stored there itself.
bool ParseRun::join_alternative(const GCate& node, PItem* item, Positions positions) {
  for (int p = positions.last; p >= positions.first; --p) {
    const bool joined = chart_.any_of_span(node, p, *item, [&](PItem* other) {
      if (other == item) return true;
      if (!equivalent(*other, *item, node._visible)) return false;
      count(Step::equal_item);
      if (other->_next) item->_next = other->_next;
      other->_next = item;
      return true;
    });
    if (joined) return true;
  }
  return false;
}

bool ParseRun::add_item(const GCate& node, PItem* item, int position) {
  if (position < 0 || item->_high < 0) return false;
  bool complete;
  Positions same{position, position};
  if (has_arguments(node, *item)) {
    complete = arguments_complete(node, *item, position);
  } else {
    complete = positions_complete(node, *item, position);
    // Positions that may stay empty make no difference.
    while (same.first > 0 && !node.required(same.first)) --same.first;
    while (same.last < node.n_positions() - 1 && !node.required(same.last + 1)) ++same.last;
  }
  if (join_alternative(node, item, same)) return true;
  if (complete) {
    chart_.ready(node).append(item);
    if (!node._conj_consistent.is_empty()) try_conjunction(node, item, position);
  } else if (!node._is_subcat && !node.any_required(position + 1, node.n_positions())) {
    // The full condition refused an item that no further position can change.
    return false;
  }
  count(Step::stored);
  chart_.store(node, position, item);
  return true;
}

}  // namespace torvane
