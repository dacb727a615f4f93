// Aliases: named vectors of a type that stand for their attributes in forms and in print, and the
// binary file that keeps them.
#pragma once

#include <istream>

#include "att/att_interpreter_list.h"

namespace torvane {

/// Writes every alias of a type, in the table's order: a record each of length, name and packed
/// vector. False if the file cannot be written.
bool save_aliases(const AttInterpreterList& type, const char* file);
/// Reads records up to the end of the stream, or to the first that is damaged, and adds their
/// aliases.
void read_aliases(AttInterpreterList& type, std::istream& in);

}  // namespace torvane
