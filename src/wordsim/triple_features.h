// Similar words out of a database of triples: words are similar that stand in the same relations to
// the same words.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "triples/db/triple_db.h"
#include "wordsim/feature_overlap.h"

namespace torvane {

/// The part of speech of the word at one end of a relation `CATEGORY:REL:CATEGORY`: that of the
/// category there, which is N, V, A or Adv in either case; -1 for any other. A name without
/// categories says noun.
int relation_end_pos(std::string_view relation, bool at_head);

class TripleFeatures {
 public:
  /// Takes in every word's triples that carry at least so much mutual information, which must be
  /// above 0. The database must outlive this.
  void read(TripleDb& db, float least_information);
  /// Writes for each word and part of speech the most similar words, in the form of a source file.
  void write_source(std::ostream& out, std::size_t most);

  const FeatureOverlap& overlap() const { return overlap_; }

 private:
  struct Item {
    std::string word;  ///< as an atom
    int entry;         ///< running number of the word
    int pos;
  };
  void read_entry(TripleDbInfo& entry, TripleDb& db, float least_information);
  void write_list(std::ostream& out, int item, std::size_t most);

  std::vector<Item> items_;  // those of a word stand together
  int entries_ = 0;
  FeatureOverlap overlap_;
};

}  // namespace torvane
