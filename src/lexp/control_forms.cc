// Sequence, condition and logic. The input is the thread that runs through them: each form hands
// its own input on to its sub-expressions unchanged; only `comp` chains values.
#include <unistd.h>

#include "lexp/form.h"
#include "lexp/lexp.h"
#include "lexp/offers.h"
#include "lexp/refusal.h"
#include "lexp/tuples.h"
#include "support/ref.h"

namespace torvane {

namespace {

class ProgExp : public Form<ProgExp, CompExp> {
 public:
  static constexpr const char* kName = "prog";
  static constexpr const char* kDoc =
      "(prog <lexp1> <lexp2> ... <lexpn>)\n"
      "  The input is passed to and evaluated by <lexp1>, then <lexp2>, ..., <lexpn>.\n"
      "  The return value is the result of <lexpn>";
};

class Prog1Exp : public Form<Prog1Exp, CompExp> {
 public:
  static constexpr const char* kName = "prog1";
  static constexpr const char* kDoc =
      "(prog1 <lexp1> <lexp2> ... <lexpn>)\n"
      "  The input is passed to and evaluated by <lexp1>, then <lexp2>, ..., <lexpn>.\n"
      "  The return value is the result of <lexp1>";
  Value eval(Value input, int type) override {
    // Kept: empty-prog1
    if (exps.empty()) return Value();
    Value result = exps[0]->eval(input, type);
    for (int i = 1; i < exps.count(); ++i) exps[i]->eval(input, type);
    return result;
  }
};

/// The value passes down the chain.
class FuncComp : public Form<FuncComp, CompExp> {
 public:
  static constexpr const char* kName = "comp";
  static constexpr const char* kDoc =
      "(comp <lexp1> <lexp2> ... <lexpn>)\n"
      "  the input is passed to and evaluated by <lexp1>. the result is then\n"
      "  passed to <lexp2> for evaluation. ... the result of evaluating\n"
      "  <lexpn> is returned.";
  Value eval(Value input, int type) override {
    for (const ExpPtr& exp : exps) {
      input = exp->eval(input, type);
      type = exp->out_type;
    }
    return input;
  }
};

class IfAction : public Form<IfAction, CompExp> {
 public:
  static constexpr const char* kName = "if";
  static constexpr const char* kDoc =
      "(if <lexp-cond>\n"
      "    <lexp-t>\n"
      "    <lexp-f>)\n"
      "  The input is passed to <lexp-cond> if the result is not 0, the input\n"
      "  is passed to <lexp-t>, otherwise to <lexp-f>. The result of <lexp-t>\n"
      "  or <lexp-f> is returned.";
  Value eval(Value input, int type) override {
    if (exps.empty()) return Value();
    int branch = exps[0]->eval(input, type) ? 1 : 2;
    return branch < exps.count() ? exps[branch]->eval(input, type) : Value();
  }
  Value watch(Value input, int type, Refusal& refusal) override {
    if (exps.empty()) return refuse(input, refusal);
    const int branch = exps[0]->eval(input, type) ? 1 : 2;
    const Value value = branch < exps.count() ? exps[branch]->watch(input, type, refusal) : Value();
    if (value) return value;
    refusal.steps.push_back({this, branch == 1 ? "its condition holds" : "its condition is false"});
    return Value();
  }
};

class WhileAction : public Form<WhileAction, CompExp> {
 public:
  static constexpr const char* kName = "while";
  static constexpr const char* kDoc =
      "(while <lexp-cond> <lexp> <lexp> <lexp>)\n"
      "  The input is passed to <lexp-cond> if the result is not 0, the input\n"
      "  is passed to the <lexp>'s to be evaluated. Continues until <lexp-cond> fails";
  Value eval(Value input, int type) override {
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
};

class WhenAction : public Form<WhenAction, CompExp> {
 public:
  static constexpr const char* kName = "when";
  static constexpr const char* kDoc =
      "(when <lexp-cond> <lexp> <lexp> <lexp>)\n"
      "  The input is passed to <lexp-cond> if the result is not 0, the input\n"
      "  is passed to the <lexp>'s to be evaluated.";
  Value eval(Value input, int type) override {
    if (exps.empty()) return Value();
    Value condition = exps[0]->eval(input, type);
    if (!condition) return Value();
    for (int i = 1; i < exps.count(); ++i) exps[i]->eval(input, type);
    // Kept: when-gives-condition
    return condition;
  }
  Value watch(Value input, int type, Refusal& refusal) override {
    const Value condition = exps.empty() ? Value() : exps[0]->watch(input, type, refusal);
    if (!condition) {
      refusal.steps.push_back({this, {}});
      return Value();
    }
    for (int i = 1; i < exps.count(); ++i) exps[i]->eval(input, type);
    return condition;
  }
};

class OneOf : public Form<OneOf, CompExp> {
 public:
  static constexpr const char* kName = "one-of";
  static constexpr const char* kDoc =
      "(one-of <lexp1> ... <lexpn> :is <pred>)\n"
      "Return a non zero value if the evaluation result of one of <lexp> satisfy <pred>";
  void init(World& world, IRSlist* args) override {
    pred = get_exp(world, args->find_keyword_node(":is", false));
    for (IRSlist* item : args->items) {
      if (item->is_atom()) break;
      if (auto exp = get_exp(world, item)) exps.append(std::move(exp));
    }
  }
  Value eval(Value input, int type) override {
    for (const ExpPtr& exp : exps) {
      Value value = exp->eval(input, type);
      if (Value found = pred.eval(value, exp->out_type)) return found;
    }
    return Value();
  }

