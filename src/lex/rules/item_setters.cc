// Actions that set one thing of an item: its ends, head, weight, root, or its place in the chart.
#include <algorithm>
#include <limits>

#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"
#include "support/messages.h"

namespace torvane {

namespace {

std::int16_t to_int16(Word n) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<Word>(n, Limits::min(), Limits::max()));
}

LexItem* set_high(Match* match, LexItem* item, Word high) {
  if (!item) messages() << "Cannot set-high a nil lexitem.\n";
  LexAnalyzer* chart = chart_of(match, item);
  if (!chart || high < item->low - 1 || high > chart->last_position()) return nullptr;
  chart->delete_item(item);
  item->high = to_int16(high);
  LexItem* entered = chart->add_item(item, true);
  if (entered != item) chart->delete_item(item);
  return entered;
}

// The item stays in the list of its old start.
LexItem* set_low(Match* match, LexItem* item, Word low) {
  if (!item) messages() << "Cannot set-low a nil lexitem.\n";
  if (!chart_of(match, item) || low < 0 || low > item->high + 1) return nullptr;
  // Kept: set-low-keeps-place
  item->low = to_int16(low);
  return item;
}

LexItem* set_head(Match* match, LexItem* item, Word head) {
  if (!chart_of(match, item)) return nullptr;
  item->head = to_int16(head);
  return item;
}

LexItem* set_weight(Match* match, LexItem* item, Word weight) {
  if (!chart_of(match, item)) return nullptr;
  item->weight = to_int16(weight);
  return item;
}

LexItem* add_weight(Match* match, LexItem* item, Word more) {
  if (!chart_of(match, item)) return nullptr;
  item->weight = to_int16(item->weight + to_int16(more));
  return item;
}

// The root belongs to the innermost component around the item's head word.
LexItem* set_lexitem_root(Match* match, LexItem* item, const char* root) {
  LexAnalyzer* chart = chart_of(match, item);
  if (!chart) return nullptr;
  for (LexItem* outer = nullptr; outer != item;) {
    outer = item;
    for (LexItem* part : outer->components) {
      if (part->head != outer->head) continue;
      item = part;
      break;
    }
  }
  item->root = chart->pool_copy(root);
  return item;
}

LexItem* assert_item(Match* match, LexItem* item) {
  LexAnalyzer* chart = chart_of(match, item);
  return chart ? chart->add_item(item, true) : nullptr;
}

LexItem* duplicate_item(Match* match, LexItem* item) {
  LexAnalyzer* chart = chart_of(match, item);
  return chart ? chart->copy_item(*item) : nullptr;
}

constexpr Prototype kItemSettersForms[] = {
    function<set_high>("set-high", "`(set-high item n)` moves the item's end, in the chart too"),
    function<set_low>(
        "set-low",
        "`(set-low item n)` moves the item's start only; the chart lists it under the old one"),
    function<set_head>("set-head", "`(set-head item n)` the position of the head word"),
    function<set_weight>("set-weight", "`(set-weight item n)` sets the item's weight"),
    function<add_weight>("add-weight", "`(add-weight item n)` adds to the item's weight"),
    function<set_lexitem_root>("set-lexitem-root",
                               "`(set-lexitem-root item text)` the root of the item's head word"),
    function<assert_item>("assert",
                          "`(assert item)` enters the item into the chart, or gives its duplicate"),
    function<duplicate_item>("duplicate-lexitem",
                             "`(duplicate-lexitem item)` a copy, not in the chart"),
};

}  // namespace

constinit const Offer offers::item_setters{kItemSettersForms};

}  // namespace torvane
