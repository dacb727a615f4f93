// Attributes whose value is any of several: a mask of the values that are still possible.
#pragma once

#include "att/slot_atts.h"
#include "att/value_names.h"

namespace torvane {

class World;

/// What the two widths of disjunction share: value i of the table is bit i - 1, unification is
/// intersection, and the wider of two is the more general.
template <class Base>
class DisjunctionAtt : public Base {
 public:
  DisjunctionAtt() { this->holds = Holds::mask; }
  void init(World& world, IRSlist* facets) override;
  bool unify(AttVec* vec, int at, AttWord value, bool store) const override;
  Subsumption compare(AttWord a, AttWord b) const override;
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override;
  AttWord get_val(const char* token) const override;

  ValueNames names;
};

/// Up to 32 values.
class DisjAtt : public AttClass<DisjAtt, DisjunctionAtt<Long32Att>> {
 public:
  static constexpr const char* kType = "DisjAtt";
  static constexpr const char* kUsage =
      "one or more of up to 32 `(allowable-values ...)`; unification intersects";
};

/// Up to 8 values, in a byte.
class Disj8Att : public AttClass<Disj8Att, DisjunctionAtt<CharAtt>> {
 public:
  static constexpr const char* kType = "Disj8Att";
  static constexpr const char* kUsage =
      "one or more of up to 8 `(allowable-values ...)`; unification intersects";
};

extern template class DisjunctionAtt<Long32Att>;
extern template class DisjunctionAtt<CharAtt>;

}  // namespace torvane
