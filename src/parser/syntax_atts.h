// The attributes that have a fixed role in the parser, looked up once in the type called `syn` by the
// command `init-attributes`. An attribute that the type lacks, or gives another class than its role needs,
// has the index -1 and reads as undefined.
#pragma once

#include "att/att_interpreter_list.h"

namespace torvane {

struct SyntaxAtts {
  AttInterpreterList* type = nullptr;
  int args = -1, cm = -1, cat = -1, cform = -1, check = -1, control = -1, govern = -1, guest = -1,
      head_final = -1, last_conj = -1, lexitem = -1, move = -1, node = -1, opt = -1, pform = -1, rare = -1,
      ref = -1, role = -1, slash = -1, trace = -1;
  AttWord wh = 0;                                       ///< the value `wh` of `slash`
  AttWord cat_a = 0, cat_c = 0, cat_d = 0, cat_i = 0, cat_j = 0, cat_n = 0, cat_p = 0, cat_v = 0;
};

/// The handles of the run.
const SyntaxAtts& syntax_atts();

/// Defined and of a true value.
inline bool is_true(const AttVec& vec, int att) { return att >= 0 && vec.get(att) != 0; }
/// Defined and of a false value.
inline bool is_false(const AttVec& vec, int att) {
  return att >= 0 && vec.has(att) && vec.get(att) == 0;
}
inline bool has_att(const AttVec& vec, int att) { return att >= 0 && vec.has(att); }
/// The list of a list attribute, null if undefined or none. The vectors of every sort are of type `syn`
/// or of the list's own nested type; an index is only read in a vector of type `syn`.
inline AttVecList* list_of(const AttVec& vec, int att) {
  return att >= 0 ? reinterpret_cast<AttVecList*>(vec.get(att)) : nullptr;
}
inline TraceChain* trace_of(const AttVec& vec, int att) {
  return att >= 0 ? reinterpret_cast<TraceChain*>(vec.get(att)) : nullptr;
}
/// The text of a string attribute, null if undefined.
inline const char* text_of(const AttVec& vec, int att) {
  return att >= 0 ? reinterpret_cast<const char*>(vec.get(att)) : nullptr;
}

/// The command `init-attributes`.
void register_init_attributes();

}  // namespace torvane
