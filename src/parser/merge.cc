// The tying of two items: every test that stands between a modifier and its head, in its order.
#include <utility>

#include "parser/grammar.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"

namespace torvane {
namespace {

// Kept: heads-within-20
constexpr int kMostHeadDistance = 20;

/// One merge in progress.
class Merge {
 public:
  Merge(Link& link, PItem& modifier, PItem& head) : link_(link), modifier_(modifier), head_(head) {}

  PItem* run(PItem* adjunct, int position) {
    if (!check_argument(position) || !check_moved()) return nullptr;
    merged_ = link_._parent->merge_items(&modifier_, &head_, adjunct);
    if (!merged_) return nullptr;
    merged_->_link = &link_;
    merged_->_weight += link_._weight;
    if (hit_ >= 0) discharge(*merged_, hit_);
    if (!combine() || !fill_gap()) return nullptr;
    if (mask_ != 0 && list_of(mod_vec(), syn_.move)) discharge(*merged_, 0);
    if (!passes(link_._merged_cond, merged_)) return nullptr;
    return case_allowed() ? merged_ : nullptr;
  }

 private:
  AttVec& mod_vec() { return *modifier_._atts; }
  AttVec& head_vec() { return *head_._atts; }
  AttVec& merged_vec() { return *merged_->_atts; }
  const AttVec* argument() {
    const AttVecList* args = list_of(head_vec(), syn_.args);
    return args ? args->at(link_._check_arg) : nullptr;
  }

  /// The arguments passed over are optional, and the modifier takes on what the head says of it.
  bool check_argument(int position) {
    if (link_._check_arg < 0) return true;
    const AttVecList* args = list_of(head_vec(), syn_.args);
    for (int i = link_._position - 2; i >= position; --i) {
      const AttVec* skipped = args ? args->at(i) : nullptr;
      if (!skipped || !is_true(*skipped, syn_.opt)) return false;
    }
    // Kept: argument-unify-unasked
    if (const AttVec* arg = argument()) mod_vec().unify(*arg, nullptr, 1);
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
    const AttVec* arg = argument();
    if (!arg || !is_true(*arg, syn_.move)) return true;
    return list_of(merged_vec(), syn_.move) &&
           link_._parent->_parser->insert_empty_category(*merged_, modifier_);
  }

  bool is_preposition(const AttVec& vec) const {
    return syn_.cat_p != 0 && value_of(vec, syn_.cat) == syn_.cat_p;
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

  Link& link_;
  PItem& modifier_;
  PItem& head_;
  const SyntaxAtts& syn_ = syntax_atts(*head_._atts);
  PItem* merged_ = nullptr;
  std::uint32_t mask_ = 0;
  int hit_ = -1;
};

}  // namespace

PItem* GCate::copy_item(const PItem* source, const AttSet* atts) {
  PItem* item = _parser->new_item();
  if (!item) return nullptr;
  item->_low = source->_low;
  item->_high = source->_high;
  item->_atts->unify(*source->_atts, atts, 1);
  item->_head_child = const_cast<PItem*>(source);
  item->_weight += source->_weight;
  return item;
}

PItem* GCate::make_lexical_item(LexItem* lexitem) {
  PItem* item = _parser->new_item();
  if (!item) return nullptr;
  item->_low = lexitem->low;
  item->_high = lexitem->high;
  item->_node = this;
  const AttVec* vec = lexitem->vec();
  if (vec) item->_atts->unify(*vec, nullptr, 1);
  if (!lexitem_of(*item) && item->_low <= item->_high)
    store_att(*item->_atts, syntax_atts(*item->_atts).lexitem, lexitem);
  return item;
}

PItem* GCate::merge(PItem* modifier, PItem* head, PItem* adjunct, int position, Link* link) {
  return Merge(*link, *modifier, *head).run(adjunct, position);
}

PItem* GCate::merge_items(PItem* modifier, PItem* head, PItem* adjunct) {
  bool head_first = head->_low < modifier->_low || head->_high < modifier->_high;
  const PItem* left = head_first ? head : modifier;
  const PItem* right = head_first ? modifier : head;
  if (!_parser->span_allowed(left->_low, right->_high)) return nullptr;
  if (adjunct) {
    head = merge_items(adjunct, head, nullptr);
    if (!head) return nullptr;
    head->_link = _guest_link;
  }
  PItem* item = copy_item(head, nullptr);
  if (!item) return nullptr;
  item->_low = left->_low;
  item->_high = right->_high;
  item->_modifier = modifier;
  int distance = head_position(*right) - head_position(*left);
  if (distance > kMostHeadDistance) return nullptr;
  if (distance > 0) item->_weight += static_cast<float>(distance >> 1);
  item->_weight += modifier->_weight;
  return item;
}

bool TorvaneParser::insert_empty_category(PItem& merged, PItem& modifier) {
  PItem* empty = new_item();
  if (!empty) return false;
  empty->_low = modifier._low;
  empty->_high = static_cast<std::int16_t>(modifier._low - 1);
  empty->_node = _empty_node;
  PItem* gap = _empty_node->merge_items(empty, &modifier, nullptr);
  if (!gap) return false;
  gap->_link = _empty_link;
  discharge(*gap, 0);
  merged._modifier = gap;
  std::swap(merged.order, gap->order);  // an item stands behind what it is made of
  remove_att(*merged._atts, syntax_atts(*merged._atts).move);
  return true;
}

}  // namespace torvane
