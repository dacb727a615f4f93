// The vocabulary of lexical rule actions: what a rule can do with the match it fired on.
//
// All of them are safe on what a rule may hand them: a null, deleted or foreign item, a span that
// is reversed or lies outside the sentence, a chart that a condition changes while it is being
// searched.
#pragma once

#include "lex/patterns/match.h"
#include "lexp/lexp.h"

namespace torvane {

/// A condition that comes as a value, `(pred EXP)`: none passes everything, and what is no
/// expression passes nothing.
class Cond {
 public:
  explicit Cond(Value value) : exp_(value.as<LExp>()), passes_all_(!value) {}
  bool passes(LexItem* item) const;
  bool passes(const LexAnalyzer& chart, const char* word) const;

 private:
  LExp* exp_;
  bool passes_all_;
};

/// The chart that an action on an item works on: that of the match, or without one the item's own.
/// Null for an item of another chart than the match's.
LexAnalyzer* chart_of(const Match* match, const LexItem* item);

/// A stretch of positions, cut to those of the sentence and the place before its first word, where
/// position 0 is; empty (high below low) if none is left.
struct WordSpan {
  WordSpan(const LexAnalyzer& chart, Word from, Word to);
  int low, high;
};

/// Whether the item has exactly this span. (It may have been widened where it stands.)
inline bool has_span(const LexItem& item, Word low, Word high) {
  return item.low == low && item.high == high;
}

/// The items that lie wholly in the span, in chart order.
Slist<LexItem*> items_inside(const LexAnalyzer& chart, Word low, Word high);

}  // namespace torvane
