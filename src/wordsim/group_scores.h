// How similar words are to a whole set of words.
#pragma once

#include <deque>
#include <vector>

#include "support/hash_table.h"
#include "wordsim/sim_word_db.h"

namespace torvane {

struct SimScore {
  int word;
  float weight;
  float score;

  float ratio() const { return weight != 0 ? score / weight : 0; }
};

/// Scores by word id. The table owns its items, which keep the order in which they came.
class SimRecordTable : public THashTableWithOrd<SimScore*, long> {
 public:
  explicit SimRecordTable(int size);
  /// The item of a word, a fresh one if there is none.
  SimScore& item(int word);

  std::deque<SimScore> items;
};

/// A score for each word that is similar to one of `words` as that part of speech: the logarithm of
/// the product of (2 sim + 1), descending by the score over twice the number of words. Equal ones
/// stand in the order of the lists. Only words of `scope` count, if there is one.
std::vector<SimScore> group_scores(SimWordDb& db, const LBitSet* scope, int pos,
                                   const Slist<char*>& words);

}  // namespace torvane
