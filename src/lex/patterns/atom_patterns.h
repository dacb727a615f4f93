// The patterns without parts: single items and words, rows of words, and the places of a sentence.
#pragma once

#include <string>
#include <vector>

#include "lex/patterns/pattern.h"

namespace torvane {

class World;

/// An item that satisfies the expression, for each one that ends (starts) at the position.
class LexItemPat : public PatternOf<LexItemPat, AtomicPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// Any word.
class DotPat : public PatternOf<DotPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// A word at which no item ends (starts).
class NotInLexPat : public PatternOf<NotInLexPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// The place before the first word. Its span has no word and takes no part in that of a sequence to
/// its right but for `low` 0.
class BeginPat : public PatternOf<BeginPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// The place behind the last word, at the word count.
class EndPat : public PatternOf<EndPat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// All words, from position 0.
class WholeSentencePat : public PatternOf<WholeSentencePat> {
 public:
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// These words in a row, without regard to case. No words match nowhere.
class WordSeq : public PatternOf<WordSeq> {
 public:
  void init(World& world, IRSlist* args) override;
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;

 private:
  std::vector<std::string> words_;
};

/// Tiles the sentence from the right with the first fitting item at each place: one match with all
/// of them as components. It has no matches at a given position.
class CollectLexItems : public PatternOf<CollectLexItems, AtomicPat> {
 public:
  void match(MatchRun& run, MatchList& results) const override;
  void find(MatchRun&, Anchor, int, MatchList&) const override {}
};

}  // namespace torvane
