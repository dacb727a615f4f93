#include "lexp/constants.h"


#include "lexp/expressions.h"
#include "lexp/stream_forms.h"
#include "lexp/variables.h"
#include "shell/exec.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

namespace {

Value keep(World& world, ExpPtr exp) {
  return exp ? Value::of(expressions(world).kept.append(std::move(exp)).get()) : Value();
}

constexpr Command kCommands[] = {
    {"flush", flush_command, nullptr},
};

}  // namespace

const char* constant_text(World& world, const char* text) {
  return expressions(world).constant_texts.copy(text);
}

// Only a copied `let` makes a difference between an expression and its copy.
PredConst::PredConst(const PredConst& other) : Form(other) {
  if (auto* exp = other.value.as<LExp>(); exp && expressions(world()).scopes.let_copies > 0)
    value = keep(world(), exp->copy());
}

void PredConst::init(World& world, IRSlist* args) {
  value = keep(world, get_exp(world, args->nth(0)));
}

void NamedObjConst::init(World& world, IRSlist* args) {
  const char* object_name = args->get_str_val();
  const char* type = args->get_str_val();
  if (!type) messages() << "the type of '" << or_empty(object_name) << "' is not defined\n";
  value = world.objects.find(object_name, type, true);
}

void register_constant_forms(World& world) {
  register_form<PredConst>(world);
  register_form<NamedObjConst>(world);
  register_form<IntegerConst>(world);
  register_form<StrConst>(world);
  register_form<IstrmConst>(world);
  register_form<OstrmConst>(world);
  world.interpreter.define(kCommands);
}

}  // namespace torvane
