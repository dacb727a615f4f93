#include "lexp/control_forms.h"

#include <unistd.h>

namespace torvane {

namespace tags {
const TypeTag two_args{"TwoArgs*", nullptr, Life::transient};  // lives in a comparison's frame
const TypeTag value_list{"Slist*", nullptr, Life::counted,
                         [](Word w) { reinterpret_cast<ValueList*>(w)->retain(); },
                         [](Word w) { reinterpret_cast<ValueList*>(w)->release(); }};
}  // namespace tags

Value Prog1Exp::eval(Value input, int type) {
  // Kept: empty-prog1
  if (exps.empty()) return Value();
  Value result = exps[0]->eval(input, type);
  for (int i = 1; i < exps.count(); ++i) exps[i]->eval(input, type);
  return result;
}

Value FuncComp::eval(Value input, int type) {
  for (const ExpPtr& exp : exps) {
    input = exp->eval(input, type);
    type = exp->out_type;
  }
  return input;
}

Value IfAction::eval(Value input, int type) {
  if (exps.empty()) return Value();
  int branch = exps[0]->eval(input, type) ? 1 : 2;
  return branch < exps.count() ? exps[branch]->eval(input, type) : Value();
}

Value WhileAction::eval(Value input, int type) {
  // Kept: empty-while
  while (exps.empty()) pause();  // no condition to fail: it never ends
  for (Round round;; round.next()) {
    bool first = true;
    for (const ExpPtr& exp : exps) {
      Value value = exp->eval(input, type);
      if (first && !value) return Value();
      first = false;
    }
  }
}

Value WhenAction::eval(Value input, int type) {
  if (exps.empty()) return Value();
  Value condition = exps[0]->eval(input, type);
  if (!condition) return Value();
  for (int i = 1; i < exps.count(); ++i) exps[i]->eval(input, type);
  // Kept: when-gives-condition
  return condition;
}

void OneOf::init(World& world, IRSlist* args) {
  pred = get_exp(world, args->find_keyword_node(":is", false));
  for (IRSlist* item : args->items) {
    if (item->is_atom()) break;
    if (auto exp = get_exp(world, item)) exps.append(std::move(exp));
  }
}

Value OneOf::eval(Value input, int type) {
  for (const ExpPtr& exp : exps) {
    Value value = exp->eval(input, type);
    if (Value found = pred.eval(value, exp->out_type)) return found;
  }
  return Value();
}

void CondAction::init(World& world, IRSlist* args) {
  for (IRSlist* item : args->items) {
    Array<ExpPtr> clause;
    for (IRSlist* part : item->items) {
      if (auto exp = get_exp(world, part)) {
        // Kept: cond-out-type
        out_type = exp->out_type;
        clause.append(std::move(exp));
      }
    }
    clauses.append(std::move(clause));
  }
}

Value CondAction::eval(Value input, int type) {
  for (const Array<ExpPtr>& clause : clauses) {
    if (clause.empty()) continue;
    Value value = clause[0]->eval(input, type);
    if (!value) continue;
    for (int i = 1; i < clause.count(); ++i) value = clause[i]->eval(input, type);
    return value;
  }
  return Value();
}

Reach CondAction::parts_reach() const {
  Reach reach = Reach::input;
  for (const Array<ExpPtr>& clause : clauses) reach = std::max(reach, reach_of(clause));
  return reach;
}

Value CollectExp::eval(Value input, int type) {
  Array<HeldValue> values(exps.count());
  for (const ExpPtr& exp : exps) values.append(HeldValue(exp->eval(input, type)));
  // Kept: list-is-reused
  result->values.swap(values);
  return Value::of(result.get());
}

// Kept: not-gives-input
Value NegExp::eval(Value input, int type) {
  if (exps.empty()) return Value::truth(!input);
  for (const ExpPtr& exp : exps) {
    if (exp->eval(input, type)) return Value();
  }
  return input;
}

Value OrExp::eval(Value input, int type) {
  // Kept: empty-or-gives-input
  if (exps.empty()) return input;
  for (const ExpPtr& exp : exps) {
    if (Value value = exp->eval(input, type)) return value;
  }
  return Value();
}

Value XorExp::eval(Value input, int type) {
  bool odd = false;
  for (const ExpPtr& exp : exps) odd ^= static_cast<bool>(exp->eval(input, type));
  return Value::truth(odd);
}

Value AndExp::eval(Value input, int type) {
  Value value = input;
  for (const ExpPtr& exp : exps) {
    value = exp->eval(input, type);
    if (!value) return Value();
  }
  return value;
}

Value OneOfTwo::eval(Value input, int type) {
  if (!input || !accepts(type)) return Value();
  auto* pair = input.as<TwoArgs>();
  if (!pair) return Value();
  return sub ? sub->eval(pair->first, pair->first_type) : pair->first;
}

Value TwoOfTwo::eval(Value input, int type) {
  if (!input || !accepts(type)) return Value();
  auto* pair = input.as<TwoArgs>();
  if (!pair) return Value();
  return sub ? sub->eval(pair->second, pair->second_type) : pair->second;
}

Value EqExp::eval(Value input, int type) {
  if (!accepts(type) || !a || !b) return Value();
  Value left = a->eval(input, type);
  // Kept: eq-compares-words
  return Value::truth(left == b->eval(input, type));
}

}  // namespace torvane
