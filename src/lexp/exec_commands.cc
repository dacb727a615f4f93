// The way back from expressions to commands: `exec-commands`.
#include "lexp/form.h"
#include "lexp/offers.h"
#include "shell/irslist.h"
#include "shell/world.h"

namespace torvane {

namespace {

/// Keeps its forms, and runs a fresh copy of them as commands at each evaluation.
class ExecCommands : public Form<ExecCommands> {
 public:
  static constexpr const char* kName = "exec-commands";
  static constexpr const char* kUsage =
      "`(exec-commands (command ...) ...)` runs commands each time it is evaluated; the last one's "
      "result";
  ExecCommands() = default;
  ExecCommands(const ExecCommands& other) : Form(other) {
    commands_.copy_into(other.commands_, texts_);
  }
  void init(World&, IRSlist* args) override { commands_.copy_into(*args, texts_); }
  Value eval(Value, int) override {
    // Local, since a command may come back to this very expression.
    StrBufs texts(256);
    IRSlist forms;
    forms.copy_into(commands_, texts);
    WaitForCommands waiting;
    Value result = world().interpreter.eval_all(forms);
    // What `quote` gives goes with the copy.
    return result.tag() == &tags::name ? Value::made_text(result.text()) : result;
  }

 private:
  StrBufs texts_{256};
  IRSlist commands_;
};

constexpr Prototype kExecCommandsForms[] = {
    form<ExecCommands>(),
};

}  // namespace

constinit const Offer offers::exec_commands{kExecCommandsForms};

}  // namespace torvane
