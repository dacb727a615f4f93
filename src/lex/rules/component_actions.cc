// Actions that build an item out of others: its components, ordered by where they start.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"

namespace torvane {

namespace {

void widen(LexItem& item, const LexItem& part) {
  item.low = std::min(item.low, part.low);
  item.high = std::max(item.high, part.high);
}

LexItem* add_component(Match* match, LexItem* item, LexItem* part, const char* role) {
  LexAnalyzer* chart = chart_of(match, item);
  if (!chart || !part || part->analyzer != chart || !chart->add_component(item, part))
    return nullptr;
  part->role = chart->pool_copy(role);
  widen(*item, *part);
  return item;
}

// The longest of the fitting items that end at a position and start in the span.
LexItem* longest_ending(const LexAnalyzer& chart, int end, Word low, Value cond) {
  // A copy, since a condition may change the chart.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const Slist<LexItem*> items = chart.ending_at(end);
  LexItem* longest = nullptr;
  for (LexItem* item : items) {
    if (item->low < low || item->low > end || !Cond(cond).passes(item)) continue;
    if (!longest || item->low < longest->low) longest = item;
  }
  return longest;
}

LexItem* add_components(Match* match, LexItem* item, Word low, Word high, Value cond) {
  LexAnalyzer* chart = chart_of(match, item);
  if (!chart) return nullptr;
  LexItem* whole = chart->copy_item(*item);
  WordSpan span(*chart, low, high);
  for (int i = span.high; i >= span.low; --i) {
    LexItem* part = longest_ending(*chart, i, low, cond);
    if (!part || !chart->add_component(whole, part)) continue;
    i = part->low;
    widen(*whole, *part);
  }
  return chart->add_item(whole, true);
}

/// (combine-lexitems [role] exp [role] exp ...): a new item that begins as the first one and has
/// all of them as components.
class CombineLexItems : public Form<CombineLexItems> {
 public:
  static constexpr const char* kName = "combine-lexitems";
  static constexpr const char* kUsage =
      "`(combine-lexitems [role] exp [role] exp ...)` a new item of all, headed by the first, "
      "asserted";
  CombineLexItems() {
    in_type = type_id_of<Match>();
    out_type = type_id_of<LexItem>();
  }

  void init(World& world, IRSlist* args) override {
    Part part;
    for (IRSlist* item : args->items) {
      if (item->is_atom()) {
        part.role = item->atom;
        part.has_role = true;
      } else {
        part.exp = get_exp(world, item);
        parts_.push_back(std::exchange(part, Part()));
      }
    }
  }

  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    LexItem* whole = nullptr;
    for (const Part& part : parts_) {
      LexItem* item = part.exp.eval(input, input_type).as<LexItem>();
      if (!chart_of(input.as<Match>(), item)) continue;
      if (!whole) whole = begin_with(*item);
      if (!whole->analyzer->add_component(whole, item)) continue;
      if (part.has_role) item->role = whole->analyzer->pool_copy(part.role.c_str());
      widen(*whole, *item);
    }
    return whole ? Value::of(whole->analyzer->add_item(whole, true)) : Value();
  }

 private:
  struct Part {
    std::string role;
    bool has_role = false;
    ExpPtr exp;
  };

  static LexItem* begin_with(const LexItem& first) {
    LexItem* whole = first.analyzer->make_item(first.root, first.meaning.get(), first.low,
                                               first.high, Slist<const char*>());
    whole->head = first.head;
    return whole;
  }

  std::vector<Part> parts_;
};

constexpr Prototype kComponentActionsForms[] = {
    function<add_component>("add-component",
                            "`(add-component item item text)` the second joins the first as a "
                            "component with that role"),
    function<add_components>("add-components",
                             "`(add-components item low high (pred cond))` a copy of the item with "
                             "the items of the span that pass as components"),
    form<CombineLexItems>(),
};

}  // namespace

constinit const Offer offers::component_actions{kComponentActionsForms};

}  // namespace torvane
