#include "parser/run/merge.h"

#include <algorithm>
#include <utility>

#include "parser/grammar/syntax_atts.h"
#include "support/step_counts.h"

namespace torvane {
namespace {

// Kept: heads-within-20
constexpr int kMostHeadDistance = 20;

/// An item of head and modifier, over both of them; of its head and the adjunct first, if there is
/// one.
PItem* merge_items(Chart& chart, const GCate& node, PItem& modifier, PItem& head, PItem* adjunct) {
  const bool head_first = head._low < modifier._low || head._high < modifier._high;
  const PItem& left = head_first ? head : modifier;
  const PItem& right = head_first ? modifier : head;
  if (!chart.spans.span_allowed(left._low, right._high)) return nullptr;
  const PItem* below = &head;
  if (adjunct) {
    PItem* with_adjunct = merge_items(chart, node, *adjunct, head, nullptr);
    if (!with_adjunct) return nullptr;
    with_adjunct->_link = node._guest_link;
    below = with_adjunct;
  }
  const int distance = head_position(right) - head_position(left);
  if (distance > kMostHeadDistance) {
    chart.pass_over_item();
    return nullptr;
  }
  PItem* item = chart.copy_item(below, nullptr);
  if (!item) return nullptr;
  item->_low = left._low;
  item->_high = right._high;
  item->_modifier = &modifier;
  if (distance > 0) item->_weight += static_cast<float>(distance >> 1);
  item->_weight += modifier._weight;
  return item;
}

/// Marks in a merged item that an argument's gap was filled; false if there is no room for it.
bool insert_empty_category(Chart& chart, const Grammar& grammar, PItem& merged, PItem& modifier) {
  PItem* empty = chart.new_item();
  if (!empty) return false;
  empty->_low = modifier._low;
  empty->_high = static_cast<std::int16_t>(modifier._low - 1);
  empty->_node = &grammar.empty_node();
  PItem* gap = merge_items(chart, grammar.empty_node(), *empty, modifier, nullptr);
  if (!gap) return false;
  gap->_link = &grammar.empty_link();
  discharge(*gap, 0);
  merged._modifier = gap;
  std::swap(merged.order, gap->order);  // an item stands behind what it is made of
  remove_att(*merged._atts, syntax_atts(*merged._atts).move);
  return true;
}

/// One merge in progress.
class Merge {
 public:
  Merge(Chart& chart, const Grammar& grammar, const Link& link, PItem& modifier, PItem& head)
      : chart_(chart), grammar_(grammar), link_(link), modifier_(modifier), head_(head) {}

  PItem* run(PItem* adjunct, int position) {
    count(Step::merge);
    if (!tested(check_argument(position), Step::refused_argument) ||
        !tested(check_moved(), Step::refused_moved))
      return nullptr;
    merged_ = merge_items(chart_, *link_._parent, modifier_, head_, adjunct);
    if (!tested(merged_ != nullptr, Step::refused_reach)) return nullptr;
    merged_->_link = &link_;
    merged_->_weight += link_.weight();
    if (hit_ >= 0) discharge(*merged_, hit_);
    if (combines()) return merged_;
    chart_.give_back(merged_);
    return nullptr;
  }

  /// As `run`, with what `run` does not tell.
  WatchedMerge watch(PItem* adjunct, int position) {
    if (!check_argument(position)) return {MergeTest::argument, nullptr, {}, {}};
    if (!check_moved()) return {MergeTest::moved, nullptr, {}, {}};
    if (chart_.is_exhausted()) return {MergeTest::pool, nullptr, {}, {}};
    merged_ = merge_items(chart_, *link_._parent, modifier_, head_, adjunct);
    if (!merged_) {
      const bool allowed = chart_.spans.span_allowed(std::min(head_._low, modifier_._low),
                                                     std::max(head_._high, modifier_._high));
      return {allowed ? MergeTest::distance : MergeTest::span, nullptr, {}, {}};
    }
    merged_->_link = &link_;
    merged_->_weight += link_.weight();
    if (hit_ >= 0) discharge(*merged_, hit_);
    WatchedMerge result{MergeTest::none, merged_, make_ref<AttVec>(merged_vec()), {}};
    if (!combine()) {
      result.refused = MergeTest::unification;
    } else if (!fill_gap()) {
      result.refused = MergeTest::gap;
    } else {
      if (mask_ != 0 && list_of(mod_vec(), syn_.move)) discharge(*merged_, 0);
      const ExpPtr& cond = link_._merged_cond;
      if (cond && !cond->watch(Value::of(merged_), p_item_type(), result.refusal)) {
        result.refused = MergeTest::merged;
      } else if (!case_allowed()) {
        result.refused = MergeTest::mark;
      }
    }
    return result;
  }

 private:
  bool combines() {
    if (!tested(combine(), Step::refused_unification) || !tested(fill_gap(), Step::refused_gap))
      return false;
    if (mask_ != 0 && list_of(mod_vec(), syn_.move)) discharge(*merged_, 0);
    return tested(passes(link_._merged_cond, merged_), Step::refused_merged) &&
           tested(case_allowed(), Step::refused_case);
  }

