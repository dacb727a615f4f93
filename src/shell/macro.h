// Textual macros. They serve both levels of the language: a macro call in command position is
// expanded and run as commands, one in expression position is expanded and compiled.
#pragma once

#include <cstddef>
#include <string>

#include "shell/irslist.h"
#include "support/depth.h"
#include "support/name_table.h"

namespace torvane {

class World;
struct Macro;

/// The macros of a world.
class Macros {
 public:
  Macros();
  ~Macros();
  /// Defines one from `(NAME (PARAMETERS) BODY...)`; `double_byte` as for a tokenizer.
  void define(IRSlist& form, bool double_byte);
  /// The macro whose name is the head of a form, or null.
  const Macro* find(const IRSlist& form) const;
  /// The expansion of a form, which loses its head. Empty, after a message, where there is no room
  /// for it any more: the form is then dropped.
  std::string expand(const Macro& macro, IRSlist& form);

  /// The macro whose expansions are shown; all for a name that begins with "*".
  std::string shown_name;

 private:
  friend class ExpansionScope;

  NameTable<std::unique_ptr<Macro>> table_;
  // An expansion may lead to a longer one, or to two, and so on: as their depth, their length has
  // an end.
  std::size_t room_ = std::size_t{8} << 20;
};

/// Around the whole of what an expansion leads to, which shares one room for its texts.
class ExpansionScope {
 public:
  explicit ExpansionScope(Macros& macros);
  ~ExpansionScope();
  ExpansionScope(const ExpansionScope&) = delete;
  ExpansionScope& operator=(const ExpansionScope&) = delete;

 private:
  RunHold hold_;
  Macros& macros_;
  std::size_t room_before_;
};

}  // namespace torvane
