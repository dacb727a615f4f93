// What words are used with, out of a database of triples.
#pragma once

#include <functional>
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

/// A word as one part of speech, with its features.
struct WordFeatures {
  std::string word;  ///< as an atom
  int entry = 0;     ///< running number of the word
  int pos = 0;
  float total = 0;                             ///< information of all features
  std::vector<FeatureOverlap::Held> features;  ///< ascending
};

/// Gives the words with the triples that carry at least so much mutual information, which must be
/// above 0; the parts of speech of a word stand together.
void read_features(TripleDb& db, float least_information,
                   const std::function<void(const WordFeatures& word)>& take);

}  // namespace torvane
