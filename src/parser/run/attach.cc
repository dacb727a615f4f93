// The filling of positions: modifiers to the left of a head, and heads to the left of a modifier.
#include <algorithm>

#include "lexp/form.h"
#include "parser/grammar/contract.h"
#include "parser/run/delivery_depth.h"
#include "parser/run/merge.h"
#include "parser/run/parse_run.h"

namespace torvane {
namespace {

// An adjunct of more words may not stand between a head and its modifier.
constexpr int kLongestAdjunct = 4;

}  // namespace

bool ParseRun::skips_word(const GCate& node, int position, int i) const {
  const Condition* cond = node.skip_cond(position);
  const char* word = cond ? grammar_.word(i) : nullptr;
  if (!word) return false;
  Chart::Answer* known = cond->reach() == Reach::input ? chart_.answer(node, position, i) : nullptr;
  if (known && *known != Chart::Answer::none) return *known == Chart::Answer::yes;
  const bool passes =
      holds(*cond->get(), grammar_._lex->text_value(word), type_id_of<const char*>());
  if (known) *known = passes ? Chart::Answer::yes : Chart::Answer::no;
  return passes;
}

/// Calls `visit(position, end, adjunct)` for the places before the item that another one may end
/// at: positions from the last to the first, or to one that must be filled, and at each the nearest
/// end and those to which one may pass on there.
template <class Visit>
void ParseRun::for_each_place(const GCate& node, const PItem& item, Positions positions,
                              int skipping_position, Visit visit) const {
  for (int p = positions.last; p >= positions.first; --p) {
    const int skipping = skipping_position < 0 ? p : skipping_position;
    PItem* adjunct = nullptr;
    for (int q = item._low - 1; q >= 0; q = next_left(node, skipping, q, item, adjunct))
      visit(p, q, adjunct);
    if (node.required(p)) break;
  }
}

/// A head of the node has to have a modifier before it, and there is none. It is not looked for
/// where a condition may do something of its own.
bool ParseRun::lacks_modifier(const GCate& node, const PItem& item) const {
  const int head = node.head();
  if (!node.any_required(0, head)) return false;
  bool found = false;
  for (int p = head - 1; p >= 0; --p) {
    const Condition* skip = node.skip_cond(p);
    if (skip && skip->reach() != Reach::input) return false;
    if (node.required(p)) break;
  }
  for_each_place(node, item, {0, head - 1}, -1,
                 [&](int, int end, PItem*) { found = found || chart_.any_waits(node, end); });
  return !found;
}

bool ParseRun::extend_left(const GCate& node, PItem* item, int position) {
  DepthGuard guard(delivery_depth);
  if (!guard) return true;
  Taken taken;
  const int last = node.repeats(position) ? position : position - 1;
  for_each_place(node, *item, {0, last}, -1, [&](int p, int q, PItem* adjunct) {
    Taken here = take_waiting(node, item, adjunct, p, q);
    taken.any |= here.any;
    taken.minimal |= here.minimal;
  });
  // What could have been a modifier here had to be one.
  if (taken.minimal || node.any_required(0, position)) return taken.any;
  return add_item(node, item, node.head()) || taken.any;
}

/// Puts the item above all that waits for it at a place.
ParseRun::Taken ParseRun::take_waiting(const GCate& node, PItem* item, PItem* adjunct, int position,
                                       int end) {
  Taken taken;
  if (!chart_.any_waits(node, end)) return taken;
  for (const Link* link : node.links_at(position)) {
    if (item->_high - end > link->_max_dist) continue;
    const Chart::Items& waiting = chart_.waiting_at(*link, end);
    if (waiting.empty() || !passes(link->_modifiee_cond, item)) continue;
    for (PItem* modifier : waiting) {
      PItem* larger = merge(chart_, grammar_, *modifier, *item, adjunct, position, *link);
      if (!larger) continue;
      if (node.minimal(position) && passes(node._minimal_cond, modifier)) taken.minimal = true;
      if (extend_left(node, larger, position))
        taken.any = true;
      else
        chart_.give_back(larger);
    }
  }
  return taken;
}

void ParseRun::attach_right(const GCate& node, PItem* modifier, const Link& link) {
  const int last = link.position();
  bool attached = false;
  const Positions positions{std::max(node.head(), 0), node.repeats(last) ? last : last - 1};
  for_each_place(node, *modifier, positions, last, [&](int p, int q, PItem* adjunct) {
    if (take_heads(node, modifier, link, adjunct, p, q)) attached = true;
  });
  // Kept: headless-start-one-short
  if (attached || node.head() >= 0 || node.any_required(0, last - 1)) return;
  // A node without a head starts a new item from a modifier of its first positions.
  if (PItem* first = chart_.copy_item(modifier, nullptr)) add_item(node, first, last);
}

/// Puts the modifier under all heads at a place. True if there was one that took it.
bool ParseRun::take_heads(const GCate& node, PItem* modifier, const Link& link, PItem* adjunct,
                          int position, int end) {
  bool attached = false;
  for (PItem* head : chart_.bucket(node, position, end)) {
    if (modifier->_low - head->_low > link._max_dist) continue;
    if (!passes(link._modifiee_cond, head)) continue;
    PItem* larger = merge(chart_, grammar_, *modifier, *head, adjunct, position, link);
    if (!larger) continue;
    attached = true;
    if (!add_item(node, larger, link.position())) chart_.give_back(larger);
  }
  return attached;
}

int ParseRun::next_left(const GCate& node, int position, int q, const PItem& item,
                        PItem*& adjunct) const {
  adjunct = nullptr;
  if (q <= 0) return -1;
  if (skips_word(node, position, q) || grammar_.skipped(q)) return q - 1;
  const GCate* adjuncts = node.skips_adjunct(position) ? grammar_.adjunct_node() : nullptr;
  return adjuncts ? before_adjunct(*adjuncts, q, item, adjunct) : -1;
}

/// Before a short adjunct that reaches to the item, or to the commas before it; behind commas it
/// begins with one.
int ParseRun::before_adjunct(const GCate& adjuncts, int q, const PItem& item,
                             PItem*& adjunct) const {
  int end = item._low - 1;
  bool comma = false;
  for (; end > 1; --end) {
    if (grammar_.skipped(end)) continue;
    if (!is_comma(grammar_.word(end))) break;
    comma = true;
  }
  for (PItem* found : chart_.bucket(adjuncts, adjuncts.n_positions(), end)) {
    if (found->_low > q || is_false(*found->_atts, syntax_atts(*found->_atts).guest)) continue;
    int length = found->_high - found->_low;
    // Kept: long-adjunct-ends-search
    if (length >= item._high - item._low || length > kLongestAdjunct) return -1;
    int before = found->_low - 1;
    if (comma && !is_comma(grammar_.word(before))) continue;
    adjunct = found;
    return comma ? before - 1 : before;
  }
  return -1;
}

}  // namespace torvane
