#include "lexp/constants.h"

#include <iostream>

#include "lexp/stream_forms.h"
#include "lexp/variables.h"
#include "shell/exec.h"
#include "shell/named_objects.h"

namespace torvane {

namespace {

// Keeps an expression for the rest of the run.
Value keep(ExpPtr exp) {
  static auto& kept = *new Array<ExpPtr>;
  return exp ? Value::of(kept.append(std::move(exp)).get()) : Value();
}

constexpr Command kCommands[] = {
    {"flush", flush_command, nullptr},
};

}  // namespace

const char* constant_text(const char* text) {
  static auto& texts = *new StrBufs(4096);
  return texts.copy(text);
}

// Only a copied `let` makes a difference between an expression and its copy.
PredConst::PredConst(const PredConst& other) : Form(other) {
  if (auto* exp = other.value.as<LExp>(); exp && copying_let()) value = keep(exp->copy());
}

void PredConst::init(IRSlist* args) {
  value = keep(get_exp(args->nth(0)));
}

void NamedObjConst::init(IRSlist* args) {
  const char* object_name = args->get_str_val();
  const char* type = args->get_str_val();
  if (!type) std::cerr << "the type of '" << or_empty(object_name) << "' is not defined\n";
  value = find_object(object_name, type, true);
}

void register_constant_forms() {
  static bool registered = false;
  if (registered) return;
  registered = true;
  register_form<PredConst>();
  register_form<NamedObjConst>();
  register_pure_form<IntegerConst>();
  register_pure_form<StrConst>();
  register_form<IstrmConst>();
  register_form<OstrmConst>();
  interpreter().define(kCommands);
}

}  // namespace torvane
