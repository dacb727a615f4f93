// What the readers of bytes share.
#pragma once

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include "att/att_interpreter_list.h"
#include "shell/exec.h"

namespace torvane {

/// What a target does with an input; it aborts where a reader is at fault. The error stream is
/// shut.
void read_input(const std::string& bytes);

/// Runs commands that define types of vectors, and what else is to be there.
inline void define(const std::string& commands) {
  register_attribute_types();
  register_attribute_commands();
  interpreter().prompt = false;
  interpreter().load_string(commands.c_str());
}

/// What a thing prints of itself.
template <class Thing>
std::string printed(Thing& thing) {
  std::ostringstream out;
  thing.print(out);
  return out.str();
}

}  // namespace torvane
