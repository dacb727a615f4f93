// The relations between two words, or between the members of their classes.
#pragma once

#include "triples/reports/relation_set.h"
#include "triples/reports/word_classes.h"

namespace torvane {

struct TripleRow {
  const char* head = nullptr;
  const char* other = nullptr;
  float mi = 0;
  int relation = 0;  ///< below 0 for an inverse
};

/// Every triple of the two words whose relation is in the set, the strongest first. With classes a
/// word stands for all members of its class.
Array<TripleRow> triple_filter(TripleDb& db, const char* word1, const char* word2,
                               const RelationSet& relations, const WordClasses* classes);

}  // namespace torvane