  ExpPtr pred;
};

class CondAction : public Form<CondAction> {
 public:
  static constexpr const char* kName = "cond";
  static constexpr const char* kDoc =
      "(cond\n"
      "  (<lexp-cond>  <lexp>  ... <lexp>)\n"
      "  (<lexp-cond>  <lexp>  ... <lexp>)\n"
      "   ... ...\n"
      "  (<lexp-cond>  <lexp>  ... <lexp>)\n"
      "  )\n"
      "  Sequentially test each of the <lexp-cond>s, when one of them\n"
      "  evaluates to true, the <lexp>s following the condtion are\n"
      "  evaluated. The rest of the cond are then skipped. The return value\n"
      "  is the result of the last <lexp> evaluated.";
  void init(World& world, IRSlist* args) override {
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
  Value eval(Value input, int type) override {
    for (const Array<ExpPtr>& clause : clauses) {
      if (clause.empty()) continue;
      Value value = clause[0]->eval(input, type);
      if (!value) continue;
      for (int i = 1; i < clause.count(); ++i) value = clause[i]->eval(input, type);
      return value;
    }
    return Value();
  }
  Value watch(Value input, int type, Refusal& refusal) override {
    for (const Array<ExpPtr>& clause : clauses) {
      if (clause.empty()) continue;
      Value value = clause[0]->eval(input, type);
      if (!value) continue;
      for (int i = 1; i < clause.count(); ++i)
        value = i + 1 < clause.count() ? clause[i]->eval(input, type)
                                       : clause[i]->watch(input, type, refusal);
      if (value) return value;
      refusal.steps.push_back({this, {}});
      return Value();
    }
    refusal.steps.push_back({this, "none of its clauses holds"});
    return Value();
  }

  Array<Array<ExpPtr>> clauses;

 protected:
  Reach parts_reach() const override {
    Reach reach = Reach::input;
    for (const Array<ExpPtr>& clause : clauses) reach |= reach_of(clause);
    return reach;
  }
};

class CollectExp : public Form<CollectExp, CompExp> {
 public:
  static constexpr const char* kName = "list";
  static constexpr const char* kDoc =
      "(list <lexp1> <lexp2> ... <lexpn>)\n"
      "  The argument is passed to each of the <lexp>s, the return value is\n"
      "  collected in a Slist. The pointer to the Slist is returned.";
  CollectExp() : result(make_ref<ValueList>()) {}
  CollectExp(const CollectExp& other) : Form(other), result(make_ref<ValueList>()) {}
  Value eval(Value input, int type) override {
    Array<HeldValue> values(exps.count());
    for (const ExpPtr& exp : exps) values.append(HeldValue(exp->eval(input, type)));
    // Kept: list-is-reused
    result->values.swap(values);
    return Value::of(result.get());
  }

