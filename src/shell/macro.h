// Textual macros. They serve both levels of the language: a macro call in command position is
// expanded and run as commands, one in expression position is expanded and compiled.
#pragma once

#include <optional>
#include <string>

#include "shell/irslist.h"
#include "support/name_table.h"

namespace torvane {

class World;

/// The macros of a world.
class Macros {
 public:
  Macros();
  ~Macros();
  /// Defines one from `(NAME (PARAMETERS) BODY...)`; `double_byte` as for a tokenizer.
  void define(IRSlist& form, bool double_byte);
  /// The expansion of a form whose head is a macro's name (the name is taken off the form);
  /// nothing, with the form untouched, for any other.
  std::optional<std::string> expand(IRSlist& form) const;

  /// The macro whose expansions are shown; all for a name that begins with "*".
  std::string shown_name;

 private:
  struct Macro;
  NameTable<std::unique_ptr<Macro>> table_;
};

/// `defmacro` and `debug-macro`.
void register_macro_commands(World& world);

}  // namespace torvane
