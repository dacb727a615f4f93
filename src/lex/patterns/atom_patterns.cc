#include "lex/patterns/atom_patterns.h"

#include <algorithm>

#include "lexp/form.h"
#include "support/text.h"

namespace torvane {

namespace {

bool is_word_position(const MatchRun& run, int pos) {
  return pos >= 1 && pos <= run.analyzer.last_position();
}

bool passes_item(const ExpPtr& exp, LexItem* item) {
  return passes(exp, Value::of(item), type_id_of<LexItem>());
}

}  // namespace

void LexItemPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  if (pos < 1) return;
  LexAnalyzer& chart = run.analyzer;
  bool at_end = anchor == Anchor::end;
  // The expression may change the chart.
  const Slist<LexItem*> items = at_end ? chart.ending_at(pos) : chart.starting_at(pos);
  for (LexItem* item : items) {
    if (!passes_item(exp, item)) continue;
    results.add(Match::make(&chart, at_end ? item->low : pos, at_end ? pos : item->high, item));
  }
  results.finish();
}

// Kept: dot-takes-words
void DotPat::find(MatchRun& run, Anchor, int pos, MatchList& results) const {
  if (is_word_position(run, pos)) results.add(Match::make(&run.analyzer, pos, pos));
}

void NotInLexPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  if (!is_word_position(run, pos)) return;
  LexAnalyzer& chart = run.analyzer;
  bool none = anchor == Anchor::end ? chart.ending_at(pos).empty() : chart.starting_at(pos).empty();
  if (none) results.add(Match::make(&chart, pos, pos));
}

void BeginPat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  // Kept: begin-covers-position-0
  if (anchor == Anchor::end && pos < 1) results.add(Match::make(&run.analyzer, pos, pos));
  if (anchor == Anchor::start && pos < 2) results.add(Match::make(&run.analyzer, pos, pos - 1));
}

void EndPat::find(MatchRun& run, Anchor, int pos, MatchList& results) const {
  // Kept: end-alone-never-matches
  if (pos > 0 && pos == run.analyzer.word_count())
    results.add(Match::make(&run.analyzer, pos, pos));
}

void WholeSentencePat::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  int last = run.analyzer.last_position();
  // Kept: whole-sentence-forward
  if (last > 0 && pos == (anchor == Anchor::end ? last : 0))
    results.add(Match::make(&run.analyzer, 0, last));
}

void WordSeq::init(World&, IRSlist* args) {
  while (!args->empty())
    if (const char* word = args->get_str_val()) words_.push_back(word);
}

void WordSeq::find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
  int n = static_cast<int>(words_.size());
  int first = anchor == Anchor::end ? pos - n + 1 : pos;
  if (n == 0 || first < 1) return;
  for (int i = 0; i < n; ++i) {
    const char* word = run.analyzer.word(first + i);
    if (!word || stricmp(word, words_[static_cast<std::size_t>(i)].c_str()) != 0) return;
  }
  results.add(Match::make(&run.analyzer, first, first + n - 1));
}

void CollectLexItems::match(MatchRun& run, MatchList& results) const {
  LexAnalyzer& chart = run.analyzer;
  int last = chart.last_position();
  std::vector<Ref<Match>> parts;
  for (int i = last; i >= 1; --i) {
    const Slist<LexItem*> items = chart.ending_at(i);
    for (LexItem* item : items) {
      if (item->low > i || !passes_item(exp, item)) continue;
      parts.push_back(Match::make(&chart, item->low, item->high, item));
      i = item->low;
      break;
    }
  }
  std::reverse(parts.begin(), parts.end());
  results.add(Match::of_parts(&chart, 1, last, nullptr, parts));
}

}  // namespace torvane
