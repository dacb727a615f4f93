// The forms that set, read and bind variables, and the command that declares one.
#include "lexp/expressions.h"
#include "lexp/form.h"
#include "lexp/offers.h"
#include "lexp/variables.h"
#include "shell/irslist.h"
#include "support/messages.h"

namespace torvane {

namespace {

class VarExp : public LExp {
 public:
  VarExp() = default;
  /// A copy inside a copied `let` binds to the copy's variable, any other shares the old one.
  VarExp(const VarExp& other) : LExp(other), var(other.var_for_copy()), sub(other.sub) {}

  Ref<Var> var;
  ExpPtr sub;

 protected:
  Scopes& scopes() const { return expressions(world()).scopes; }
  void bind(const char* var_name) {
    var = Ref<Var>(scopes().find(var_name));
    own_reach = var && !var->local ? Reach::variables : Reach::input;
  }
  Reach parts_reach() const override { return sub.reach(); }

 private:
  Ref<Var> var_for_copy() const {
    if (!var) return var;
    Var* visible = scopes().find(var->name.c_str());
    if (!visible) messages() << "Variable " << var->name << " is not defined.\n";
    return visible && visible->stands_for == var.get() ? Ref<Var>(visible) : var;
  }
};

class AssignVar : public Form<AssignVar, VarExp> {
 public:
  static constexpr const char* kName = "setq";
  static constexpr const char* kDoc = "(setq <var-name> <lexp>)";
  void init(World& world, IRSlist* args) override {
    const char* var_name = args->get_str_val();
    sub = get_exp(world, args->nth(0));
    if (sub) in_type = out_type = sub->out_type;
    bind(var_name);
    if (!var) {
      messages() << "(setq ... ): the variable " << or_empty(var_name) << " is not defined\n";
    }
  }
  Value eval(Value input, int input_type) override {
    Value value = input;
    if (sub) {
      value = sub->eval(input, input_type);
      input_type = sub->out_type;
    }
    if (var) var->assign(value, input_type);
    return value;
  }
};

class GetVarVal : public Form<GetVarVal, VarExp> {
 public:
  static constexpr const char* kName = "get-val";
  static constexpr const char* kDoc = "(get-val <var-name> [ <lexp> ])";
  void init(World& world, IRSlist* args) override {
    const char* var_name = args->get_str_val();
    bind(var_name);
    if (var) {
      out_type = var->type;
    } else {
      messages() << "(get-val ... ): the variable " << or_empty(var_name) << " is not defined\n";
    }
    sub = get_exp(world, args->nth(0));
  }
  Value eval(Value, int) override {
    Value value = var ? var->value.get() : Value();
    return sub ? sub->eval(value, var ? var->type : kAnyType) : value;
  }
};

class LetExp : public Form<LetExp, CompExp> {
 public:
  static constexpr const char* kName = "let";
  static constexpr const char* kDoc = "(let (<varlist>) <lexp> <lexp> ...)";
  std::unique_ptr<LExp> copy() const override {
    auto fresh = std::make_unique<LetExp>();
    fresh->in_type = in_type;
    fresh->out_type = out_type;
    fresh->own_reach = own_reach;
    fresh->belong_to(world());
    Scopes& scopes = expressions(world()).scopes;
    scopes.push(vars.empty() ? -1 : vars.count());
    ++scopes.let_copies;
    for (const Ref<Var>& var : vars) {
      Ref<Var> own = scopes.declare(var->name.empty() ? nullptr : var->name.c_str(), var->type);
      own->local = true;
      own->stands_for = var.get();
      fresh->vars.append(own);
    }
    fresh->exps = exps;
    --scopes.let_copies;
    scopes.pop();
    return fresh;
  }
  void init(World& world, IRSlist* args) override {
    std::unique_ptr<IRSlist> list = args->pop_front();
    Scopes& scopes = expressions(world).scopes;
    scopes.push(list ? list->length() : 0);
    if (list) vars = scopes.declare_all(*list);
    CompExp::init(world, args);
    if (list) args->push_front(std::move(list));
    scopes.pop();
  }
  Value eval(Value input, int input_type) override {
    for (const Ref<Var>& var : vars) var->push();
    Value result = CompExp::eval(input, input_type);
    for (const Ref<Var>& var : vars) var->pop();
    return result;
  }

  Array<Ref<Var>> vars;
};

Value declare_var_command(World& world, IRSlist* form) {
  Expressions& ours = expressions(world);
  if (const char* name = form->get_str_val())
    ours.scopes.declare(name, ours.types.id(form->get_str_val()));
  return Value();
}

constexpr Command kVariableFormsCommands[] = {
    {"declare-var", declare_var_command, "(declare-var varname) declare a variable."},
};

constexpr Prototype kVariableForms[] = {
    form<AssignVar>(),
    form<GetVarVal>(),
    pure_form<LetExp>(),
};

}  // namespace

constinit const Offer offers::variable_forms{kVariableForms, kVariableFormsCommands};

}  // namespace torvane
