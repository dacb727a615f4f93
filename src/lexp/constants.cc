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

constinit const TypeTag kSharedExp{"LExp*", &tags::lexp, Life::counted,
                                   SharedConstant<LExp>::retain, SharedConstant<LExp>::release};

constexpr Command kCommands[] = {
    {"flush", flush_command, nullptr},
};

}  // namespace

const char* constant_text(World& world, const char* text) {
  return expressions(world).constant_texts.copy(text);
}

// Only a copied `let` makes a difference between an expression and its copy.
PredConst::PredConst(const PredConst& other) : Form(other), exp_(other.exp_) {
  if (exp_.get() && expressions(world()).scopes.let_copies > 0) give(exp_.get()->copy());
}

void PredConst::init(World& world, IRSlist* args) {
  give(get_exp(world, args->nth(0)));
}

void PredConst::give(std::unique_ptr<LExp> exp) {
  exp_ = SharedConstant<LExp>(std::move(exp));
  value = Value::of_kind(exp_.get(), kSharedExp);
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
  register_pure_form<IntegerConst>(world);
  register_pure_form<StrConst>(world);
  register_form<IstrmConst>(world);
  register_form<OstrmConst>(world);
  world.interpreter.define(kCommands);
}

}  // namespace torvane
