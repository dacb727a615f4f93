#include "why/link_trial.h"

#include <algorithm>
#include <utility>

#include "parser/grammar/syntax_atts.h"
#include "why/quotes.h"

namespace torvane {
namespace {

WhyReason reason_of(WhyKind kind, std::string text) {
  WhyReason reason;
  reason.kind = kind;
  reason.text = std::move(text);
  return reason;
}

/// Calls `visit(end, adjunct)` for the places where a neighbour of the item may end.
template <class Visit>
void for_each_end(const RunReplay& replay, const GCate& node, int skipping, const PItem& item,
                  Visit visit) {
  PItem* adjunct = nullptr;
  for (int end = item._low - 1; end >= 0;
       end = replay.next_left(node, skipping, end, item, adjunct))
    visit(end, adjunct);
}

}  // namespace

LinkTrial::LinkTrial(TorvaneParser& parser, const WordWay& modifier, const WordWay& head,
                     const Link& link)
    : parser_(parser),
      replay_(parser),
      modifier_(modifier),
      head_(head),
      link_(link),
      parent_(*link._parent),
      before_(link.position() < parent_.head()) {}

Outcome LinkTrial::run() {
  if (before_ != (modifier_.word() < head_.word())) {
    best_.improve(Stage::side,
                  reason_of(WhyKind::wrong_side, "the link takes what stands " +
                                                     std::string(before_ ? "before" : "behind") +
                                                     " the head"));
    return best_;
  }
  find_candidates();
  if (candidates_.empty()) {
    best_.improve(Stage::item, modifier_.missing(*link_._child));
    return best_;
  }
  const int made = parser_.chart.items_made();
  if (before_) {
    look_before();
  } else {
    look_behind();
  }
  parser_.chart.forget_after(made);
  if (heads_.empty()) {
    best_.improve(Stage::item, head_.no_beginning(parent_));
  } else {
    tell_distant();
  }
  return best_;
}

void LinkTrial::find_candidates() {
  for (const Placed& placed : modifier_.complete(*link_._child))
    candidates_.push_back({placed.item, passes(link_._modifier_cond, &*ScratchItem(*placed.item))});
}

WhyReason LinkTrial::refusal_of(const Candidate& candidate) const {
  Refusal refusal;
  ScratchItem scratch(*candidate.item);
  link_._modifier_cond->watch(Value::of(&*scratch), p_item_type(), refusal);
  return condition_reason(parser_._world,
                          "the modifier-cond for " + quoted(parser_.grammar, *candidate.item),
                          refusal, link_._modifier_cond);
}

void LinkTrial::look_before() {
  for (ScratchItem& head : head_.beginnings(parent_)) extend(*head, parent_.head());
}

/// As the parser does, builds the heads that could stand right behind the modifier.
void LinkTrial::extend(PItem& head, int position) {
  if (heads_left_-- <= 0) return;
  heads_.push_back({head._low, head._high});
  const int last = parent_.repeats(position) ? position : position - 1;
  for (int p = last; p >= 0; --p) {
    for_each_end(replay_, parent_, p, head, [&](int end, PItem* adjunct) {
      if (p == link_.position())
        for (const Candidate& candidate : candidates_)
          if (candidate.item->_high == end) meet(head, adjunct, p, candidate);
      take_others(head, p, end, adjunct);
    });
    if (parent_.required(p)) break;
  }
  for (const Candidate& candidate : candidates_) tell_positions(head, *candidate.item, position);
}

void LinkTrial::take_others(PItem& head, int position, int end, PItem* adjunct) {
  if (end <= modifier_.word()) return;
  for (const Link* link : parent_.links_at(position)) {
    if (head._high - end > link->_max_dist) continue;
    for (PItem* other : parser_.chart.waiting_at(*link, end)) {
      if (other->_low <= modifier_.word() || heads_left_ <= 0) continue;
      ScratchItem scratch(head);
      if (!passes(link->_modifiee_cond, &*scratch)) continue;
      PItem* larger = merge(parser_.chart, parser_.grammar, *ScratchItem(*other), *scratch, adjunct,
                            position, *link);
      if (!larger) continue;
      ScratchItem kept(*larger);
      parser_.chart.give_back(larger);
      kept->_modifier = other;
      kept->_head_child = &head;
      kept->head_word = nullptr;
      extend(*kept, position);
    }
  }
}

/// Heads that stand where they have to, but have gone on to other positions.
void LinkTrial::look_behind() {
  const int last = link_.position();
  for (const Placed& head : head_.stored(parent_)) {
    if (head.position == parent_.n_positions()) continue;
    heads_.push_back({head.item->_low, head.item->_high});
  }
  for (const Candidate& candidate : candidates_) {
    const int from = parent_.repeats(last) ? last : last - 1;
    for (int p = from; p >= std::max(parent_.head(), 0); --p) {
      for_each_end(replay_, parent_, last, *candidate.item, [&](int end, PItem* adjunct) {
        for (PItem* head : parser_.chart.bucket(parent_, p, end))
          if (has_head(*head, head_.word())) meet(*head, adjunct, p, candidate);
      });
      if (parent_.required(p)) break;
    }
    for_each_end(replay_, parent_, last, *candidate.item, [&](int end, PItem*) {
      for (const Placed& head : head_.stored(parent_))
        if (head.item->_high == end && head.position < parent_.n_positions())
          tell_positions(*head.item, *candidate.item, head.position);
    });
  }
}

/// A neighbour is there, but the head is not at the position where it could take it.
void LinkTrial::tell_positions(const PItem& head, const PItem& modifier, int filled) {
  const int wanted = link_.position();
  const bool meets = before_ ? modifier._high + 1 == head._low : modifier._low > head._high;
  if (!meets || best_.stage >= Stage::position) return;
  const std::string whose = parent_._name + " " + quoted(parser_.grammar, head);
  const bool is_past = before_ ? filled < wanted : filled > wanted;
  if (is_past || (filled == wanted && !parent_.repeats(wanted) && wanted != parent_.head())) {
    best_.improve(Stage::position,
                  reason_of(WhyKind::passed,
                            whose + (is_past ? " has gone past the position of the link"
                                             : " has filled the position of the link already")));
    return;
  }
  const int step = before_ ? -1 : 1;
  for (int p = filled + step; p != wanted; p += step)
    if (parent_.required(p)) {
      best_.improve(Stage::position,
                    reason_of(WhyKind::required_empty,
                              whose + " must first have, nearer to it: " + fillers(parent_, p)));
      return;
    }
}

void LinkTrial::meet(PItem& head, PItem* adjunct, int position, const Candidate& candidate) {
  if (ties_left_-- <= 0) return;
  const PItem& modifier = *candidate.item;
  const int reach = before_ ? head._high - modifier._high : modifier._low - head._low;
  WhyReason first;
  if (!candidate.passes) {
    first = refusal_of(candidate);
    best_.improve(Stage::modifier, first);
  } else if (reach > link_._max_dist) {
    best_.improve(Stage::distance,
                  reason_of(WhyKind::too_far, "it reaches over " + std::to_string(reach) +
                                                  " words, and the link over no more than " +
                                                  std::to_string(link_._max_dist)));
  } else {
    Outcome end = tie(head, adjunct, position, modifier);
    first = end.reason;
    best_.improve(end.stage, std::move(end.reason));
  }
  if (reach <= link_._max_dist && (modifier._next || head._next))
    meet_alternatives(head, adjunct, position, candidate, first);
}

/// What was equal to an earlier phrase never went on by itself, but might have been taken.
void LinkTrial::meet_alternatives(const PItem& head, PItem* adjunct, int position,
                                  const Candidate& candidate, const WhyReason& first) {
  const PItem& modifier = *candidate.item;
  for (const PItem* m = &modifier; m && best_.stage < Stage::equal; m = m->_next) {
    if (head_position(*m) != modifier_.word()) continue;
    if (!passes(link_._modifier_cond, &*ScratchItem(*m))) continue;
    for (const PItem* h = &head; h; h = h->_next) {
      if ((m == &modifier && h == &head) || head_position(*h) != head_.word()) continue;
      if (ties_left_-- <= 0) return;
      if (tie(*h, adjunct, position, *m).stage < Stage::made) continue;
      const PItem& before = m != &modifier ? modifier : head;
      WhyReason reason =
          reason_of(WhyKind::equal_item,
                    "an equal " + node_of(before)->_name + " " + quoted(parser_.grammar, before) +
                        " was there before, and went on in place of the one that fits");
      reason.place = first.place;
      if (!first.text.empty()) reason.details.push_back("of that one: " + first.text);
      for (const std::string& detail : first.details) reason.details.push_back(detail);
      best_.improve(Stage::equal, std::move(reason));
      return;
    }
  }
}

/// All tests that stand between two neighbours.
Outcome LinkTrial::tie(const PItem& head, PItem* adjunct, int position, const PItem& modifier) {
  Outcome end;
  ScratchItem scratch_head(head), scratch_modifier(modifier);
  if (link_._modifiee_cond) {
    Refusal refusal;
    if (!link_._modifiee_cond->watch(Value::of(&*scratch_head), p_item_type(), refusal)) {
      end.improve(
          Stage::modifiee,
          condition_reason(parser_._world, "the modifiee-cond for " + quoted(parser_.grammar, head),
                           refusal, link_._modifiee_cond));
      return end;
    }
  }
  const WatchedMerge merge = watch_merge(parser_.chart, parser_.grammar, *scratch_modifier,
                                         *scratch_head, adjunct, position, link_);
  end = merge.refused == MergeTest::none ? end_of_whole(*merge.item)
                                         : end_of_merge(merge, head, modifier);
  if (merge.item) parser_.chart.give_back(merge.item);
  return end;
}

Outcome LinkTrial::end_of_merge(const WatchedMerge& merge, const PItem& head,
                                const PItem& modifier) {
  const Grammar& grammar = parser_.grammar;
  const std::string both = quoted(grammar, modifier) + " and " + quoted(grammar, head);
  Outcome end;
  switch (merge.refused) {
    case MergeTest::none:
      break;
    case MergeTest::argument:
      end.improve(Stage::merge,
                  reason_of(WhyKind::frame, "the frame of " + quoted(grammar, head) +
                                                " asks for another argument before this one"));
      break;
    case MergeTest::moved:
      end.improve(Stage::merge, reason_of(WhyKind::moved, quoted(grammar, modifier) +
                                                              " does not fill what is missing in " +
                                                              quoted(grammar, head)));
      break;
    case MergeTest::span:
      end.improve(Stage::merge, reason_of(WhyKind::isolated, "a rule has isolated a stretch that " +
                                                                 both + " reach across"));
      break;
    case MergeTest::distance:
      end.improve(Stage::merge,
                  reason_of(WhyKind::too_far, "the heads of " + both +
                                                  " are more than 20 words apart, and no link "
                                                  "reaches farther"));
      break;
    case MergeTest::pool:
      end.improve(Stage::merge, reason_of(WhyKind::cut,
                                          "the sentence had used up all the phrases that one "
                                          "may have"));
      break;
    case MergeTest::unification: {
      const std::string clash = clashes(*merge.before, *modifier._atts, link_._percolate);
      end.improve(Stage::merge,
                  reason_of(WhyKind::attribute,
                            clash.empty() ? "what is missing in " + both + " cannot be both"
                                          : "values of " + both + " do not unify: " + clash));
      if (clash.empty()) end.reason.kind = WhyKind::moved;
      break;
    }
    case MergeTest::gap:
      end.improve(Stage::merge,
                  reason_of(WhyKind::moved, "the argument must have a gap, and " +
                                                quoted(grammar, modifier) + " has none"));
      break;
    case MergeTest::merged:
      end.improve(
          Stage::merged,
          condition_reason(parser_._world, "the merged-cond for " + quoted(grammar, *merge.item),
                           merge.refusal, link_._merged_cond));
      break;
    case MergeTest::mark:
      end.improve(Stage::merged,
                  reason_of(WhyKind::case_mark, quoted(grammar, modifier) +
                                                    " is a phrase that needs case, and " +
                                                    quoted(grammar, head) + " gives it none"));
      break;
  }
  return end;
}

/// What was made has to be stored: it must be of use as it is, or with what comes later.
Outcome LinkTrial::end_of_whole(const PItem& merged) {
  const int position = link_.position();
  const std::string whose = parent_._name + " " + quoted(parser_.grammar, merged);
  Outcome end;
  end.stage = Stage::made;
  if (before_ && parent_.any_required(0, position)) {
    for (int p = position - 1; p >= 0; --p)
      if (parent_.required(p)) {
        end.stage = Stage::whole;
        end.reason =
            reason_of(WhyKind::required_empty,
                      "it was made, but " + whose + " must have before it: " + fillers(parent_, p));
        return end;
      }
  }
  const int filled = before_ ? parent_.head() : position;
  if (parent_._is_subcat || parent_.any_required(filled + 1, parent_.n_positions())) return end;
  ScratchItem scratch(merged);
  Refusal refusal;
  if (!parent_._full_cond ||
      parent_._full_cond->watch(Value::of(&*scratch), p_item_type(), refusal))
    return end;
  end.stage = Stage::whole;
  end.reason =
      condition_reason(parser_._world, "it was made, but the condition on a whole " + whose,
                       refusal, parent_._full_cond);
  end.reason.kind = WhyKind::incomplete;
  return end;
}

/// No two of the phrases were neighbours: the nearest ones tell what lies between.
void LinkTrial::tell_distant() {
  if (best_.stage >= Stage::distant) return;
  const Candidate* nearest = nullptr;
  Span head{0, 0};
  int least = 0;
  for (const Candidate& candidate : candidates_)
    for (const Span& span : heads_) {
      const int gap = before_ ? span.low - candidate.item->_high : candidate.item->_low - span.high;
      if (gap <= 0 || (nearest && gap >= least)) continue;
      nearest = &candidate;
      head = span;
      least = gap;
    }
  const Grammar& grammar = parser_.grammar;
  if (!nearest) {
    best_.improve(Stage::distant,
                  reason_of(WhyKind::not_neighbours,
                            "every complete " + link_._child->_name + " with " +
                                quoted(grammar, modifier_.word(), modifier_.word()) +
                                " as its head reaches over " + parent_._name + " " +
                                quoted(grammar, heads_.front().low, heads_.front().high)));
    return;
  }
  if (!nearest->passes && best_.stage < Stage::far_modifier)
    best_.improve(Stage::far_modifier, refusal_of(*nearest));
  const int from = before_ ? nearest->item->_high + 1 : head.high + 1;
  const int to = before_ ? head.low - 1 : nearest->item->_low - 1;
  WhyReason reason =
      reason_of(WhyKind::not_neighbours,
                link_._child->_name + " " + quoted(grammar, *nearest->item) + " and " +
                    parent_._name + " " + quoted(grammar, head.low, head.high) + " do not meet");
  if (from <= to)
    reason.details.push_back(quoted(grammar, from, to) +
                             " lies between, and no phrase of the one or the other takes it in");
  best_.improve(Stage::distant, std::move(reason));
}

}  // namespace torvane