  Ref<ValueList> result;
};

/// Gives the input, not 1, when all are zero.
class NegExp : public Form<NegExp, CompExp> {
 public:
  static constexpr const char* kName = "not";
  static constexpr const char* kDoc = "(not <lexp>)\n  returns true if <lexp> evaluates to 0;";
  // Kept: not-gives-input
  Value eval(Value input, int type) override {
    if (exps.empty()) return Value::truth(!input);
    for (const ExpPtr& exp : exps) {
      if (exp->eval(input, type)) return Value();
    }
    return input;
  }
  Value watch(Value input, int type, Refusal& refusal) override {
    for (const ExpPtr& exp : exps)
      if (exp->eval(input, type)) {
        refusal.steps.push_back({exp.get(), "it holds"});
        refusal.steps.push_back({this, {}});
        return Value();
      }
    return exps.empty() ? eval(input, type) : input;
  }
  Outlook foresee(Value input, int type) override {
    for (const ExpPtr& exp : exps)
      if (Outlook part = exp->foresee(input, type); part != Outlook::null)
        return part == Outlook::value ? Outlook::null : Outlook::unknown;
    return exps.empty() == static_cast<bool>(input) ? Outlook::null : Outlook::value;
  }
};

class OrExp : public Form<OrExp, CompExp> {
 public:
  static constexpr const char* kName = "or";
  static constexpr const char* kDoc =
      "(or <lexp> <lexp> ... <lexp>)\n  returns true if one of <lexp>s evaluates to true.";
  Value eval(Value input, int type) override {
    // Kept: empty-or-gives-input
    if (exps.empty()) return input;
    for (const ExpPtr& exp : exps) {
      if (Value value = exp->eval(input, type)) return value;
    }
    return Value();
  }
  Value watch(Value input, int type, Refusal& refusal) override {
    const std::size_t before = refusal.steps.size();
    if (exps.empty() && input) return input;
    for (const ExpPtr& exp : exps)
      if (Value value = exp->watch(input, type, refusal)) {
        refusal.steps.resize(before);
        return value;
      }
    if (exps.count() != 1) refusal.steps.resize(before);
    refusal.steps.push_back({this, exps.count() > 1 ? "none of its parts holds" : ""});
    return Value();
  }
  Outlook foresee(Value input, int type) override {
    if (exps.empty()) return input ? Outlook::value : Outlook::null;
    for (const ExpPtr& exp : exps)
      if (Outlook part = exp->foresee(input, type); part != Outlook::null) return part;
    return Outlook::null;
  }
};

class XorExp : public Form<XorExp, CompExp> {
 public:
  static constexpr const char* kName = "xor";
  static constexpr const char* kDoc =
      "(xor <lexp> <lexp> ... <lexp>)\n  returns true if odd number of <lexp>s evaluate to true.";
  Value eval(Value input, int type) override {
    bool odd = false;
    for (const ExpPtr& exp : exps) odd ^= static_cast<bool>(exp->eval(input, type));
    return Value::truth(odd);
  }
};

class AndExp : public Form<AndExp, CompExp> {
 public:
  static constexpr const char* kName = "and";
  static constexpr const char* kDoc =
      "(and <lexp> <lexp> ... <lexp>)\n  returns true if all of <lexp>s evaluate to true.";
  Value eval(Value input, int type) override {
    Value value = input;
    for (const ExpPtr& exp : exps) {
      value = exp->eval(input, type);
      if (!value) return Value();
    }
    return value;
  }
  Value watch(Value input, int type, Refusal& refusal) override {
    Value value = input;
    for (const ExpPtr& exp : exps) {
      value = exp->watch(input, type, refusal);
      if (!value) break;
    }
    if (!value) refusal.steps.push_back({this, {}});
    return value;
  }
  Outlook foresee(Value input, int type) override {
    for (const ExpPtr& exp : exps)
      if (Outlook part = exp->foresee(input, type); part != Outlook::value) return part;
    return exps.empty() && !input ? Outlook::null : Outlook::value;
  }
};

class AlwaysTrue : public Form<AlwaysTrue> {
 public:
  static constexpr const char* kName = "t";
  static constexpr const char* kDoc = "(t)\n  Always return 1";
  Value eval(Value, int) override { return Value::truth(true); }
  Outlook foresee(Value, int) override { return Outlook::value; }
};

class AlwaysFalse : public Form<AlwaysFalse> {
 public:
  static constexpr const char* kName = "nil";
  static constexpr const char* kDoc = "(nil)\n  Always return 0";
  Value eval(Value, int) override { return Value(); }
  Outlook foresee(Value, int) override { return Outlook::null; }
};

class NilPred : public Form<NilPred> {
 public:
  static constexpr const char* kName = "is-nil";
  static constexpr const char* kDoc =
      "(is-nil)\n  Returns true if the input is 0. Returns false otherwise.";
  Value eval(Value input, int) override { return Value::truth(!input); }
};

class Ident : public Form<Ident> {
 public:
  static constexpr const char* kName = "ident";
  static constexpr const char* kDoc = "(ident)\n  Always return the input.";
  Value eval(Value input, int) override { return input; }
};

class OneOfTwo : public Form<OneOfTwo> {
 public:
  static constexpr const char* kName = "1/2";
  static constexpr const char* kUsage =
      "`(1/2 [exp])` the first of a pair of values, passed through `exp`";
  OneOfTwo() { in_type = type_id_of<TwoArgs>(); }
  void init(World& world, IRSlist* args) override { sub = get_exp(world, args->nth(0)); }
  Value eval(Value input, int type) override {
    if (!input || !accepts(type)) return Value();
    auto* pair = input.as<TwoArgs>();
    if (!pair) return Value();
    return sub ? sub->eval(pair->first, pair->first_type) : pair->first;
  }

