#include "lexp/variables.h"

#include "lexp/expressions.h"
#include "support/messages.h"

namespace torvane {

namespace {

constexpr int kGlobalScopeSize = 23;

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

}  // namespace torvane
