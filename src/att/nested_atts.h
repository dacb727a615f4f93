// Attributes whose value is made of attribute vectors: one, a list, or a stack. Values are shared
// by counts; whoever changes one copies it first, element by element.
#pragma once

#include <optional>

#include "att/slot_atts.h"

namespace torvane {

class World;

/// A word that owns a count of a T (a Counted class): what such slots have in common.
template <class T>
class CountedAtt : public LongVAtt {
 public:
  using Nested = T;
  CountedAtt() { plain = false; }
  static T* object(AttWord value) { return reinterpret_cast<T*>(value); }
  static AttWord word(T* object) { return reinterpret_cast<AttWord>(object); }
  /// What unifying gives without a look inside; nothing if both have a value.
  std::optional<bool> unify_outside(AttVec* vec, int at, AttWord value, bool store) const {
    if (!vec->has(at)) {
      if (store) vec->set(at, value);
      return true;
    }
    AttWord current = this->get(vec);
    if (!value || !current) return value == current;
    return std::nullopt;
  }

  /// Counts the new value and drops the old one.
  void set(AttVec* vec, AttWord value) const override {
    AttWord* slot_word = cell(vec);
    if (!slot_word) return;
    AttWord old = std::exchange(*slot_word, this->share(value));
    if (old) object(old)->drop();
  }
  void clear(AttVec* vec) const override {
    if (get(vec)) set(vec, 0);
  }
  AttWord share(AttWord value) const override {
    if (value) object(value)->retain();
    return value;
  }
  void drop(AttWord value) const override {
    if (value) object(value)->drop();
  }
  void drop_unstored(AttWord value) const override {
    if (value && object(value)->refcount == 0) T::end(object(value));
  }
  Value to_value(AttWord value) const override { return Value::of<T>(object(value)); }

 protected:
  /// The value of a vector; of no other owner where something is stored into it.
  T& mine(AttVec* vec, int at, bool store) const {
    return store ? *vec->own<T>(at) : *object(this->get(vec));
  }
};

/// Vectors of a type of their own.
template <class T>
class ComplexAtt : public CountedAtt<T> {
 public:
  void init(World& world, IRSlist* facets) override;
  void print(std::ostream& out, const AttVec* vec) const override;

  /// The type of the nested vectors: the one named by the facet, else that of the owner.
  AttInterpreterList* nested_type() const { return nested ? nested : this->list; }

  AttInterpreterList* nested = nullptr;
};

/// Nested values under the operations on vectors: what holds whatever they are made of. A missing
/// value, and one that both have, need no look inside; a look inside is a step of a walk that may
/// be given up. D says the rest, for `theirs`, the value in `b`:
///   void generalize_with(AttVec* a, const Nested& theirs) const;
///   void subtract_from(AttVec* a, const Nested& theirs) const;
///   bool unify_with(AttVec* vec, int at, const Nested& theirs, bool store) const;
///   void modify_with(Nested& mine, const Nested& theirs) const;
///   Subsumption compare_with(const Nested& mine, const Nested& theirs) const;
template <class D, class Base>
class NestedAtt : public AttClass<D, Base> {
 public:
  void generalize(AttVec* a, const AttVec* b) const override;
  void subtract(AttVec* a, const AttVec* b) const override;
  bool unify(AttVec* vec, int at, AttWord value, bool store) const override;
  void modify(AttVec* vec, int at, AttWord value) const override;
  Subsumption compare(AttWord a, AttWord b) const override;

 private:
  const D& derived() const { return static_cast<const D&>(*this); }
};

/// One nested vector.
class VecAtt : public NestedAtt<VecAtt, ComplexAtt<AttVec>> {
 public:
  static constexpr const char* kType = "VecAtt";
  static constexpr const char* kUsage = "a vector of the type `(interpreter TYPE)`";
  VecAtt() { holds = Holds::vec; }
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override;
  void pack(const AttVec* vec, StrBufs& out) const override;
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  /// One that was handed out is copied.
  AttWord share(AttWord value) const override;
  bool shows(AttWord value) const override;

  void generalize_with(AttVec* a, const AttVec& theirs) const;
  void subtract_from(AttVec* a, const AttVec& theirs) const;
  bool unify_with(AttVec* vec, int at, const AttVec& theirs, bool store) const;
  void modify_with(AttVec& mine, const AttVec& theirs) const;
  Subsumption compare_with(const AttVec& mine, const AttVec& theirs) const;
};

/// What lists and stacks have in common.
class ListOfVecsAtt : public ComplexAtt<AttVecList> {
 public:
  ListOfVecsAtt() { holds = Holds::list; }
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override;
  void pack(const AttVec* vec, StrBufs& out) const override;
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  bool shows(AttWord value) const override;

  /// The elements that both have, and a copy of what is more.
  void modify_with(AttVecList& mine, const AttVecList& theirs) const;
};

/// A list of vectors: two unify only if they are of one length.
class ListAtt : public NestedAtt<ListAtt, ListOfVecsAtt> {
 public:
  static constexpr const char* kType = "ListAtt";
  static constexpr const char* kUsage =
      "a list of vectors of the type `(interpreter TYPE)`; lists unify element by element";
  void generalize_with(AttVec* a, const AttVecList& theirs) const;
  void subtract_from(AttVec* a, const AttVecList& theirs) const;
  bool unify_with(AttVec* vec, int at, const AttVecList& theirs, bool store) const;
  Subsumption compare_with(const AttVecList& mine, const AttVecList& theirs) const;
};

/// A list of which the first elements count: two unify on what they have in common, and the longer
/// one's rest is added.
class StackAtt : public NestedAtt<StackAtt, ListOfVecsAtt> {
 public:
  static constexpr const char* kType = "StackAtt";
  static constexpr const char* kUsage =
      "a list of vectors whose common front unifies and whose longer rest is taken over";
  void generalize_with(AttVec* a, const AttVecList& theirs) const;
  void subtract_from(AttVec* a, const AttVecList& theirs) const;
  bool unify_with(AttVec* vec, int at, const AttVecList& theirs, bool store) const;
  Subsumption compare_with(const AttVecList& mine, const AttVecList& theirs) const;
};

/// A chain of records of displaced constituents. The parser makes its values.
class TraceAtt : public AttClass<TraceAtt, CountedAtt<TraceChain>> {
 public:
  static constexpr const char* kType = "TraceAtt";
  static constexpr const char* kUsage =
      "what a displaced constituent left behind; set by the parser";
  TraceAtt() { holds = Holds::trace; }
  bool unify(AttVec* vec, int at, AttWord value, bool store) const override;
  void print(std::ostream& out, const AttVec* vec) const override;
  const char* str_val(AttWord value, std::string& scratch) const override;
  AttWord make_val(IRSlist* form) const override;
  void pack(const AttVec*, StrBufs&) const override {}
  bool unpack(AttVec* vec, const char*& p, const char* end) const override;
  bool shows(AttWord value) const override;
};

}  // namespace torvane
