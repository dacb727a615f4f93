// How commands and forms on vectors take their arguments.
#pragma once

#include "att/att_interpreter_list.h"

namespace torvane {

/// The type that a form may name first; the current one if it names none, or (reported) an unknown
/// one.
AttInterpreterList* take_att_type(World& world, IRSlist& args);
/// `[type] vector`: a new vector, empty if its form is missing.
Ref<AttVec> read_vector(World& world, IRSlist& args);

}  // namespace torvane
