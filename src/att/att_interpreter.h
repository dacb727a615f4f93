// What one attribute of a type means: its storage in a vector, how its value is read, printed, packed,
// compared and unified. One object per attribute, cloned from the prototype of its class.
#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "att/att_vec.h"

namespace torvane {

class AttInterpreter {
 public:
  virtual ~AttInterpreter() = default;
  /// The class, such as "EntAtt".
  virtual const char* type_name() const { return "AttInterpreter"; }
  /// Reports "Oops! The attribute '...' cannot have '...' as value"; 0.
  virtual AttWord bad_value(const char* value) const;
  /// Takes the facets that follow the type in a `defattribute` form.
  virtual void init(IRSlist* facets);
  virtual std::unique_ptr<AttInterpreter> clone() const = 0;
  /// Reserves storage in the list and sets `slot`.
  virtual void allocate(AttInterpreterList* owner) = 0;
  virtual AttWord get(const AttVec* vec) const = 0;
  /// Raw store, no bookkeeping of what is defined.
  virtual void set(AttVec* vec, AttWord value) const = 0;
  virtual void generalize(AttVec* a, const AttVec* b) const;
  virtual void subtract(AttVec* a, const AttVec* b) const;
  /// Non-zero when the value is compatible; stores it when `store` is not 0.
  virtual int unify(AttVec* vec, int at, AttWord value, int store) const;
  /// Overwrites, marking defined.
  virtual void modify(AttVec* vec, int at, AttWord value) const;
  /// Releases what the slot owns.
  virtual void clear(AttVec*) const {}
  virtual int compare(AttWord a, AttWord b) const;
  virtual float similarity(AttWord a, AttWord b) const;
  /// Writes the attribute as it stands in a vector; may write nothing.
  virtual void print(std::ostream& out, const AttVec* vec) const;
  /// The value as text, in `scratch` if it has to be made; null for none.
  virtual const char* str_val(AttWord value, std::string& scratch) const;
  /// A value from the rest of the attribute's list form. A counted value comes with no count taken:
  /// whoever stores it counts it, and `discard` drops one that was not stored.
  virtual AttWord make_val(IRSlist* form) const;
  virtual void discard(AttWord) const {}
  virtual AttWord get_val(const char* token) const;
  virtual void pack(const AttVec* vec, StrBufs& out) const = 0;
  /// Reads the value bytes, never past `end`, and stores. False if they are cut off.
  virtual bool unpack(AttVec* vec, const char*& p, const char* end) const = 0;

  /// Sets the name; null is reported and leaves it.
  void set_name(const char* new_name);

  std::string name;
  AttInterpreterList* list = nullptr;  ///< the owner
  AttWord default_value = 0;
  int slot = -1;   ///< place of the value in a vector
  int index = -1;  ///< position in the list; the bit in a vector's sets
  float weight = 1.0f;
  bool binary = false;  ///< a BinAtt: the vector handles its value by bits
};

/// A clone of the class's prototype; null after "AttInterpreter::get_attitp:  unknown type: ".
std::unique_ptr<AttInterpreter> get_attitp(const char* type);

/// An attribute that holds an opaque entity (a lexical item). Whoever knows the entities sets how two unify
/// and how one prints.
class EntAtt;
/// Typed views for code that reads a value by its class: null if the attribute is of another class.
const AttInterpreter* as_ent_att(const AttInterpreter* att);
const AttInterpreter* as_list_att(const AttInterpreter* att);   ///< ListAtt or StackAtt
const AttInterpreter* as_trace_att(const AttInterpreter* att);
const AttInterpreter* as_str_att(const AttInterpreter* att);
const AttInterpreter* as_disj_att(const AttInterpreter* att);  ///< DisjAtt or Disj8Att

/// The value classes and `define-attribute`.
void register_attribute_types();
/// The predicates and list forms on vectors.
void register_attribute_forms();
/// `defattribute`, `def-att-list`, `make-av`, aliases, attribute sets.
void register_attribute_commands();

}  // namespace torvane
