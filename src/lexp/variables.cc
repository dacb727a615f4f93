#include "lexp/variables.h"

#include "lexp/expressions.h"
#include "support/messages.h"

namespace torvane {

namespace {

constexpr int kGlobalScopeSize = 23;

Ref<Var> var_for_copy(const VarExp& exp) {
  const Ref<Var>& old = exp.var;
  if (!old) return old;
  Var* visible = exp.scopes().find(old->name.c_str());
  if (!visible) messages() << "Variable " << old->name << " is not defined.\n";
  return visible && visible->stands_for == old.get() ? Ref<Var>(visible) : old;
}

}  // namespace

void Var::pop() {
  if (saved.empty()) return;
  type = saved.back().type;
  value = std::move(saved.back().value);
  saved.pop_back();
}

void Var::report_type(int given) const {
  messages() << "the variable " << name
             << " is assigned an incompatible type: " << or_empty(types_.name(given))
             << ". The expected type is: " << or_empty(types_.name(type)) << '\n';
}

Scopes::Scopes(Types& types) : types_(types) {
  stack_.append(std::make_unique<Scope>(kGlobalScopeSize));
}

Ref<Var> Scopes::declare(const char* name, int type) {
  auto var = make_ref<Var>(name, type, types_);
  if (name) stack_.back()->insert(name, var);
  return var;
}

Var* Scopes::find(const char* name) {
  for (int i = stack_.count() - 1; i >= 0; --i) {
    if (auto* entry = stack_[i]->find(name)) return entry->value.get();
  }
  return nullptr;
}

Var* Scopes::find_own(const char* name) {
  auto* entry = stack_.back()->find(name);
  return entry ? entry->value.get() : nullptr;
}

void Scopes::push(int size) {
  if (size < 0) size = stack_.back()->bucket_count();
  stack_.append(std::make_unique<Scope>(size));
}

void Scopes::pop() {
  if (stack_.count() > 1) stack_.pop_back();
}

void Scopes::clear_values() {
  for (const std::unique_ptr<Scope>& scope : stack_)
    scope->for_each([](const auto& entry) { entry.value->value = HeldValue(); });
}

Array<Ref<Var>> Scopes::declare_all(const IRSlist& list) {
  Array<Ref<Var>> vars;
  for (const IRSlist* item : list.items) {
    if (item->is_atom()) {
      vars.append(declare(item->atom, kAnyType));
    } else {
      vars.append(declare(item->nth_str_val(0), types_.id(item->nth_str_val(1))));
    }
    vars.back()->local = true;
  }
  return vars;
}

Value declare_var_command(World& world, IRSlist* form) {
  Expressions& ours = expressions(world);
  if (const char* name = form->get_str_val())
    ours.scopes.declare(name, ours.types.id(form->get_str_val()));
  return Value();
}

Scopes& VarExp::scopes() const {
  return expressions(world()).scopes;
}

VarExp::VarExp(const VarExp& other) : LExp(other), var(var_for_copy(other)), sub(other.sub) {}

void VarExp::bind(const char* var_name) {
  var = Ref<Var>(scopes().find(var_name));
  own_reach = var && !var->local ? Reach::variables : Reach::input;
}

void AssignVar::init(World& world, IRSlist* args) {
  const char* var_name = args->get_str_val();
  sub = get_exp(world, args->nth(0));
  if (sub) in_type = out_type = sub->out_type;
  bind(var_name);
  if (!var) {
    messages() << "(setq ... ): the variable " << or_empty(var_name) << " is not defined\n";
  }
}

Value AssignVar::eval(Value input, int input_type) {
  Value value = input;
  if (sub) {
    value = sub->eval(input, input_type);
    input_type = sub->out_type;
  }
  if (var) var->assign(value, input_type);
  return value;
}

void GetVarVal::init(World& world, IRSlist* args) {
  const char* var_name = args->get_str_val();
  bind(var_name);
  if (var) {
    out_type = var->type;
  } else {
    messages() << "(get-val ... ): the variable " << or_empty(var_name) << " is not defined\n";
  }
  sub = get_exp(world, args->nth(0));
}

Value GetVarVal::eval(Value, int) {
  Value value = var ? var->value.get() : Value();
  return sub ? sub->eval(value, var ? var->type : kAnyType) : value;
}

std::unique_ptr<LExp> LetExp::copy() const {
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

void LetExp::init(World& world, IRSlist* args) {
  std::unique_ptr<IRSlist> list = args->pop_front();
  Scopes& scopes = expressions(world).scopes;
  scopes.push(list ? list->length() : 0);
  if (list) vars = scopes.declare_all(*list);
  CompExp::init(world, args);
  if (list) args->push_front(std::move(list));
  scopes.pop();
}

Value LetExp::eval(Value input, int input_type) {
  for (const Ref<Var>& var : vars) var->push();
  Value result = CompExp::eval(input, input_type);
  for (const Ref<Var>& var : vars) var->pop();
  return result;
}

}  // namespace torvane
