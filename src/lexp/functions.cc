#include "lexp/functions.h"

#include <iostream>

#include "support/depth.h"

namespace torvane {

namespace {
thread_local DepthLimit call_depth{"the calls of defined functions are nested too deeply"};
}

void FuncExp::init(IRSlist* items) {
  int wanted = func->params.count();
  int count = items->length();
  if (count != wanted) {
    std::cerr << func->name << " requires " << wanted << " arguments. " << count << " found.\n";
    return;
  }
  for (IRSlist* item : items->items) args.append(get_exp(item));
}

// From the last parameter to the first: an argument evaluated later sees those already bound.
void FuncExp::bind_arguments(Value input, int input_type) {
  // Kept: arguments-from-the-right
  for (int i = func->params.count() - 1; i >= 0; --i) {
    Var& param = *func->params[i];
    param.push();
    if (i < args.count() && args[i]) {
      LExp& arg = *args[i].get();
      param.assign(arg.eval(input, input_type), arg.out_type);
    } else {
      param.assign(Value(), kAnyType);
    }
  }
}

Value FuncExp::eval(Value input, int input_type) {
  if (func->body.empty()) return Value();
  DepthGuard guard(call_depth);
  if (!guard) return Value();
  bind_arguments(input, input_type);
  Value result;
  for (const ExpPtr& exp : func->body) result = exp.eval(input, input_type);
  for (const Ref<Var>& param : func->params) param->pop();
  return result;
}

Value defun(IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  std::unique_ptr<IRSlist> params = form->pop_front();
  auto func = std::make_unique<Func>();
  func->name = name;
  push_scope(params ? params->length() : 0);
  IRSlist* first = form->nth(0);
  if (first && first->is_atom()) func->doc = form->get_str_val();
  if (params) func->params = declare_vars(*params);
  // The name stands before the body is compiled, so that the body can call it.
  bool registered = register_lexp(std::make_unique<FuncExp>(func.get()), name);
  for (IRSlist* item : form->items) func->body.append(LExp::get_exp(item));
  pop_scope();
  func->reach = reach_of(func->body);
  if (registered) func.release();  // its prototype is never removed
  return Value();
}

}  // namespace torvane
