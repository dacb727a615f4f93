// Actions that take items out of the chart. They gather first and delete then.
#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"

namespace torvane {

namespace {

void delete_all(LexAnalyzer& chart, const Slist<LexItem*>& items) {
  for (LexItem* item : items) chart.delete_item(item);
}

template <class Test>
void delete_where(LexAnalyzer& chart, const Slist<LexItem*>& items, Test test) {
  Slist<LexItem*> condemned;
  for (LexItem* item : items)
    if (test(item)) condemned.append(item);
  delete_all(chart, condemned);
}

void delete_one(Match* match, LexItem* item) {
  if (LexAnalyzer* chart = chart_of(match, item)) chart->delete_item(item);
}

void delete_smaller(Match* match, Word low, Word high) {
  if (!match) return;
  WordSpan span(*match->analyzer, low, high);
  match->analyzer->delete_smaller(span.low, span.high);
}

void delete_if(Match* match, Word low, Word high, Value cond) {
  if (!match) return;
  LexAnalyzer& chart = *match->analyzer;
  delete_where(chart, items_inside(chart, low, high),
               [&](LexItem* item) { return Cond(cond).passes(item); });
}

void delete_except(Match* match, Word low, Word high, LexItem* kept) {
  LexAnalyzer* chart = match ? chart_of(match, kept) : nullptr;
  if (!chart || kept->is_deleted()) return;
  delete_where(*chart, items_inside(*chart, low, high),
               [&](LexItem* item) { return item != kept; });
}

void del_following(Match* match, Value cond) {
  if (!match) return;
  LexAnalyzer& chart = *match->analyzer;
  const Slist<LexItem*> items = chart.starting_at(match->high + 1);
  delete_where(chart, items, [&](LexItem* item) { return Cond(cond).passes(item); });
}

void keep_tags(Match* match, Value cond) {
  if (!match) return;
  LexAnalyzer& chart = *match->analyzer;
  const Slist<LexItem*> items = chart.ending_at(match->high);
  delete_where(chart, items, [&](LexItem* item) {
    return has_span(*item, match->low, match->high) && !Cond(cond).passes(item);
  });
}

// Kept: rm-non-max-does-not-delete
void rm_non_max(Match* match) {
  if (match) match->analyzer->keep_longest();
}

constexpr Prototype kDeletingActionsForms[] = {
    function<delete_one>("delete", "`(delete item)` takes the item out of the chart"),
    function<delete_smaller>(
        "delete-smaller", "`(delete-smaller low high)` deletes the items strictly inside the span"),
    function<delete_if>(
        "delete-if",
        "`(delete-if low high (pred cond))` deletes the items inside the span that pass"),
    function<delete_except>(
        "delete-except",
        "`(delete-except low high item)` deletes all items inside the span but this one"),
    function<del_following>(
        "del-following",
        "`(del-following (pred cond))` deletes the items that start behind the match and pass"),
    function<keep_tags>("keep-tags",
                        "`(keep-tags (pred cond))` of the items of exactly the match's span, "
                        "deletes those that fail"),
    function<rm_non_max>(
        "rm-non-max", "`(rm-non-max)` keeps only the longest items, from the end of the sentence"),
};

}  // namespace

constinit const Offer offers::deleting_actions{kDeletingActionsForms};

}  // namespace torvane
