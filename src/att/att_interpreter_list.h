// The type of an attribute vector: its attributes in order of definition, its aliases, its named
// sets.
#pragma once

#include <cstdint>
#include <memory>

#include "att/att_interpreter.h"
#include "support/name_table.h"

namespace torvane {

/// What a layer above keeps beside a type of vectors: where the attributes are that it reads.
struct AttRoles {};

class AttInterpreterList {
 public:
  AttInterpreterList(const char* list_name, int estimated_size);
  AttInterpreterList(const AttInterpreterList&) = delete;
  AttInterpreterList& operator=(const AttInterpreterList&) = delete;
  ~AttInterpreterList();

  /// Takes an attribute over; a repeated name is reported ("Mutiplely defined attribute: ") and
  /// dropped. A type holds up to kMostAtts attributes.
  void add(std::unique_ptr<AttInterpreter> att);
  int count() const { return static_cast<int>(atts.count()); }
  AttInterpreter* at(int index) const {
    return index >= 0 && index < count() ? atts[index] : nullptr;
  }
  /// By name, a leading sign skipped. Null on a miss, with the index of the last one tried in
  /// `*index`.
  AttInterpreter* lookup(const char* att_name, int* index) const;
  /// The set of the named attributes; an unknown name is reported and skipped.
  void make_att_set(LBitSet& out, IRSlist* names) const;

  /// Keeps the vector under a copy of the name; the first of two stays, the second is reported.
  void add_alias(const char* alias_name, Ref<AttVec> vec);
  AttVec* find_alias(const char* alias_name) const;
  void add_att_set(const char* set_name, LBitSet set);

  Array<AttInterpreter*> atts;  ///< owned
  std::string name;
  LBitSet binary_atts;
  std::int16_t bin_count = 0;
  std::int16_t char_count = 0;
  std::int16_t long_count = 0;
  NameTable<Ref<AttVec>> aliases{26};
  NameTable<LBitSet> att_sets{41};
  /// A number for the state of a vector of this type, given the values of its attributes.
  float (*weight_fn)(const float* values, int n);

  Array<AttSlot> slots;  ///< beside `atts`: where the values are
  LBitSet counted_atts;  ///< the attributes whose slots own a count
  const AttRoles* roles = nullptr;

  /// As many attributes as a packed tag can name.
  static constexpr int kMostAtts = 32766;

 private:
  NameTable<int> indexes_;  // by name
};

// Of a defined attribute that is not binary: its slot is in the block.
inline AttWord AttVec::word_at(const AttSlot& slot) const {
  return slot.storage == Storage::byte ? small_values[slot.at] : long_values[slot.at];
}

inline AttWord AttVec::get(int index) const {
  if (!has(index)) return 0;
  const AttSlot& slot = interpreters->slots[index];
  return slot.storage == Storage::bit ? bin_values.test(index) : word_at(slot);
}

/// A new list under its name, as "AttInterpreterList"; it lives as long as the world.
AttInterpreterList* make_att_list(World& world, const char* list_name, int estimated_size);
/// A list of a world by its name, or null: after the look-up's report, or quietly.
AttInterpreterList* find_att_list(World& world, const char* list_name, bool report = true);
/// The value of `value_text` for an attribute of a list; 0 after a report.
AttWord get_att(World& world, const char* list_name, const char* att_name, const char* value_text);
/// The index of an attribute of a list; -1 after a report.
int get_att(World& world, const char* list_name, const char* att_name);

namespace tags {
inline constexpr TypeTag att_list{"AttInterpreterList*"};
inline constexpr TypeTag att_interpreter{"AttInterpreter*"};
}  // namespace tags
template <>
struct ValueTraits<AttInterpreterList> : TagOf<AttInterpreterList, tags::att_list> {};
template <>
struct ValueTraits<AttInterpreter> : TagOf<AttInterpreter, tags::att_interpreter> {};

}  // namespace torvane
