// The command `eval`: expressions evaluated on nothing.
#include "lexp/form.h"
#include "lexp/offers.h"
#include "shell/world.h"

namespace torvane {

namespace {

Value eval_command(World& world, IRSlist* form) {
  Round round;
  for (IRSlist* item : form->items) {
    ExpPtr(LExp::get_exp(world, item)).eval(Value(), kAnyType);
    round.next();
  }
  return Value();
}

constexpr Command kEvalCommands[] = {
    {"eval", eval_command, "(eval LExp) Evaluate LExp with 0 as input."},
};

}  // namespace

constinit const Offer offers::eval{kEvalCommands};

}  // namespace torvane
