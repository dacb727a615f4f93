// What the parser asks of a database of dependency counts.
#pragma once

namespace torvane {

class DepStatistics {
 public:
  /// How probable the second word is under the first by a relation (CATEGORY:REL:CATEGORY).
  virtual float dependency_probability(const char* word1, const char* relation,
                                       const char* word2) = 0;
  virtual ~DepStatistics() = default;
};

}  // namespace torvane
