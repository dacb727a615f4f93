// Textual macros. They serve both levels of the language: a macro call in command position is
// expanded and run as commands, one in expression position is expanded and compiled.
#pragma once

#include <cstddef>
#include <string>

#include "shell/irslist.h"
#include "support/depth.h"

namespace torvane {

struct Macro;

/// The macro whose name is the head of a form, or null.
const Macro* find_macro(const IRSlist& form);

/// The expansion of a form, which loses its head. Empty, after a message, where there is no room
/// for it any more: the form is then dropped.
std::string expand_macro(const Macro& macro, IRSlist& form);

/// Around the whole of what an expansion leads to, which shares one room for its texts.
class ExpansionScope {
 public:
  ExpansionScope();
  ~ExpansionScope();
  ExpansionScope(const ExpansionScope&) = delete;
  ExpansionScope& operator=(const ExpansionScope&) = delete;

 private:
  RunHold hold_;
  std::size_t room_before_;
};

/// `defmacro` and `debug-macro`.
void register_macro_commands();

}  // namespace torvane
