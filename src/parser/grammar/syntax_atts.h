// The attributes that have a fixed role in the parser, looked up once in the type called `syn` by
// the command `init-attributes`. An attribute that the type lacks, or gives a class that its role
// cannot use, has the index -1 and reads as undefined; so does every attribute of a vector of
// another type.
#pragma once

#include "att/att_interpreter_list.h"

namespace torvane {

struct SyntaxAtts : AttRoles {
  AttInterpreterList* type = nullptr;
  int args = -1, cm = -1, cat = -1, cform = -1, check = -1, control = -1, govern = -1, guest = -1,
      head_final = -1, last_conj = -1, lexitem = -1, move = -1, node = -1, opt = -1, pform = -1,
      rare = -1, ref = -1, role = -1, slash = -1, trace = -1;
  AttWord wh = 0;  ///< the value `wh` of `slash`
  AttWord cat_a = 0, cat_c = 0, cat_d = 0, cat_i = 0, cat_j = 0, cat_n = 0, cat_p = 0, cat_v = 0;
};

inline constexpr SyntaxAtts kNoSyntaxAtts{};

/// The handles for a vector.
inline const SyntaxAtts& syntax_atts(const AttVec& vec) {
  const AttRoles* roles = vec.interpreters ? vec.interpreters->roles : nullptr;
  return roles ? static_cast<const SyntaxAtts&>(*roles) : kNoSyntaxAtts;
}

/// The index can be used on the vector.
inline bool readable(const AttVec& vec, int att) {
  return att >= 0 && vec.interpreters && vec.interpreters->roles;
}
inline bool has_att(const AttVec& vec, int att) {
  return readable(vec, att) && vec.has(att);
}
/// The raw value; 0 if undefined.
inline AttWord value_of(const AttVec& vec, int att) {
  return has_att(vec, att) ? vec.get(att) : 0;
}
/// Defined and of a true value.
inline bool is_true(const AttVec& vec, int att) {
  return value_of(vec, att) != 0;
}
/// Defined and of a false value.
inline bool is_false(const AttVec& vec, int att) {
  return has_att(vec, att) && vec.get(att) == 0;
}
/// The list of a list attribute, null if undefined or none.
inline AttVecList* list_of(const AttVec& vec, int att) {
  return reinterpret_cast<AttVecList*>(value_of(vec, att));
}
inline TraceChain* trace_of(const AttVec& vec, int att) {
  return reinterpret_cast<TraceChain*>(value_of(vec, att));
}
/// The text of a string attribute, no name if undefined.
inline Name text_of(const AttVec& vec, int att) {
  return Name::of_word(value_of(vec, att));
}
/// Stores a value, or nothing in a vector that cannot take it.
inline void store_att(AttVec& vec, int att, AttWord value) {
  if (readable(vec, att)) vec.set(att, value);
}
inline void store_att(AttVec& vec, int att, const void* counted) {
  store_att(vec, att, reinterpret_cast<AttWord>(counted));
}
inline void remove_att(AttVec& vec, int att) {
  if (readable(vec, att)) vec.undefine(att);
}
/// The list of a list attribute with no other owner, copied if need be; null if undefined or none.
inline AttVecList* own_list(AttVec& vec, int att) {
  return readable(vec, att) ? vec.own_list(att) : nullptr;
}

/// The vector of argument i in a list attribute; null if there is none.
inline const AttVec* argument_of(const AttVec& vec, int att, int i) {
  const AttVecList* list = list_of(vec, att);
  return list ? list->at(i) : nullptr;
}
inline bool is_preposition(const AttVec& vec) {
  const SyntaxAtts& syn = syntax_atts(vec);
  return syn.cat_p != 0 && value_of(vec, syn.cat) == syn.cat_p;
}

}  // namespace torvane
