// Functions that a start-up file defines: positional parameters, and a body of expressions.
#pragma once

#include <optional>
#include <string>

#include "lexp/variables.h"

namespace torvane {

class World;

struct Func {
  std::string name;
  std::optional<std::string> doc;
  Array<Ref<Var>> params;
  Array<ExpPtr> body;
  Reach reach = Reach::anything;  ///< of the body, once it is whole
};

/// A call of a defined function. Its prototype stands in the factory under the function's name.
class FuncExp : public LExp {
 public:
  explicit FuncExp(Func* function) : func(function) { own_reach = Reach::input; }
  const char* name() const override { return func->name.c_str(); }
  const char* doc() const override { return func->doc ? func->doc->c_str() : LExp::doc(); }
  std::unique_ptr<LExp> copy() const override { return std::make_unique<FuncExp>(*this); }
  void init(World& world, IRSlist* items) override;
  Value eval(Value input, int input_type) override;

  Array<ExpPtr> args;
  Func* func;

 protected:
  Reach parts_reach() const override { return std::max(reach_of(args), func->reach); }

 private:
  void bind_arguments(Value input, int input_type);
};

/// `(defun NAME (PARAMETERS) [DOC] LEXP ...)`
Value defun(World& world, IRSlist* form);

}  // namespace torvane
