// Predicates that look around the match: the items and words beside it, in a span, over a span.
#include <algorithm>

#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"

namespace torvane {

namespace {

// How many end positions a covering item is looked for at.
constexpr int kCoveringReach = 7;

// Of a copy, since a test may change the chart.
template <class Test>
// NOLINTNEXTLINE(performance-unnecessary-value-param)
LexItem* first_where(Slist<LexItem*> items, Test test) {
  for (LexItem* item : items)
    if (test(item)) return item;
  return nullptr;
}

LexItem* followed_by(Match* match, Value cond) {
  if (!match) return nullptr;
  return first_where(match->analyzer->starting_at(match->high + 1),
                     [&](LexItem* item) { return Cond(cond).passes(item); });
}

bool word_passes(const LexAnalyzer& chart, int pos, Value cond) {
  const char* word = chart.word(pos);
  return word && Cond(cond).passes(chart, word);
}

bool followed_by_word(Match* match, Value cond) {
  return match && word_passes(*match->analyzer, match->high + 1, cond);
}

bool preceded_by_word(Match* match, Value cond) {
  return match && match->low > 1 && word_passes(*match->analyzer, match->low - 1, cond);
}

LexItem* exist_lexitem(Match* match, Word low, Word high, Value cond) {
  if (!match || high < 0 || high > match->analyzer->last_position()) return nullptr;
  return first_where(match->analyzer->ending_at(static_cast<int>(high)), [&](LexItem* item) {
    return has_span(*item, low < 0 ? item->low : low, high) && Cond(cond).passes(item);
  });
}

Value exist_word_in_sentence(Match* match, Word low, Word high, Value cond) {
  if (!match) return Value();
  const LexAnalyzer& chart = *match->analyzer;
  // Kept: exist-word-stops-short
  WordSpan span(chart, low, std::clamp<Word>(high, 1, chart.last_position() + 1) - 1);
  for (int i = span.low; i <= span.high; ++i)
    if (word_passes(chart, i, cond)) return chart.text_value(chart.word(i));
  return Value();
}

LexItem* exist_covering_lexitem(Match* match, Word low, Word high, Value cond) {
  if (!match || high > match->analyzer->last_position()) return nullptr;
  const LexAnalyzer& chart = *match->analyzer;
  int first = static_cast<int>(std::max<Word>(high, 0));
  int last = std::min(first + kCoveringReach - 1, chart.last_position());
  for (int i = first; i <= last; ++i) {
    LexItem* found = first_where(chart.ending_at(i), [&](LexItem* item) {
      return item->low <= low && Cond(cond).passes(item);
    });
    if (found) return found;
  }
  return nullptr;
}

LexItem* exist_overlapping_lexitem(Match* match, Word low, Word high, Value cond) {
  if (!match) return nullptr;
  const LexAnalyzer& chart = *match->analyzer;
  WordSpan span(chart, low, high);
  for (int i = span.high; i >= span.low; --i) {
    LexItem* found = first_where(chart.ending_at(i), [&](LexItem* item) {
      return item->low < low && Cond(cond).passes(item);
    });
    if (found) return found;
  }
  for (int i = span.low; i <= span.high; ++i) {
    LexItem* found = first_where(chart.starting_at(i), [&](LexItem* item) {
      return item->high > high && Cond(cond).passes(item);
    });
    if (found) return found;
  }
  return nullptr;
}

constexpr Prototype kSearchingActionsForms[] = {
    function<followed_by>(
        "followed-by",
        "`(followed-by (pred cond))` the first item that starts behind the match and passes"),
    function<followed_by_word>("followed-by-word",
                               "`(followed-by-word (pred cond))` the word behind the match passes"),
    function<preceded_by_word>("preceded-by-word",
                               "`(preceded-by-word (pred cond))` the word before the match passes"),
    function<exist_lexitem>("exist-lexitem",
                            "`(exist-lexitem low high (pred cond))` the first item of exactly that "
                            "span that passes; a `low` below 0: any start"),
    function<exist_word_in_sentence, const char*>(
        "exist-word-in-sentence",
        "`(exist-word-in-sentence low high (pred cond))` the first word from `low` to before "
        "`high` that passes"),
    function<exist_covering_lexitem>(
        "exist-covering-lexitem",
        "`(exist-covering-lexitem low high (pred cond))` an item that covers the span and passes"),
    function<exist_overlapping_lexitem>("exist-overlapping-lexitem",
                                        "`(exist-overlapping-lexitem low high (pred cond))` an "
                                        "item that crosses an edge of the span and passes"),
};

}  // namespace

constinit const Offer offers::searching_actions{kSearchingActionsForms};

}  // namespace torvane