  ExpPtr sub;
};

class TwoOfTwo : public Form<TwoOfTwo, OneOfTwo> {
 public:
  static constexpr const char* kName = "2/2";
  static constexpr const char* kUsage =
      "`(2/2 [exp])` the second of a pair of values, passed through `exp`";
  Value eval(Value input, int type) override {
    if (!input || !accepts(type)) return Value();
    auto* pair = input.as<TwoArgs>();
    if (!pair) return Value();
    return sub ? sub->eval(pair->second, pair->second_type) : pair->second;
  }
};

/// Compares words: two equal texts at different places are not equal.
class EqExp : public Form<EqExp, BinaryFunc> {
 public:
  static constexpr const char* kName = "eq";
  static constexpr const char* kUsage = "`(eq a b)` 1 if both results are the same word";
  Value eval(Value input, int type) override {
    if (!accepts(type) || !a || !b) return Value();
    Value left = a->eval(input, type);
    // Kept: eq-compares-words
    return Value::truth(left == b->eval(input, type));
  }
};

constexpr Prototype kControlForms[] = {
    pure_form<ProgExp>(),  pure_form<Prog1Exp>(),   pure_form<FuncComp>(),
    pure_form<IfAction>(), form<WhileAction>(),     pure_form<WhenAction>(),
    form<OneOf>(),         pure_form<CondAction>(), form<CollectExp>(),
    pure_form<NegExp>(),   pure_form<OrExp>(),      pure_form<XorExp>(),
    pure_form<AndExp>(),   pure_form<AlwaysTrue>(), pure_form<AlwaysFalse>(),
    pure_form<NilPred>(),  pure_form<Ident>(),      form<OneOfTwo>(),
    form<TwoOfTwo>(),      form<EqExp>(),
};

}  // namespace

constinit const Offer offers::control_forms{kControlForms};

}  // namespace torvane
