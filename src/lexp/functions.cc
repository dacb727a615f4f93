#include "lexp/functions.h"

#include "lexp/expressions.h"
#include "lexp/offers.h"
#include "lexp/refusal.h"
#include "support/depth.h"
#include "support/messages.h"

namespace torvane {

namespace {

thread_local DepthLimit call_depth{"the calls of defined functions are nested too deeply"};

// A call of a defined function. Its prototype stands in the factory under the function's name.
class FuncExp : public LExp {
 public:
  explicit FuncExp(Func* function) : func(function) { own_reach = Reach::input; }
  const char* name() const override { return func->name.c_str(); }
  const char* doc() const override { return func->doc ? func->doc->c_str() : LExp::doc(); }
  std::unique_ptr<LExp> copy() const override { return std::make_unique<FuncExp>(*this); }

  void init(World& world, IRSlist* items) override {
    int wanted = func->params.count();
    int count = items->length();
    if (count != wanted) {
      messages() << func->name << " requires " << wanted << " arguments. " << count << " found.\n";
      return;
    }
    for (IRSlist* item : items->items) args.append(get_exp(world, item));
  }

  Value eval(Value input, int input_type) override {
    if (func->body.empty()) return Value();
    DepthGuard guard(call_depth);
    if (!guard) return Value();
    if (func->params.empty()) return eval_body(input, input_type);
    bind_arguments(input, input_type);
    Value result = eval_body(input, input_type);
    for (const Ref<Var>& param : func->params) param->pop();
    return result;
  }

  Value watch(Value input, int input_type, Refusal& refusal) override {
    if (!func->params.empty() || func->body.empty()) return LExp::watch(input, input_type, refusal);
    DepthGuard guard(call_depth);
    if (!guard) return Value();
    const std::size_t before = refusal.steps.size();
    Value result;
    for (const ExpPtr& exp : func->body) {
      refusal.steps.resize(before);
      result = exp ? exp->watch(input, input_type, refusal) : Value();
    }
    if (!result) refusal.steps.push_back({this, {}, true});
    return result;
  }

  // Of a function that may call itself nothing is known: its body is followed no further.
  Outlook foresee(Value input, int input_type) override {
    const bool follows = func->params.empty() && func->body.count() == 1 && func->body[0] &&
                         (func->reach == Reach::input || func->reach == Reach::change);
    return follows ? func->body[0]->foresee(input, input_type) : Outlook::unknown;
  }

  Array<ExpPtr> args;
  Func* func;

 protected:
  Reach parts_reach() const override { return reach_of(args) | func->reach; }

 private:
  Value eval_body(Value input, int input_type) const {
    Value result;
    for (const ExpPtr& exp : func->body) result = exp.eval(input, input_type);
    return result;
  }
  // From the last parameter to the first: an argument evaluated later sees those already bound.
  void bind_arguments(Value input, int input_type) {
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
};

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

constexpr Command kFunctionsCommands[] = {
    {"defun", defun, "(defun funcname ( [args] ) LExp LExp ...) define a function."},
};

}  // namespace

constinit const Offer offers::functions{kFunctionsCommands};

}  // namespace torvane
