#include "lexp/variables.h"

#include <iostream>

#include "support/name_table.h"

namespace torvane {

namespace {

using Scope = NameTable<Ref<Var>>;
using ScopeStack = Array<std::unique_ptr<Scope>>;

constexpr int kGlobalScopeSize = 23;

ScopeStack& scopes() {
  static ScopeStack& stack = *[] {
    auto* all = new ScopeStack(10);
    all->append(std::make_unique<Scope>(kGlobalScopeSize));
    return all;
  }();
  return stack;
}

int let_copies = 0;

Ref<Var> var_for_copy(const Ref<Var>& old) {
  if (!old) return old;
  Var* visible = find_var(old->name.c_str());
  if (!visible) std::cerr << "Variable " << old->name << " is not defined.\n";
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
  std::cerr << "the variable " << name
            << " is assigned an incompatible type: " << or_empty(type_name(given))
            << ". The expected type is: " << or_empty(type_name(type)) << '\n';
}

Ref<Var> declare_var(const char* name, int type) {
  auto var = make_ref<Var>(name, type);
  if (name) scopes().back()->insert(name, var);
  return var;
}

Var* find_var(const char* name) {
  ScopeStack& stack = scopes();
  for (int i = stack.count() - 1; i >= 0; --i) {
    if (auto* entry = stack[i]->find(name)) return entry->value.get();
  }
  return nullptr;
}

Var* find_own_var(const char* name) {
  auto* entry = scopes().back()->find(name);
  return entry ? entry->value.get() : nullptr;
}

void push_scope(int size) {
  if (size < 0) size = scopes().back()->bucket_count();
  scopes().append(std::make_unique<Scope>(size));
}

void pop_scope() {
  if (scopes().count() > 1) scopes().pop_back();
}

bool copying_let() {
  return let_copies > 0;
}

Array<Ref<Var>> declare_vars(const IRSlist& list) {
  Array<Ref<Var>> vars;
  for (const IRSlist* item : list.items) {
    if (item->is_atom()) {
      vars.append(declare_var(item->atom, kAnyType));
    } else {
      vars.append(declare_var(item->nth_str_val(0), type_id(item->nth_str_val(1))));
    }
    vars.back()->local = true;
  }
  return vars;
}

Value declare_var_command(IRSlist* form) {
  if (const char* name = form->get_str_val()) declare_var(name, type_id(form->get_str_val()));
  return Value();
}

VarExp::VarExp(const VarExp& other) : LExp(other), var(var_for_copy(other.var)), sub(other.sub) {}

void VarExp::bind(const char* var_name) {
  var = Ref<Var>(find_var(var_name));
  own_reach = var && !var->local ? Reach::variables : Reach::input;
}

void AssignVar::init(IRSlist* args) {
  const char* var_name = args->get_str_val();
  sub = get_exp(args->nth(0));
  if (sub) in_type = out_type = sub->out_type;
  bind(var_name);
  if (!var) {
    std::cerr << "(setq ... ): the variable " << or_empty(var_name) << " is not defined\n";
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

void GetVarVal::init(IRSlist* args) {
  const char* var_name = args->get_str_val();
  bind(var_name);
  if (var) {
    out_type = var->type;
  } else {
    std::cerr << "(get-val ... ): the variable " << or_empty(var_name) << " is not defined\n";
  }
  sub = get_exp(args->nth(0));
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
  push_scope(vars.empty() ? -1 : vars.count());
  ++let_copies;
  for (const Ref<Var>& var : vars) {
    Ref<Var> own = declare_var(var->name.empty() ? nullptr : var->name.c_str(), var->type);
    own->local = true;
    own->stands_for = var.get();
    fresh->vars.append(own);
  }
  fresh->exps = exps;
  --let_copies;
  pop_scope();
  return fresh;
}

void LetExp::init(IRSlist* args) {
  std::unique_ptr<IRSlist> list = args->pop_front();
  push_scope(list ? list->length() : 0);
  if (list) vars = declare_vars(*list);
  CompExp::init(args);
  if (list) args->push_front(std::move(list));
  pop_scope();
}

Value LetExp::eval(Value input, int input_type) {
  for (const Ref<Var>& var : vars) var->push();
  Value result = CompExp::eval(input, input_type);
  for (const Ref<Var>& var : vars) var->pop();
  return result;
}

}  // namespace torvane
