// A compiled expression: a function of one input, compiled once from a form, kept, and evaluated
// many times. Conditions and actions of grammars and rules are all of this kind.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "lexp/types.h"
#include "shell/irslist.h"
#include "support/array.h"
#include "support/value.h"

namespace torvane {

/// What an expression reads beside its input, and what it changes. Who wants to evaluate one only
/// once for the same input must know that a second time would give the same.
enum class Reach : std::uint8_t {
  input = 0,  ///< reads what the input leads to and what commands alone can change; changes nothing
  variables = 1,  ///< reads or sets variables too
  change = 2,     ///< changes the input too, and what belongs to that alone
  anything = 3,
};
/// Of two expressions together.
constexpr Reach operator|(Reach a, Reach b) {
  return static_cast<Reach>(static_cast<int>(a) | static_cast<int>(b));
}
constexpr Reach& operator|=(Reach& a, Reach b) {
  return a = a | b;
}

/// What an evaluation will give.
enum class Outlook : std::uint8_t { null, value, unknown };

struct Refusal;

class LExp {
 public:
  /// Names the world of an expression that did not come out of `get_exp`.
  void belong_to(World& world) { world_ = &world; }

  int in_type = kAnyType;   ///< expected type of the input
  int out_type = kAnyType;  ///< type of the result
  /// Of the form without its parts. A form that is not known to reach less reaches anything.
  Reach own_reach = Reach::anything;

  /// Of the whole expression.
  Reach reach() const { return own_reach | parts_reach(); }

  virtual const char* doc() const { return "No documentation provided"; }
  virtual const char* name() const = 0;
  /// A new object with the same state, sub-expressions copied too.
  virtual std::unique_ptr<LExp> copy() const = 0;
  /// Takes the form's arguments (the head is off already).
  virtual void init(World& world, IRSlist* args);
  virtual Value eval(Value input, int input_type) = 0;
  /// What `eval` would give, as far as that is known without changing or reporting anything. Who
  /// would have to make the input first can so find out, on one that only looks like it, that it
  /// is not worth it.
  virtual Outlook foresee(Value, int) { return Outlook::unknown; }
  /// As `eval`, for who wants to know why: when it gives null, the parts that are to blame are
  /// added to the refusal, the innermost first. Where a form does not say more, that is itself.
  virtual Value watch(Value input, int input_type, Refusal& refusal);
  virtual ~LExp() = default;

  /// Compiles a form, consuming it. Null after a message if it is no expression.
  static std::unique_ptr<LExp> get_exp(World& world, IRSlist* form);
  /// The same of the first item, taken off; null if there is none.
  static std::unique_ptr<LExp> take_exp(World& world, IRSlist& args) {
    return get_exp(world, args.pop_front().get());
  }
  // Part of the interface; nothing in the engine calls it yet.
  static std::unique_ptr<LExp> get_exp_from_text(World& world, const char* text);

 protected:
  LExp() = default;
  LExp(const LExp&) = default;
  LExp& operator=(const LExp&) = delete;

  /// Of the sub-expressions together.
  virtual Reach parts_reach() const { return Reach::input; }
  /// Reports the type error of an input.
  void wrong_type(int input_type) const;
  /// What it found in an input that it refuses, for a reader; empty if there is nothing to say.
  virtual std::string finding(Value input);
  /// Adds itself to the refusal; null.
  Value refuse(Value input, Refusal& refusal);
  /// The world that the expression was made for, from before `init` on.
  World& world() const { return *world_; }
  /// Two known types do not differ.
  bool takes(int input_type) const {
    return in_type < 0 || input_type < 0 || in_type == input_type;
  }
  /// The same; false is reported.
  bool accepts(int input_type) const {
    if (takes(input_type)) [[likely]]
      return true;
    wrong_type(input_type);
    return false;
  }
  /// For a form that changes and reports nothing once the input is of its type.
  Outlook foresee_by_eval(Value input, int input_type) {
    if (!takes(input_type)) return Outlook::unknown;
    return eval(input, input_type) ? Outlook::value : Outlook::null;
  }

 private:
  World* world_ = nullptr;
};

namespace tags {
extern const TypeTag lexp;
}
template <>
struct ValueTraits<LExp> : TagOf<LExp, tags::lexp> {};

/// An owned sub-expression, null if there is none; a copy of it copies the expression.
class ExpPtr {
 public:
  ExpPtr() = default;
  ExpPtr(std::unique_ptr<LExp> exp) : exp_(std::move(exp)) {}
  ExpPtr(const ExpPtr& other) : exp_(other.exp_ ? other.exp_->copy() : nullptr) {}
  ExpPtr(ExpPtr&&) noexcept = default;
  ExpPtr& operator=(ExpPtr other) noexcept {
    exp_ = std::move(other.exp_);
    return *this;
  }
  LExp* get() const { return exp_.get(); }
  LExp* operator->() const { return exp_.get(); }
  explicit operator bool() const { return exp_ != nullptr; }
  std::unique_ptr<LExp> release() { return std::move(exp_); }
  /// Evaluates; 0 if there is no expression.
  Value eval(Value input, int type) const { return exp_ ? exp_->eval(input, type) : Value(); }
  /// The result type; -1 if there is no expression.
  int out_type() const { return exp_ ? exp_->out_type : kAnyType; }
  Reach reach() const { return exp_ ? exp_->reach() : Reach::input; }

