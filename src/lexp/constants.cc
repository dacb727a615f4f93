#include "lexp/constants.h"

#include <iostream>

#include "lexp/stream_forms.h"
#include "lexp/variables.h"
#include "shell/exec.h"
#include "shell/named_objects.h"

namespace torvane {

namespace {

constinit const TypeTag kSharedExp{"LExp*", &tags::lexp, Life::counted,
                                   SharedConstant<LExp>::retain, SharedConstant<LExp>::release};

constexpr Command kCommands[] = {
    {"flush", flush_command, nullptr},
};

}  // namespace

const char* constant_text(const char* text) {
  static auto& texts = *new StrBufs(4096);
  return texts.copy(text);
}

// Only a copied `let` makes a difference between an expression and its copy.
PredConst::PredConst(const PredConst& other) : Form(other), exp_(other.exp_) {
  if (exp_.get() && copying_let()) give(exp_.get()->copy());
}

void PredConst::init(IRSlist* args) {
  give(get_exp(args->nth(0)));
}

void PredConst::give(std::unique_ptr<LExp> exp) {
  exp_ = SharedConstant<LExp>(std::move(exp));
  value = Value::of_kind(exp_.get(), kSharedExp);
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
