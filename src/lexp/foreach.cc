// The command `foreach`: an expression evaluated on each item of a list.
#include "lexp/form.h"
#include "lexp/offers.h"
#include "shell/world.h"

namespace torvane {

namespace {

Value foreach_command(World& world, IRSlist* form) {
  ExpPtr exp = LExp::get_exp(world, form->find_keyword_node(":eval", false));
  IRSlist* list = form->nth(0);
  if (!exp || !list) return Value();
  Round round;
  for (const IRSlist* item : list->items) {
    exp->eval(item->atom ? Value::made_text(item->atom) : Value(), type_id_of<const char*>());
    round.next();
  }
  return Value();
}

constexpr Command kForeachCommands[] = {
    {"foreach", foreach_command,
     "(foreach LIST :eval LEXP) Evaluate LExp with each of the string in the list."},
};

}  // namespace

constinit const Offer offers::foreach{kForeachCommands};

}  // namespace torvane
