// What the parser asks of a database of dependency counts.
#pragma once

namespace torvane {

class DepStatistics {
 public:
  /// How probable the second word is under the first by a relation (CATEGORY:REL:CATEGORY).
  virtual float dependency_probability(const char* word1, const char* relation,
                                       const char* word2) = 0;
  /// How much more often, as a logarithm, the modifier is under the head by the relation than under
  /// other heads of its category; 0 where the counts tell nothing.
  virtual float association(const char* head, const char* relation, const char* modifier) = 0;
  virtual ~DepStatistics() = default;
};

}  // namespace torvane
