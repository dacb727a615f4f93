#include "lex/rules/rule_actions.h"

#include <algorithm>
#include <utility>

#include "lexp/form.h"

namespace torvane {

bool Cond::passes(LexItem* item) const {
  return exp_ ? holds(*exp_, Value::of(item), type_id_of<LexItem>()) : passes_all_;
}

bool Cond::passes(const LexAnalyzer& chart, const char* word) const {
  return exp_ ? holds(*exp_, chart.text_value(word), type_id_of<const char*>()) : passes_all_;
}

LexAnalyzer* chart_of(const Match* match, const LexItem* item) {
  if (!item) return nullptr;
  return !match || match->analyzer == item->analyzer ? item->analyzer : nullptr;
}

WordSpan::WordSpan(const LexAnalyzer& chart, Word from, Word to)
    : low(static_cast<int>(std::clamp<Word>(from, 0, chart.last_position() + 1))),
      high(static_cast<int>(std::clamp<Word>(to, 0, chart.last_position()))) {}

Slist<LexItem*> items_inside(const LexAnalyzer& chart, Word low, Word high) {
  Slist<LexItem*> found;
  WordSpan span(chart, low, high);
  for (int i = span.low; i <= span.high; ++i)
    for (LexItem* item : chart.ending_at(i))
      if (item->low >= low && item->high <= high) found.append(item);
  return found;
}

}  // namespace torvane
