// Attribute value vectors: every piece of grammatical information, of a word sense, a category or a
// parse item, is one of these. The shape of a vector is described at run time by its
// AttInterpreterList.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <type_traits>

#include "shell/irslist.h"
#include "support/array.h"
#include "support/bit_set.h"
#include "support/name.h"
#include "support/ref.h"
#include "support/str_bufs.h"
#include "support/value.h"

namespace torvane {

class AttInterpreter;
class AttInterpreterList;
class AttVecList;
class TraceChain;
struct AttSlot;
enum class Holds : std::uint8_t;

/// The raw value of a slot: a number, or a pointer to what the attribute's class keeps there.
using AttWord = std::uintptr_t;

/// How the first of two things relates to the second. The numbers are those that expressions see.
enum class Subsumption {
  equal = 0,
  more_general = -1,
  more_specific = 1,
  incomparable = 2,
  not_comparable = -2,
};

/// Counted; whoever keeps a vector holds a Ref. It may also be an embedded member (a meaning, an
/// item), whose owner then holds the first count.
///
/// Vectors of two types share nothing: they unify only if there is nothing to unify, and their
/// common indexes make them incomparable.
class AttVec : public Counted<AttVec> {
 public:
  /// Empty, of a type; a null type is reported ("Creating AttVec with nil Interpreter\n") and
  /// leaves a vector on which every operation does nothing.
  explicit AttVec(AttInterpreterList* type);
  AttVec(const AttVec& other);
  /// Read from the items of a form.
  AttVec(IRSlist* form, AttInterpreterList* type);
  AttVec& operator=(const AttVec&) = delete;
  ~AttVec();

  AttInterpreterList* interpreters;  ///< the type
  LBitSet defined;                   ///< attributes that have a value
  LBitSet bin_values;                ///< the values of the defined binary ones
  unsigned char* small_values = nullptr;
  AttWord* long_values = nullptr;  ///< the block: long slots first, then the bytes
  Ref<Era> era;                    ///< of a part of a sentence: holders read null once it is over
  /// It stands inside another vector, and an expression got hold of it and may change it. Nothing
  /// else may share it then: what copies or takes it gets a copy. So a vector never becomes a part
  /// of itself either.
  bool handed_out = false;

  bool has(int index) const { return defined.test(index); }
  /// The raw value; 0 when undefined. (Defined where the types of vectors are known.)
  inline AttWord get(int index) const;
  /// Marks defined and stores.
  void set(int index, AttWord value);
  void undefine(int index);

  /// The vector, list or chain of an attribute of that class, with no other owner, so that it may
  /// be changed in place: a shared one is copied and the copy stored. Null if the attribute is
  /// undefined, has no value or is of another class.
  AttVec* own_vec(int index);
  AttVecList* own_list(int index);
  TraceChain* own_trace(int index);
  template <class T>
  T* own(int index) {
    if constexpr (std::is_same_v<T, AttVec>)
      return own_vec(index);
    else if constexpr (std::is_same_v<T, AttVecList>)
      return own_list(index);
    else
      return own_trace(index);
  }

  /// Takes the items of a form one by one, unifying each in.
  void read(IRSlist* form);
  /// "(...)": the attributes in `mask` (null: all), with aliases standing for what they cover.
  void print(std::ostream& out, const LBitSet* mask = nullptr, bool use_aliases = false) const;
  void pack(StrBufs& out) const;
  /// Merges a packed vector in, never reading past `end`; advances `p`. False if it is cut off.
  bool unpack(const char*& p, const char* end);