 private:
  std::unique_ptr<LExp> exp_;
};

/// One that is tried over and over: how far it reaches is found out once.
class Condition : public ExpPtr {
 public:
  Condition() = default;
  Condition(ExpPtr exp) : ExpPtr(std::move(exp)), reach_(ExpPtr::reach()) {}
  Reach reach() const { return reach_; }

 private:
  Reach reach_ = Reach::input;
};

inline Reach reach_of(const Array<ExpPtr>& exps) {
  Reach reach = Reach::input;
  for (const ExpPtr& exp : exps) reach |= exp.reach();
  return reach;
}

/// A condition: passes when there is none.
inline bool passes(const ExpPtr& cond, Value input, int type) {
  return !cond || static_cast<bool>(cond->eval(input, type));
}
/// Whether an expression gives anything but 0; the texts that it makes on its way end with that.
/// For conditions that are tried over and over within a turn.
inline bool holds(LExp& exp, Value input, int type) {
  TextScope scope;
  return static_cast<bool>(exp.eval(input, type));
}

/// Converts its input, and passes the result on to one optional sub-expression.
class LAdaptor : public LExp {
 public:
  int mid_type = kAnyType;  ///< type of what convert gives
  ExpPtr sub;

  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int input_type) override;
  Outlook foresee(Value input, int input_type) override;
  Value watch(Value input, int input_type, Refusal& refusal) override;
  virtual Value convert(Value input) = 0;

 protected:
  Reach parts_reach() const override { return sub.reach(); }
};

/// A sequence of sub-expressions; null ones have been dropped.
class CompExp : public LExp {
 public:
  Array<ExpPtr> exps;
  void init(World& world, IRSlist* args) override;
  /// All are evaluated with the input; the last result, or the input itself.
  Value eval(Value input, int input_type) override;

 protected:
  Reach parts_reach() const override { return reach_of(exps); }
};

/// Gives its value, whatever the input.
class LConst : public LExp {
 public:
  Value value;
  Value eval(Value, int) override { return value; }
};

class BinaryFunc : public LExp {
 public:
  ExpPtr a, b;
  void init(World& world, IRSlist* args) override;

 protected:
  Reach parts_reach() const override { return a.reach() | b.reach(); }
};

class TernaryFunc : public LExp {
 public:
  ExpPtr a, b, c;
  void init(World& world, IRSlist* args) override;
};

/// A predicate on a string input.
class CharPred : public LExp {
 public:
  CharPred();
};

/// Wraps a plain function with up to four arguments; all of them see the same input.
class MArgExp : public LExp {
 public:
  static constexpr int kMostArgs = 4;
  /// Gets the input, then max_args arguments, missing ones 0.
  using Fn = Value (*)(World& world, const Value* values);

  MArgExp(const char* form_name, Fn fn, int most_args)
      : name_text(form_name), max_args(most_args), fn_(fn) {}
  const char* name() const override { return name_text; }
  std::unique_ptr<LExp> copy() const override { return std::make_unique<MArgExp>(*this); }
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int input_type) override;
  virtual Value apply(const Value* values) { return fn_(world(), values); }

  const char* name_text;  ///< lives for ever
  int max_args;
  Array<ExpPtr> args;
  Array<int> arg_types;  ///< declared, not enforced

 private:
  Fn fn_;
};

/// Says of a new prototype that it reaches no further than its parts do.
template <class Exp>
std::unique_ptr<Exp> within_input(std::unique_ptr<Exp> prototype) {
  prototype->own_reach = Reach::input;
  return prototype;
}
/// The family of all expressions' prototypes.
inline constexpr const char* kExpressions = "LExp";
/// Enters a prototype under its name (copied), with its text; a null name or text is taken from the
/// prototype. This is how the rows of the files' tables add forms, and `defun` a function. The
/// world owns it.
bool register_lexp(World& world, std::unique_ptr<LExp> prototype, const char* name = nullptr,
                   const char* doc = nullptr);
/// The prototype of a head word, or null.
LExp* find_lexp_proto(World& world, const char* name);

/// The predicate behind a bare word in a pattern: a char* input equal to `text` without regard to
/// case.
std::unique_ptr<LExp> make_str_is(World& world, const char* text);

}  // namespace torvane