  AttVec& mod_vec() { return *modifier_._atts; }
  AttVec& head_vec() { return *head_._atts; }
  AttVec& merged_vec() { return *merged_->_atts; }
  const AttVec* argument(int i) { return argument_of(head_vec(), syn_.args, i); }

  /// The arguments passed over are optional, and the modifier takes on what the head says of it.
  bool check_argument(int position) {
    if (link_._check_arg < 0) return true;
    for (int i = link_.position() - 2; i >= position; --i) {
      const AttVec* skipped = argument(i);
      if (!skipped || !is_true(*skipped, syn_.opt)) return false;
    }
    // Kept: argument-unify-unasked
    if (const AttVec* arg = argument(link_._check_arg)) mod_vec().unify(*arg, nullptr, 1);
    return true;
  }

  /// The modifier fills at most one of the head's displaced constituents.
  bool check_moved() {
    mask_ = link_._check | static_cast<std::uint32_t>(value_of(mod_vec(), syn_.check));
    const AttVecList* moved = list_of(head_vec(), syn_.move);
    if (!moved || mask_ == 0 || link_._check_arg >= 0) return true;
    for (int i = 0; i < moved->length(); ++i) {
      const AttVec& element = *moved->at(i);
      if ((value_of(element, syn_.slash) & mask_) == 0) continue;
      if (hit_ >= 0) return false;
      if (!mod_vec().unify(element, nullptr, 1)) return false;
      hit_ = i;
    }
    return true;
  }

  bool combine() {
    const AttVecList* mod_move = list_of(mod_vec(), syn_.move);
    bool folds = mod_move && list_of(head_vec(), syn_.move) && !is_true(head_vec(), syn_.control);
    if (!folds) return merged_vec().unify(mod_vec(), &link_._percolate, 1);
    AttSet others = link_._percolate;
    others.clear(syn_.move);
    if (!others.is_empty() && !merged_vec().unify(mod_vec(), &others, 1)) return false;
    return fold_moves(*mod_move);
  }

  /// Adds the modifier's displaced constituents to the head's.
  bool fold_moves(const AttVecList& mod_move) {
    AttVecList* list = own_list(merged_vec(), syn_.move);
    if (!list) {
      Ref<AttVecList> fresh = AttVecList::make();
      store_att(merged_vec(), syn_.move, fresh.get());
      list = fresh.get();
    }
    for (const Ref<AttVec>& element : mod_move.vecs)
      if (!fold_move(*list, mod_move, element)) return false;
    return true;
  }
  bool fold_move(AttVecList& list, const AttVecList& mod_move, const Ref<AttVec>& element) {
    AttWord slash = value_of(*element, syn_.slash);
    int same = find_slash(list, slash);
    if (same < 0) {
      list.vecs.append(element);
      return true;
    }
    if (slash == syn_.wh) {
      // Kept: wh-unify-unasked
      list.own(same)->unify(*element, nullptr, 1);
      return true;
    }
    if (find_slash(list, syn_.wh) >= 0 || find_slash(mod_move, syn_.wh) >= 0) return false;
    auto displaced = make_ref<AttVec>(*element);
    store_att(*displaced, syn_.slash, syn_.wh);
    list.vecs.append(displaced);
    return true;
  }
  int find_slash(const AttVecList& list, AttWord slash) const {
    for (int i = 0; i < list.length(); ++i)
      if (value_of(*list.at(i), syn_.slash) == slash) return i;
    return -1;
  }

  /// An argument with a gap in it leaves an empty category behind.
  bool fill_gap() {
    if (link_._check_arg < 0) return true;
    const AttVec* arg = argument(link_._check_arg);
    if (!arg || !is_true(*arg, syn_.move)) return true;
    return list_of(merged_vec(), syn_.move) &&
           insert_empty_category(chart_, grammar_, *merged_, modifier_);
  }

  bool case_allowed() {
    if (!is_false(merged_vec(), syn_.cm)) return true;
    if (is_preposition(head_vec()) || is_preposition(mod_vec())) remove_att(merged_vec(), syn_.cm);
    if (!is_false(mod_vec(), syn_.cm)) return true;
    if (is_false(head_vec(), syn_.govern)) return true;
    if (list_of(head_vec(), syn_.move)) {
      remove_att(merged_vec(), syn_.cm);
      return true;
    }
    return is_false(head_vec(), syn_.cm);
  }

  Chart& chart_;
  const Grammar& grammar_;
  const Link& link_;
  PItem& modifier_;
  PItem& head_;
  const SyntaxAtts& syn_ = syntax_atts(*head_._atts);
  PItem* merged_ = nullptr;
  std::uint32_t mask_ = 0;
  int hit_ = -1;
};

}  // namespace

PItem* merge(Chart& chart, const Grammar& grammar, PItem& modifier, PItem& head, PItem* adjunct,
             int position, const Link& link) {
  return Merge(chart, grammar, link, modifier, head).run(adjunct, position);
}

WatchedMerge watch_merge(Chart& chart, const Grammar& grammar, PItem& modifier, PItem& head,
                         PItem* adjunct, int position, const Link& link) {
  return Merge(chart, grammar, link, modifier, head).watch(adjunct, position);
}

}  // namespace torvane
