// Actions that mark positions for the parser: words to skip, conjunctions, adverbs.
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

}  // namespace

void register_flag_actions(World& world) {
  register_function<&skip>(world, "skip");
  register_function<&flag_adv>(world, "flag-adv");
  register_function<&flag_first>(world, "flag-first-conjunction");
  register_function<&flag_last>(world, "flag-last-conjunction");
}

}  // namespace torvane
