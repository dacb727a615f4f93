// Sequence, condition and logic. The input is the thread that runs through them: each form hands
// its own input on to its sub-expressions unchanged; only `comp` chains values.
#pragma once

#include "lexp/form.h"
#include "lexp/lexp.h"
#include "support/ref.h"

namespace torvane {

/// The input of `1/2` and `2/2`: two values, each with its type.
struct TwoArgs {
  Value first;
  int first_type = kAnyType;
  Value second;
  int second_type = kAnyType;
};

/// What `list` gives.
class ValueList : public Counted<ValueList> {
 public:
  Array<HeldValue> values;
};

namespace tags {
extern const TypeTag two_args;
extern const TypeTag value_list;
}  // namespace tags
template <>
struct ValueTraits<TwoArgs> : TagOf<TwoArgs, tags::two_args> {};
template <>
struct ValueTraits<ValueList> : TagOf<ValueList, tags::value_list> {};

class Prog1Exp : public Form<Prog1Exp, CompExp> {
 public:
  static constexpr const char* kName = "prog1";
  Value eval(Value input, int type) override;
};

/// The value passes down the chain.
class FuncComp : public Form<FuncComp, CompExp> {
 public:
  static constexpr const char* kName = "comp";
  Value eval(Value input, int type) override;
};

class IfAction : public Form<IfAction, CompExp> {
 public:
  static constexpr const char* kName = "if";
  Value eval(Value input, int type) override;
};

class WhileAction : public Form<WhileAction, CompExp> {
 public:
  static constexpr const char* kName = "while";
  Value eval(Value input, int type) override;
};

class WhenAction : public Form<WhenAction, CompExp> {
 public:
  static constexpr const char* kName = "when";
  Value eval(Value input, int type) override;
};

class OneOf : public Form<OneOf, CompExp> {
 public:
  static constexpr const char* kName = "one-of";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

  ExpPtr pred;
};

class CondAction : public Form<CondAction> {
 public:
  static constexpr const char* kName = "cond";
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int type) override;

  Array<Array<ExpPtr>> clauses;

 protected:
  Reach parts_reach() const override;
};

class CollectExp : public Form<CollectExp, CompExp> {
 public:
  static constexpr const char* kName = "list";
  CollectExp() : result(make_ref<ValueList>()) {}
  CollectExp(const CollectExp& other) : Form(other), result(make_ref<ValueList>()) {}
  Value eval(Value input, int type) override;

  Ref<ValueList> result;
};

/// Gives the input, not 1, when all are zero.
class NegExp : public Form<NegExp, CompExp> {
 public:
  static constexpr const char* kName = "not";
  Value eval(Value input, int type) override;
};

class OrExp : public Form<OrExp, CompExp> {
 public:
  static constexpr const char* kName = "or";
  Value eval(Value input, int type) override;
};

class XorExp : public Form<XorExp, CompExp> {
 public:
  static constexpr const char* kName = "xor";
  Value eval(Value input, int type) override;
};

class AndExp : public Form<AndExp, CompExp> {
 public:
  static constexpr const char* kName = "and";
  Value eval(Value input, int type) override;
};

class AlwaysTrue : public Form<AlwaysTrue> {
 public:
  static constexpr const char* kName = "t";
  Value eval(Value, int) override { return Value::truth(true); }
};

class AlwaysFalse : public Form<AlwaysFalse> {
 public:
  static constexpr const char* kName = "nil";
  Value eval(Value, int) override { return Value(); }
};

class NilPred : public Form<NilPred> {
 public:
  static constexpr const char* kName = "is-nil";
  Value eval(Value input, int) override { return Value::truth(!input); }
};

class Ident : public Form<Ident> {
 public:
  static constexpr const char* kName = "ident";
  Value eval(Value input, int) override { return input; }
};

class OneOfTwo : public Form<OneOfTwo> {
 public:
  static constexpr const char* kName = "1/2";
  OneOfTwo() { in_type = type_id_of<TwoArgs>(); }
  void init(World& world, IRSlist* args) override { sub = get_exp(world, args->nth(0)); }
  Value eval(Value input, int type) override;

  ExpPtr sub;
};

class TwoOfTwo : public Form<TwoOfTwo, OneOfTwo> {
 public:
  static constexpr const char* kName = "2/2";
  Value eval(Value input, int type) override;
};

/// Compares words: two equal texts at different places are not equal.
class EqExp : public Form<EqExp, BinaryFunc> {
 public:
  static constexpr const char* kName = "eq";
  Value eval(Value input, int type) override;
};

}  // namespace torvane
