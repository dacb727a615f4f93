// Variables: declared at top level, as parameters of a function, or by `let`.
//
// Scopes exist only while expressions are being compiled or copied, to decide which variable a name
// means. A compiled expression holds its variable itself, so that no name is looked at when it
// runs; earlier bindings of a variable wait on a stack inside it.
#pragma once

#include <string>

#include "lexp/lexp.h"
#include "support/name_table.h"
#include "support/ref.h"
#include "support/text.h"

namespace torvane {

class Var : public Counted<Var> {
 public:
  Var(const char* var_name, int declared_type, const Types& types)
      : name(or_empty(var_name)), type(declared_type), types_(types) {}

  /// Starts a new binding, which keeps value and declared type of the old one until it is assigned.
  // Kept: let-starts-with-old-value
  void push() { saved.append({value, type}); }
  /// Ends the binding.
  void pop();
  /// Sets the value. A type other than a declared one is refused with a message, an unknown one
  /// too.
  void assign(Value new_value, int new_type) {
    // Kept: typed-variable-refuses-unknown
    if (type >= 0 && type != new_type) {
      report_type(new_type);
      return;
    }
    value = HeldValue(new_value);
  }

  std::string name;
  HeldValue value;
  int type;
  struct Binding {
    HeldValue value;
    int type;
  };
  Array<Binding> saved;
  /// A parameter or of a `let`: bound anew, and unbound, by what reads and sets it.
  bool local = false;
  /// In a copied `let`: the variable of the original that this one stands for.
  const Var* stands_for = nullptr;

 private:
  [[gnu::cold]] void report_type(int given) const;

  const Types& types_;
};

/// The scopes of a world, the global one lowest.
class Scopes {
 public:
  explicit Scopes(Types& types);
  /// A variable in the top scope. A name that stands there already is reported, and keeps meaning
  /// the first; a null name declares a variable that nothing can name.
  Ref<Var> declare(const char* name, int type);
  /// Declares what a parameter or `let` list names: atoms, or lists of a name and a type.
  Array<Ref<Var>> declare_all(const IRSlist& list);
  /// The variable that a name means here, or null.
  Var* find(const char* name);
  /// The same in the top scope alone.
  Var* find_own(const char* name);
  /// `size` is a hint; a negative one takes the size of the scope below.
  void push(int size);
  /// Leaves the top scope; the global one stays.
  void pop();
  /// Clears what the variables hold.
  void clear_values();

  /// How many `let`s are being copied with variables of their own.
  int let_copies = 0;

 private:
  using Scope = NameTable<Ref<Var>>;

  Types& types_;
  Array<std::unique_ptr<Scope>> stack_{10};
};

}  // namespace torvane
