// The two storages that attribute classes share: a byte, and a machine word.
#pragma once

#include "att/att_interpreter_list.h"

namespace torvane {

/// A value of one byte.
class CharAtt : public AttInterpreter {
 public:
  CharAtt() { storage = Storage::byte; }
  void allocate(AttInterpreterList* owner) override { slot = owner->char_count++; }
  AttWord get(const AttVec* vec) const final {
    return slot >= 0 && slot < vec->laid_out_char ? vec->small_values[slot] : 0;
  }
  void set(AttVec* vec, AttWord value) const final;
  void pack(const AttVec* vec, StrBufs& out) const override;
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
};

/// A value of one word.
class LongVAtt : public AttInterpreter {
 public:
  void allocate(AttInterpreterList* owner) override { slot = owner->long_count++; }
  AttWord get(const AttVec* vec) const final {
    return slot >= 0 && slot < vec->laid_out_long ? vec->long_values[slot] : 0;
  }
  void set(AttVec* vec, AttWord value) const override;

 protected:
  /// The slot itself, with room made for it; null in a vector of another type that has no such
  /// slot.
  AttWord* cell(AttVec* vec) const;
};

/// A word of which 32 bits count.
class Long32Att : public LongVAtt {
 public:
  void set(AttVec* vec, AttWord value) const override;
  void pack(const AttVec* vec, StrBufs& out) const override;
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  /// The signed number of the 32 bits.
  Value to_value(AttWord value) const override;
};

/// Supplies `type_name` and `clone` of an attribute class D with
///   static constexpr const char* kType = "EnumAtt";
template <class D, class Base>
class AttClass : public Base {
 public:
  const char* type_name() const override { return D::kType; }
  std::unique_ptr<AttInterpreter> clone() const override { return std::make_unique<D>(); }
};

/// The one text from which a value is read: the atom itself, or the first one behind the name.
/// Empty if it is missing (or, reported, a list), so that it can be tested and compared.
const char* value_text(IRSlist* form);

}  // namespace torvane
