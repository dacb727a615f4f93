#include "lexp/functions.h"

#include "lexp/expressions.h"
#include "support/depth.h"
#include "support/messages.h"

namespace torvane {

namespace {
thread_local DepthLimit call_depth{"the calls of defined functions are nested too deeply"};
}

void FuncExp::init(World& world, IRSlist* items) {
  int wanted = func->params.count();
  int count = items->length();
  if (count != wanted) {
    messages() << func->name << " requires " << wanted << " arguments. " << count << " found.\n";
    return;
  }
  for (IRSlist* item : items->items) args.append(get_exp(world, item));
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

Value defun(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  std::unique_ptr<IRSlist> params = form->pop_front();
  auto func = std::make_unique<Func>();
  func->name = name;
  Expressions& ours = expressions(world);
  ours.scopes.push(params ? params->length() : 0);
  IRSlist* first = form->nth(0);
  if (first && first->is_atom()) func->doc = form->get_str_val();
  if (params) func->params = ours.scopes.declare_all(*params);
  // The name stands before the body is compiled, so that the body can call it.
  bool registered = register_lexp(world, std::make_unique<FuncExp>(func.get()), name);
  for (IRSlist* item : form->items) func->body.append(LExp::get_exp(world, item));
  ours.scopes.pop();
  func->reach = reach_of(func->body);
  if (registered) ours.functions.push_back(std::move(func));
  return Value();
}

}  // namespace torvane
