// The patterns without parts: single items and words, rows of words, and the places of a sentence.
#include <algorithm>
#include <string>
#include <vector>

#include "lex/patterns/offers.h"
#include "lex/patterns/pattern.h"
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

namespace {

/// An item that satisfies the expression, for each one that ends (starts) at the position.
class LexItemPat : public PatternOf<LexItemPat, AtomicPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    if (pos < 1) return;
    LexAnalyzer& chart = run.analyzer;
    bool at_end = anchor == Anchor::end;
    // The expression may change the chart.
    const Slist<LexItem*> items = at_end ? chart.ending_at(pos) : chart.starting_at(pos);
    for (LexItem* item : items) {
      if (!passes_item(exp_, item)) continue;
      results.add(Match::make(&chart, at_end ? item->low : pos, at_end ? pos : item->high, item));
    }
    results.finish();
  }
};

/// Any word.
class DotPat : public PatternOf<DotPat> {
 public:
  // Kept: dot-takes-words
  void find(MatchRun& run, Anchor, int pos, MatchList& results) const override {
    if (is_word_position(run, pos)) results.add(Match::make(&run.analyzer, pos, pos));
  }
};

/// A word at which no item ends (starts).
class NotInLexPat : public PatternOf<NotInLexPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    if (!is_word_position(run, pos)) return;
    LexAnalyzer& chart = run.analyzer;
    bool none =
        anchor == Anchor::end ? chart.ending_at(pos).empty() : chart.starting_at(pos).empty();
    if (none) results.add(Match::make(&chart, pos, pos));
  }
};

/// The place before the first word. Its span has no word and takes no part in that of a sequence to
/// its right but for `low` 0.
class BeginPat : public PatternOf<BeginPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    // Kept: begin-covers-position-0
    if (anchor == Anchor::end && pos < 1) results.add(Match::make(&run.analyzer, pos, pos));
    if (anchor == Anchor::start && pos < 2) results.add(Match::make(&run.analyzer, pos, pos - 1));
  }
};

/// The place after the last word, at the word count.
class EndPat : public PatternOf<EndPat> {
 public:
  void find(MatchRun& run, Anchor, int pos, MatchList& results) const override {
    // Kept: end-alone-never-matches
    if (pos > 0 && pos == run.analyzer.word_count())
      results.add(Match::make(&run.analyzer, pos, pos));
  }
};

/// All words, from position 0.
class WholeSentencePat : public PatternOf<WholeSentencePat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    int last = run.analyzer.last_position();
    // Kept: whole-sentence-forward
    if (last > 0 && pos == (anchor == Anchor::end ? last : 0))
      results.add(Match::make(&run.analyzer, 0, last));
  }
};

/// These words in a row, without regard to case. No words match nowhere.
class WordSeq : public PatternOf<WordSeq> {
 public:
  void init(World&, IRSlist* args) override {
    while (!args->empty())
      if (const char* word = args->get_str_val()) words_.push_back(word);
  }
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override {
    int n = static_cast<int>(words_.size());
    int first = anchor == Anchor::end ? pos - n + 1 : pos;
    if (n == 0 || first < 1) return;
    for (int i = 0; i < n; ++i) {
      const char* word = run.analyzer.word(first + i);
      if (!word || stricmp(word, words_[static_cast<std::size_t>(i)].c_str()) != 0) return;
    }
    results.add(Match::make(&run.analyzer, first, first + n - 1));
  }

 private:
  std::vector<std::string> words_;
};

/// Tiles the sentence from the right with the first fitting item at each place: one match with all
/// of them as components. It has no matches at a given position.
class CollectLexItems : public PatternOf<CollectLexItems, AtomicPat> {
 public:
  void match(MatchRun& run, MatchList& results) const override {
    LexAnalyzer& chart = run.analyzer;
    int last = chart.last_position();
    std::vector<Ref<Match>> parts;
    parts.reserve(static_cast<std::size_t>(std::max(last, 0)));
    for (int i = last; i >= 1; --i) {
      const Slist<LexItem*> items = chart.ending_at(i);
      for (LexItem* item : items) {
        if (item->low > i || !passes_item(exp_, item)) continue;
        parts.push_back(Match::make(&chart, item->low, item->high, item));
        i = item->low;
        break;
      }
    }
    std::reverse(parts.begin(), parts.end());
    results.add(Match::of_parts(&chart, 1, last, nullptr, parts));
  }
  void find(MatchRun&, Anchor, int, MatchList&) const override {}
};

constexpr Prototype kAtomPatterns[] = {
    pattern<LexItemPat>("lexitem",
                        "(lexitem LEXP) matches a single lexical item that satisfies LEXP"),
    pattern<NotInLexPat>("not-in-lexicon", "mattched if the word is not in the lexicon"),
    pattern<CollectLexItems>("collect-lexitems", "(collect-lexitems <cond>)"),
    pattern<DotPat>(".", "matches any single lexical item"),
    pattern<BeginPat>("^", "(^) matches the beginning of a sentence"),
    pattern<BeginPat>("beginning-of-sentence",
                      "(beginning-of-sentence) matches the beginning of a sentence"),
    pattern<EndPat>("$", "($) matches the end of a sentence"),
    pattern<EndPat>("end-of-sentence", "(end-of-sentence) matches the end of a sentence"),
    pattern<WholeSentencePat>("whole-sentence", "(whole-sentence) matches the end of a sentence"),
    pattern<WordSeq>("word-seq", "(word-seq <word> <word> ...) matches a sequence of words"),
};

}  // namespace

constinit const Offer offers::atom_patterns{kAtomPatterns};

}  // namespace torvane
