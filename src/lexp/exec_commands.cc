#include "lexp/exec_commands.h"

#include "lexp/expressions.h"
#include "shell/world.h"

namespace torvane {

void settle_values(World& world) {
  if (expressions(world).commands_running == 0) free_retired_values();
}

bool expression_waits(World& world) {
  return expressions(world).commands_running > 0;
}

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
  int& commands_running = expressions(world()).commands_running;
  ++commands_running;
  Value result = world().interpreter.eval_all(forms);
  --commands_running;
  // What `quote` gives goes with the copy.
  const char* text = result.text();
  return text && result.tag() == &tags::name ? result_.set(text) : result;
}

Value eval_command(World& world, IRSlist* form) {
  for (IRSlist* item : form->items) {
    ExpPtr(LExp::get_exp(world, item)).eval(Value(), kAnyType);
    settle_values(world);
  }
  return Value();
}

Value foreach_command(World& world, IRSlist* form) {
  ExpPtr exp = LExp::get_exp(world, form->find_keyword_node(":eval", false));
  IRSlist* list = form->nth(0);
  if (!exp || !list) return Value();
  for (const IRSlist* item : list->items) {
    exp->eval(Value::buffer_text(item->atom), type_id_of<const char*>());
    settle_values(world);
  }
  return Value();
}

}  // namespace torvane
