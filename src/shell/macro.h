// Textual macros. They serve both levels of the language: a macro call in command position is
// expanded and run as commands, one in expression position is expanded and compiled.
#pragma once

#include <optional>
#include <string>

#include "shell/irslist.h"

namespace torvane {

/// The expansion of a form whose head is a macro's name (the name is taken off the form); nothing,
/// with the form untouched, for any other.
std::optional<std::string> expand_macro(IRSlist& form);

/// `defmacro` and `debug-macro`.
void register_macro_commands();

}  // namespace torvane