  /// Unifies the attributes of `other` (in `mask` if given) into this vector, or without `store`
  /// only tests. False at the first that is not compatible; those before it stay changed.
  bool unify(const AttVec& other, const LBitSet* mask, bool store);
  bool unifiable(const AttVec& other, const LBitSet* mask = nullptr) const {
    return const_cast<AttVec*>(this)->unify(other, mask, false);
  }
  void force_unify(const AttVec& other, const LBitSet* mask);
  void modify(const AttVec& other, const LBitSet* mask = nullptr);
  void generalize(const AttVec& other, const LBitSet* mask = nullptr);
  void subtract(const AttVec& other, const LBitSet* mask = nullptr);
  /// The subsumption order of the whole system, a code of `subsume`.
  Subsumption compare(const AttVec& other, const LBitSet* mask = nullptr) const;
  /// Whether the comparison gives "equal", which is seen sooner.
  bool equals(const AttVec& other, const LBitSet& mask) const;
  /// Drops every value; the vector is empty and of the same type.
  void clear_all();
  /// An empty vector shows what another one of its type has of these attributes, without a memory
  /// of its own. Neither may be changed before it shows nothing again.
  void show(const AttVec& other, const LBitSet& mask);
  void show_nothing();
  /// Becomes a copy of the other, whatever type it is of.
  // Part of the interface; nothing in the engine calls it yet.
  void copy_from(const AttVec& other);
  bool is_empty() const { return defined.is_empty(); }

  /// The slot counts the block was laid out for. The block is made when a slot is first stored to,
  /// and laid out anew when the type has grown since and a slot beyond the old ones is needed.
  std::int16_t laid_out_long = 0;
  std::int16_t laid_out_char = 0;
  /// Gives the block room for every slot that the type has now.
  void lay_out();

  /// Vectors come from a pool. One that is dropped deep inside others waits for those to be gone.
  static void end(AttVec* vec);
  static void* operator new(std::size_t bytes);
  static void operator delete(void* block, std::size_t bytes);
  static void* operator new(std::size_t, void* place) { return place; }
  static void operator delete(void*, void*) {}

 private:
  inline AttWord word_at(const AttSlot& slot) const;
  template <bool store>
  bool unify_pairs(const AttVec& other, const LBitSet* mask);
  template <bool store>
  bool unify_pair(const AttVec& other, int p, std::uint64_t bits);
  bool unify_slot(const AttVec& other, int index, bool is_defined, bool store);
  template <class T>
  T* own_value(int index, Holds what);
  void take_values(const AttVec& other, const LBitSet* mask);
  void drop_values();
  void print_atts(std::ostream& out, const LBitSet* mask, bool first) const;

  template <class Visit>
  void for_each_in(const AttVec& other, const LBitSet* mask, Visit visit) const;
};

namespace tags {
extern const TypeTag att_vec;       // counted
extern const TypeTag att_vec_list;  // counted
extern const TypeTag trace_chain;   // counted
inline constexpr TypeTag bit_set{"LBitSet*"};
}  // namespace tags
template <>
struct ValueTraits<AttVec> : TagOf<AttVec, tags::att_vec> {};
template <>
struct ValueTraits<AttVecList> : TagOf<AttVecList, tags::att_vec_list> {};
template <>
struct ValueTraits<TraceChain> : TagOf<TraceChain, tags::trace_chain> {};
template <>
struct ValueTraits<LBitSet> : TagOf<LBitSet, tags::bit_set> {};

/// The value of a list attribute (ListAtt, StackAtt): a counted array of counted vectors. Whoever
/// changes a shared one takes a private copy first.
class AttVecList : public Counted<AttVecList> {
 public:
  Array<Ref<AttVec>> vecs;

  int length() const { return vecs.count(); }
  /// Element i, or null.
  AttVec* at(int i) const { return i >= 0 && i < vecs.count() ? vecs.begin()[i].get() : nullptr; }
  /// Element i with no other owner, copied if need be; null if there is none.
  AttVec* own(int i);

  /// An empty list, an earlier one with its room if there is one to use again.
  static Ref<AttVecList> make();
  static void end(AttVecList* list);
};

/// One record of a TraceAtt value: the relation under which a displaced constituent stands, and the
/// item, the parser's, that it belongs to.
struct TraceRecord {
  Name role;
  void* item;
};
/// The value of a TraceAtt: a counted chain, newest first.
class TraceChain : public Counted<TraceChain> {
 public:
  Array<TraceRecord> records;  ///< records[0] is the front of the chain

  static Ref<TraceChain> make();
  static void end(TraceChain* chain);
};

}  // namespace torvane
