// What the parser asks of a database of dependency counts.
#pragma once

#include "support/value.h"

namespace torvane {

class DepStatistics {
 public:
  /// How probable the second word is under the first by a relation (CATEGORY:REL:CATEGORY).
  virtual float dependency_probability(const char* word1, const char* relation,
                                       const char* word2) = 0;
  virtual ~DepStatistics() = default;
};

/// The statistics of an object of the type "TripleDb"; null for any other. A database is also a
/// store, and its value holds the store's pointer, so whoever defines the databases sets this at
/// registration.
inline DepStatistics* (*dep_statistics_of)(Value object) = nullptr;

}  // namespace torvane
