// Attributes by their names, as forms write them.
#pragma once

#include "att/att_interpreter_list.h"
#include "parser/grammar/link.h"
#include "shell/exec.h"

namespace torvane {

/// The attributes of one argument: a list of names, or a bare name; null: none. `what` says of whom
/// the unknown ones are reported.
AttSet read_atts(const IRSlist* names, const AttInterpreterList* type, const char* what);
AttSet all_atts(const AttInterpreterList* type);

}  // namespace torvane
