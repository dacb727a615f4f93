// Attributes whose value is made of attribute vectors: one, a list, or a stack. Values are shared
// by counts; whoever changes one copies it first, element by element.
#pragma once

#include "att/slot_atts.h"

namespace torvane {

class World;

/// A word that owns a count of a T (a Counted class): what such slots have in common.
template <class T>
class CountedAtt : public LongVAtt {
 public:
  CountedAtt() { plain = false; }
  static T* object(AttWord value) { return reinterpret_cast<T*>(value); }
  static AttWord word(T* object) { return reinterpret_cast<AttWord>(object); }

  /// Counts the new value and releases the old one.
  void set(AttVec* vec, AttWord value) const override {
    AttWord* slot_word = cell(vec);
    if (!slot_word) return;
    AttWord old = std::exchange(*slot_word, this->share(value));
    if (old) object(old)->release();
  }
  void clear(AttVec* vec) const override {
    if (get(vec)) set(vec, 0);
  }
  AttWord share(AttWord value) const override {
    if (value) object(value)->retain();
    return value;
  }
  void discard(AttWord value) const override {
    if (value && object(value)->refcount == 0) T::destroy(object(value));
  }
  Value to_value(AttWord value) const override { return Value::of<T>(object(value)); }
};

/// Vectors of a type of their own.
template <class T>
class ComplexAtt : public CountedAtt<T> {
 public:
  ComplexAtt() { this->plain = true; }
  void init(World& world, IRSlist* facets) override;
  void print(std::ostream& out, const AttVec* vec) const override;

  /// The type of the nested vectors: the one named by the facet, else that of the owner.
  AttInterpreterList* nested_type() const { return nested ? nested : this->list; }

  AttInterpreterList* nested = nullptr;
};

/// One nested vector.
class VecAtt : public AttClass<VecAtt, ComplexAtt<AttVec>> {
 public:
  static constexpr const char* kType = "VecAtt";
  static constexpr const char* kUsage = "a vector of the type `(interpreter TYPE)`";
  VecAtt() { holds = Holds::vec; }
  void generalize(AttVec* a, const AttVec* b) const override;
  void subtract(AttVec* a, const AttVec* b) const override;
  int unify(AttVec* vec, int at, AttWord value, int store) const override;
  void modify(AttVec* vec, int at, AttWord value) const override;
  int compare(AttWord a, AttWord b) const override;
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override;
  void pack(const AttVec* vec, StrBufs& out) const override;
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  /// One that was handed out is copied.
  AttWord share(AttWord value) const override;
  bool shows(AttWord value) const override;
};

/// A list of vectors: two unify only if they are of one length.
class ListAtt : public AttClass<ListAtt, ComplexAtt<AttVecList>> {
 public:
  static constexpr const char* kType = "ListAtt";
  static constexpr const char* kUsage =
      "a list of vectors of the type `(interpreter TYPE)`; lists unify element by element";
  ListAtt() { holds = Holds::list; }
  void generalize(AttVec* a, const AttVec* b) const override;
  void subtract(AttVec* a, const AttVec* b) const override;
  int unify(AttVec* vec, int at, AttWord value, int store) const override;
  void modify(AttVec* vec, int at, AttWord value) const override;
  int compare(AttWord a, AttWord b) const override;
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override;
  void pack(const AttVec* vec, StrBufs& out) const override;
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  bool shows(AttWord value) const override;
};

/// A list of which the first elements count: two unify on what they have in common, and the longer
/// one's rest is added.
class StackAtt : public AttClass<StackAtt, ListAtt> {
 public:
  static constexpr const char* kType = "StackAtt";
  static constexpr const char* kUsage =
      "a list of vectors whose common front unifies and whose longer rest is taken over";
  void generalize(AttVec* a, const AttVec* b) const override;
  void subtract(AttVec* a, const AttVec* b) const override;
  int unify(AttVec* vec, int at, AttWord value, int store) const override;
  int compare(AttWord a, AttWord b) const override;
};

/// A chain of records of displaced constituents. The parser makes its values.
class TraceAtt : public AttClass<TraceAtt, CountedAtt<TraceChain>> {
 public:
  static constexpr const char* kType = "TraceAtt";
  static constexpr const char* kUsage =
      "what a displaced constituent left behind; set by the parser";
  TraceAtt() { holds = Holds::trace; }
  int unify(AttVec* vec, int at, AttWord value, int store) const override;
  void print(std::ostream& out, const AttVec* vec) const override;
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override;
  void pack(const AttVec*, StrBufs&) const override {}
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  bool shows(AttWord value) const override;
};

}  // namespace torvane
