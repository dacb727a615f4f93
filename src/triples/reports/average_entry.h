// The centroid of several words: what their entries have in common.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "triples/reports/relation_set.h"

namespace torvane {

struct AverageRules {
  const RelationSet& relations;
  const char* pos;     ///< what a relation must begin with, an inverse end in; null: any
  float mi_threshold;  ///< a feature's weighted mutual information must exceed it
  float spread;        ///< and so must the share of the members, but for one, that have it
};

/// A relation with a word that some of the members have, over those that do.
struct SharedFeature {
  int relation;
  const char* word;
  float freq;  ///< weighted sum
  bool passes;
};

/// The features of the members, by relation and word. Members weigh by their counts.
std::vector<SharedFeature> shared_features(TripleDb& db, const std::vector<TripleDbInfo*>& members,
                                           const AverageRules& rules);

/// An entry, in no table, with the features that pass.
std::unique_ptr<TripleDbInfo> make_average(TripleDb& db, const char* name,
                                           const std::vector<SharedFeature>& features);

}  // namespace torvane
