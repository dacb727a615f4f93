#include "lexp/exec_commands.h"

#include "shell/world.h"

namespace torvane {

ExecCommands::ExecCommands(const ExecCommands& other) : Form(other) {
  commands_.copy_into(other.commands_, texts_);
}

void ExecCommands::init(World&, IRSlist* args) {
  commands_.copy_into(*args, texts_);
}

Value ExecCommands::eval(Value, int) {
  // Local, since a command may come back to this very expression.
  StrBufs texts(256);
  IRSlist forms;
  forms.copy_into(commands_, texts);
  WaitForCommands waiting;
  Value result = world().interpreter.eval_all(forms);
  // What `quote` gives goes with the copy.
  return result.tag() == &tags::name ? Value::made_text(result.text()) : result;
}

Value eval_command(World& world, IRSlist* form) {
  Round round;
  for (IRSlist* item : form->items) {
    ExpPtr(LExp::get_exp(world, item)).eval(Value(), kAnyType);
    round.next();
  }
  return Value();
}

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

}  // namespace torvane
