// What one attribute of a type means: its storage in a vector, how its value is read, printed,
// packed, compared and unified. One object per attribute, cloned from the prototype of its class.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "att/att_vec.h"
#include "support/text.h"

namespace torvane {

class World;

/// Where a vector keeps an attribute's value.
enum class Storage : std::uint8_t { bit, byte, word };
/// What the value is; from `vec` on the slot owns a count of it.
enum class Holds : std::uint8_t { number, mask, text, entity, vec, list, trace };

class AttInterpreter {
 public:
  virtual ~AttInterpreter() = default;
  /// The class, such as "EntAtt".
  virtual const char* type_name() const { return "AttInterpreter"; }
  /// Reports "Oops! The attribute '...' cannot have '...' as value"; 0.
  // Part of the interface; nothing in the engine calls it yet.
  virtual AttWord bad_value(const char* value) const;
  /// Takes the facets that follow the type in a `defattribute` form.
  virtual void init(World& world, IRSlist* facets);
  virtual std::unique_ptr<AttInterpreter> clone() const = 0;
  /// Reserves storage in the list and sets `slot`.
  virtual void allocate(AttInterpreterList* owner) = 0;
  virtual AttWord get(const AttVec* vec) const = 0;
  /// Raw store, no bookkeeping of what is defined.
  virtual void set(AttVec* vec, AttWord value) const = 0;
  virtual void generalize(AttVec* a, const AttVec* b) const;
  virtual void subtract(AttVec* a, const AttVec* b) const;
  /// True when the value is compatible; with `store` it is stored.
  virtual bool unify(AttVec* vec, int at, AttWord value, bool store) const;
  /// Overwrites, marking defined.
  virtual void modify(AttVec* vec, int at, AttWord value) const;
  /// Drops what the slot owns.
  virtual void clear(AttVec*) const {}
  virtual Subsumption compare(AttWord a, AttWord b) const;
  // Part of the interface; nothing in the engine calls it yet.
  virtual float similarity(AttWord a, AttWord b) const;
  /// Writes the attribute as it stands in a vector; may write nothing.
  virtual void print(std::ostream& out, const AttVec* vec) const;
  /// The value as text, in `scratch` if it has to be made, else a text that lives for ever; null
  /// for none.
  virtual const char* str_val(AttWord value, std::string& scratch) const;
  /// A value from the rest of the attribute's list form. A counted value comes with no count taken:
  /// whoever stores it counts it, and `drop_unstored` ends one that was not stored.
  virtual AttWord make_val(IRSlist* form) const;
  virtual AttWord get_val(const char* token) const;
  virtual void pack(const AttVec* vec, StrBufs& out) const = 0;
  /// Reads the value bytes, never past `end`, and stores. False if they are cut off.
  virtual bool unpack(AttVec* vec, const char*& p, const char* end) const = 0;

  /// A counted value for one more vector, counted: the same, unless it must not be shared.
  virtual AttWord share(AttWord value) const { return value; }
  /// Uncounts a value that `share` gave.
  virtual void drop(AttWord) const {}
  /// Ends a value of `make_val` that nobody counts.
  virtual void drop_unstored(AttWord) const {}
  /// False for a value that `print` writes nothing for.
  virtual bool shows(AttWord) const { return true; }
  /// The value as expressions see it.
  virtual Value to_value(AttWord value) const { return Value::integer(static_cast<Word>(value)); }

  /// Sets the name; null is reported and leaves it.
  void set_name(const char* new_name);

  std::string name;
  AttInterpreterList* list = nullptr;  ///< the owner
  AttWord default_value = 0;
  int slot = -1;   ///< place of the value in a vector
  int index = -1;  ///< position in the list; the bit in a vector's sets
  float weight = 1.0f;

  Storage storage = Storage::word;
  Holds holds = Holds::number;
  bool plain = true;  ///< a word unifies with itself, and nothing changes

 protected:
  /// Reports a form of which no value can be made; 0.
  static AttWord bad_form(std::string_view complaint, const IRSlist& form);
  /// Reports a facet, or what else stands in its place, as not known.
  void unknown_facets(const IRSlist& facets) const;

  /// Takes the facets one by one: `take(facet)` for those of the one known name, with the name off
  /// the list; others are reported.
  template <class Take>
  void read_facets(IRSlist* facets, const char* known, Take take) const {
    while (facets && !facets->empty()) {
      auto facet = facets->pop_front();
      if (same_word(facet->nth_str_val(0), known)) {
        facet->pop_front();
        take(*facet);
      } else {
        unknown_facets(*facet);
      }
    }
  }
};

/// What a vector needs to know of an attribute to reach its value: the classes' facts in a few
/// bytes, so that the walks of the parsing loop need not touch the interpreters themselves.
struct AttSlot {
  std::int16_t at = -1;  ///< the slot
  Storage storage = Storage::word;
  Holds holds = Holds::number;
  bool plain = true;
  bool counted() const { return holds >= Holds::vec; }
};

/// A clone of the class's prototype; null after "AttInterpreter::get_attitp:  unknown type: ".
std::unique_ptr<AttInterpreter> get_attitp(World& world, const char* type);

/// For code that reads a value by what it is: the attribute, or null if it holds something else.
inline const AttInterpreter* att_that_holds(const AttInterpreter* att, Holds what) {
  return att && att->holds == what ? att : nullptr;
}
inline const AttInterpreter* as_ent_att(const AttInterpreter* att) {
  return att_that_holds(att, Holds::entity);
}
/// A ListAtt or StackAtt.
inline const AttInterpreter* as_list_att(const AttInterpreter* att) {
  return att_that_holds(att, Holds::list);
}
inline const AttInterpreter* as_trace_att(const AttInterpreter* att) {
  return att_that_holds(att, Holds::trace);
}
inline const AttInterpreter* as_str_att(const AttInterpreter* att) {
  return att_that_holds(att, Holds::text);
}

}  // namespace torvane
