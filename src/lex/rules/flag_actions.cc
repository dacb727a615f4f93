// Actions that mark positions for the parser: words to skip, conjunctions, adverbs.
#include "lex/rules/offers.h"
#include "lex/rules/rule_actions.h"
#include "lexp/form.h"

namespace torvane {

namespace {

void skip(Match* match, Word pos) {
  if (match && pos >= 1 && pos <= match->analyzer->last_position())
    match->analyzer->skipped.set(static_cast<int>(pos));
}

void flag(Match* match, LexItem* item, LBitSet LexAnalyzer::*set) {
  LexAnalyzer* chart = chart_of(match, item);
  if (!chart) return;
  WordSpan span(*chart, item->low, item->high);
  if (span.low <= span.high) (chart->*set).set(span.low, span.high);
}

void flag_adv(Match* match, LexItem* item) {
  flag(match, item, &LexAnalyzer::adverbs);
}
void flag_first(Match* match, LexItem* item) {
  flag(match, item, &LexAnalyzer::first_conjunctions);
}
void flag_last(Match* match, LexItem* item) {
  flag(match, item, &LexAnalyzer::last_conjunctions);
}

constexpr Prototype kFlagActionsForms[] = {
    function<skip>("skip", "`(skip position)` the parser may pass over the word"),
    function<flag_adv>("flag-adv", "`(flag-adv item)` marks the item's words as adverbs"),
    function<flag_first>("flag-first-conjunction",
                         "`(flag-first-conjunction item)` marks the item's words as the first of a "
                         "pair, such as \"both\""),
    function<flag_last>("flag-last-conjunction",
                        "`(flag-last-conjunction item)` marks the item's words as a conjunction "
                        "before the last conjunct"),
};

}  // namespace

constinit const Offer offers::flag_actions{kFlagActionsForms};

}  // namespace torvane
