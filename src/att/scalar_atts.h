// Attributes whose value is one small thing: a flag, a word of a list, a number.
#pragma once

#include "att/slot_atts.h"
#include "att/value_names.h"

namespace torvane {

class World;

/// A flag, "+" or "-". Vectors keep it by bits, and a packed vector by its tag.
class BinAtt : public AttClass<BinAtt, AttInterpreter> {
 public:
  static constexpr const char* kType = "BinAtt";
  static constexpr const char* kUsage = "`+att` or `-att`; one bit";
  BinAtt() { storage = Storage::bit; }
  void allocate(AttInterpreterList* owner) override;
  AttWord get(const AttVec* vec) const override { return vec->bin_values.test(index); }
  void set(AttVec* vec, AttWord value) const override;
  const char* str_val(AttWord value, std::string&) const override { return value ? "+" : "-"; }
  AttWord make_val(IRSlist* form) const override { return get_val(value_text(form)); }
  AttWord get_val(const char* token) const override;
  void pack(const AttVec* vec, StrBufs& out) const override;
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
};

/// One of the allowable values, by its index; 0 is none.
class EnumAtt : public AttClass<EnumAtt, CharAtt> {
 public:
  static constexpr const char* kType = "EnumAtt";
  static constexpr const char* kUsage = "one of `(allowable-values ...)`";
  void init(World& world, IRSlist* facets) override;
  const char* str_val(AttWord value, std::string&) const override { return names.at(value); }
  AttWord make_val(IRSlist* form) const override { return get_val(value_text(form)); }
  AttWord get_val(const char* token) const override;
  bool shows(AttWord value) const override { return names.at(value) != nullptr; }

  ValueNames names;
};

/// A number from 0 to 255 that never blocks a unification: the first one stays.
class SmIntAtt : public AttClass<SmIntAtt, CharAtt> {
 public:
  static constexpr const char* kType = "SmIntAtt";
  static constexpr const char* kUsage = "0 to 255; never blocks unification, the first value stays";
  bool unify(AttVec* vec, int at, AttWord value, bool store) const override;
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override;
};

/// A 32-bit number.
class IntAtt : public AttClass<IntAtt, Long32Att> {
 public:
  static constexpr const char* kType = "IntAtt";
  static constexpr const char* kUsage = "a 32-bit integer";
  Subsumption compare(AttWord a, AttWord b) const override;
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override { return get_val(value_text(form)); }
  AttWord get_val(const char* token) const override;
};

}  // namespace torvane
