// The way back from expressions to commands.
#pragma once

#include "lexp/form.h"
#include "shell/irslist.h"

namespace torvane {

/// Keeps its forms, and runs a fresh copy of them as commands at each evaluation.
class ExecCommands : public Form<ExecCommands> {
 public:
  static constexpr const char* kName = "exec-commands";
  ExecCommands() = default;
  ExecCommands(const ExecCommands& other);
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

 private:
  StrBufs texts_{256};
  IRSlist commands_;
};

/// `(eval LEXP ...)` and `(foreach LIST :eval LEXP)`
Value eval_command(World& world, IRSlist* form);
Value foreach_command(World& world, IRSlist* form);

}  // namespace torvane
