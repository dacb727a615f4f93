// The statistics of triples that reports are made of, beside those of the database itself.
#pragma once

#include "triples/db/triple_db.h"

namespace torvane {

/// Mutual information of a word and one of its relations.
float relation_mutinfo(const TripleDbInfo& entry, const RelInfo& rel, TripleDb& db);

/// Mutual information of a word under a relation, computed if it is not known yet.
inline float known_mutinfo(WordCount& word, const RelInfo& rel, TripleDb& db) {
  return word.mi == WordCount::kUnknown ? word_mutinfo(word, rel, db) : word.mi;
}

}  // namespace torvane
