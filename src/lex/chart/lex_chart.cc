// The chart of an analyser: its items, their order, and what the rules do to them.

#include <algorithm>
#include <ostream>

#include "lex/chart/lex_analyzer.h"
#include "lexp/form.h"
#include "support/depth.h"

namespace torvane {
namespace {

// Components may be shared, so that as a tree an item can be far larger than the chart. No walk
// over the tree goes further than this.
constexpr int kMostParts = 100000;
thread_local DepthLimit parts_limit{"LexItem: components are nested too deeply"};

/// A position as items keep it; what does not fit is no position.
std::int16_t position(int n) {
  return static_cast<std::int16_t>(n >= 0 && n <= INT16_MAX ? n : -1);
}

template <class GoesBefore>
void insert_ordered(Slist<LexItem*>& list, LexItem* item, GoesBefore goes_before) {
  if (list.empty() || !goes_before(item, list.back())) {
    list.append(item);
    return;
  }
  auto stands_behind = [&](const LexItem* other) { return goes_before(item, other); };
  list.insert_after(list.place_before(stands_behind), item);
}

/// Calls `visit(item, depth)` for an item and all its components, depth first.
template <class Visit>
void walk_parts(LexItem* item, int depth, int& budget, Visit& visit) {
  DepthGuard guard(parts_limit);
  if (!guard || budget-- <= 0) return;
  visit(item, depth);
  for (LexItem* part : item->components) walk_parts(part, depth + 1, budget, visit);
}
template <class Visit>
void walk_parts(LexItem* item, int depth, Visit visit) {
  int budget = kMostParts;
  walk_parts(item, depth, budget, visit);
}

}  // namespace

const Slist<LexItem*>& LexAnalyzer::items_at(const std::vector<Slist<LexItem*>>& chart, int i) {
  static const Slist<LexItem*> none;
  return i >= 0 && static_cast<std::size_t>(i) < chart.size() ? chart[static_cast<std::size_t>(i)]
                                                              : none;
}

void LexAnalyzer::need_positions(int count) {
  auto size = static_cast<std::size_t>(count);
  if (ends_at_.size() >= size) return;
  ends_at_.resize(size);
  starts_at_.resize(size);
}

LexItem* LexAnalyzer::new_item() {
  if (free_items_.empty()) free_items_.push_back(&item_pool_.emplace_back());
  LexItem* item = free_items_.back();
  free_items_.pop_back();
  *item = LexItem();
  item->analyzer = this;
  all_items_.append(item);
  return item;
}

LexItem* LexAnalyzer::make_item(const char* root, const Meaning* meaning, int low, int high,
                                const Slist<const char*>& affixes) {
  LexItem* item = new_item();
  item->low = item->head = position(low);
  item->high = position(high);
  item->root = pool_.copy(root);
  item->affixes = affixes;
  set_meaning(*item, meaning);
  return item;
}

void LexAnalyzer::set_meaning(LexItem& item, const Meaning* meaning) {
  item.meaning = meaning ? meaning->clone() : nullptr;
  if (AttVec* vec = item.vec()) vec->era = Ref<Era>(eras_.now());
}

LexItem* LexAnalyzer::duplicate_of(const LexItem& item) const {
  if (!item.meaning) return nullptr;
  for (LexItem* known : ending_at(item.high))
    if (known->low == item.low && known->meaning &&
        byte_compare(or_empty(known->root), or_empty(item.root)) == 0 &&
        known->meaning->compare(item.meaning.get()) == Subsumption::equal)
      return known;
  return nullptr;
}

LexItem* LexAnalyzer::add_item(LexItem* item, bool check_dup) {
  if (!item || item->low < 0 || item->high < 0 || item->high < item->low - 1) return nullptr;
  item->deleted_ = false;
  if (check_dup)
    if (LexItem* known = duplicate_of(*item)) return known;
  if (hook)
    walk_parts(item, 0, [this](LexItem* part, int) {
      holds(*hook.get(), Value::of(part), type_id_of<LexItem>());
    });
  unlink(item);
  link(item);
  return item;
}

void LexAnalyzer::link(LexItem* item) {
  need_positions(std::max(item->low, item->high) + 1);
  item->chart_low_ = item->low;
  item->chart_high_ = item->high;
  insert_ordered(ends_at_[static_cast<std::size_t>(item->high)], item,
                 [](const LexItem* a, const LexItem* b) {
                   return !a->is_empty() && (b->is_empty() || a->low > b->low);
                 });
  insert_ordered(starts_at_[static_cast<std::size_t>(item->low)], item,
                 [](const LexItem* a, const LexItem* b) { return a->high > b->high; });
}

void LexAnalyzer::unlink(LexItem* item) {
  if (!item->in_chart()) return;
  auto remove_from = [item](std::vector<Slist<LexItem*>>& chart, int i) {
    if (static_cast<std::size_t>(i) < chart.size()) chart[static_cast<std::size_t>(i)].remove(item);
  };
  remove_from(ends_at_, item->chart_high_);
  remove_from(starts_at_, item->chart_low_);
  item->chart_low_ = item->chart_high_ = -1;
}

void LexAnalyzer::delete_item(LexItem* item) {
  if (!item) return;
  item->deleted_ = true;
  unlink(item);
  if (losses) losses->push_back({item, rule_in_hand});
}

void LexAnalyzer::delete_smaller(int low, int high) {
  low = std::max(low, 0);
  high = std::min(high, last_position());
  // Kept: delete-smaller-of-one-word
  if (low == high) return;
  for (int i = high; i >= low; --i) {
    const Slist<LexItem*> items = ending_at(i);
    for (LexItem* item : items)
      if (item->low > low || (item->low == low && item->high < high)) delete_item(item);
  }
}

void LexAnalyzer::keep_longest() {
  auto empty_end = [this](int end) {
    Slist<LexItem*>& items = ends_at_[static_cast<std::size_t>(end)];
    for (LexItem* item : items) {
      item->chart_high_ = -1;
      if (losses) losses->push_back({item, rule_in_hand});
    }
    items.clear();
  };
  for (int i = last_position(); i >= 1;) {
    LexItem* longest = nullptr;
    for (LexItem* item : ending_at(i))
      if (!longest || item->low < longest->low) longest = item;
    if (!longest) {
      --i;
      continue;
    }
    empty_end(i);
    ends_at_[static_cast<std::size_t>(i)].append(longest);
    longest->chart_high_ = static_cast<std::int16_t>(i);
    for (int k = i - 1; k >= longest->low; --k) empty_end(k);
    i = longest->low <= i ? longest->low - 1 : i - 1;
  }
}

LexItem* LexAnalyzer::copy_item(const LexItem& item) {
  int budget = kMostParts;
  return copy_parts(item, budget);
}

LexItem* LexAnalyzer::copy_parts(const LexItem& item, int& budget) {
  DepthGuard guard(parts_limit);
  if (!guard || budget-- <= 0) return nullptr;
  LexItem* copy = new_item();
  copy->high = item.high;
  copy->low = item.low;
  copy->head = item.head;
  copy->weight = item.weight;
  copy->root = item.root;
  copy->role = item.role;
  copy->category = item.category;
  copy->entry_key = item.entry_key;
  copy->affixes = item.affixes;
  set_meaning(*copy, item.meaning.get());
  for (const LexItem* part : item.components)
    if (LexItem* part_copy = copy_parts(*part, budget)) copy->components.append(part_copy);
  return copy;
}

bool LexAnalyzer::add_component(LexItem* item, LexItem* part) {
  if (!item || !part) return false;
  int budget = kMostParts;
  bool inside = false;
  auto look = [&](LexItem* below, int) { inside |= below == item; };
  walk_parts(part, 0, budget, look);
  if (inside || budget <= 0) return false;
  insert_ordered(item->components, part,
                 [](const LexItem* a, const LexItem* b) { return a->low < b->low; });
  return true;
}

void LexAnalyzer::print(std::ostream& out) const {
  for_each_item([&](LexItem* item) { print_item(out, *item, 0); });
}

void LexAnalyzer::print_item(std::ostream& out, const LexItem& item, int depth) const {
  walk_parts(const_cast<LexItem*>(&item), depth,
             [&](const LexItem* part, int level) { print_line(out, *part, level); });
}

void LexAnalyzer::print_line(std::ostream& out, const LexItem& item, int depth) const {
  for (int i = 0; i < depth; ++i) out << "  ";
  out << '[' << item.low << ',' << item.high << ']';
  if (item.category) out << ' ' << item.category;
  out << ' ';
  for (int i = std::max<int>(item.low, 1); i <= item.high && i <= last_position(); ++i) {
    if (i > item.low && *gap(i)) out << ' ';
    out << or_empty(word(i));
  }
  out << ' ';
  if (item.meaning) item.meaning->print(out);
  if (!item.affixes.empty()) {
    out << " (affixes";
    for (const char* affix : item.affixes) out << ' ' << affix;
    out << ')';
  }
  out << " w=" << item.weight << " hd=" << item.head;
  if (item.root) out << " (root " << item.root << ')';
  out << '\n';
}

}  // namespace torvane
