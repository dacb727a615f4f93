// Forms that give a fixed value, whatever the input.
#include "lexp/expressions.h"
#include "lexp/form.h"
#include "lexp/offers.h"
#include "lexp/shared_constant.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/messages.h"

namespace torvane {

namespace {

constinit const TypeTag kSharedExp{"LExp*", &tags::lexp, Life::counted,
                                   SharedConstant<LExp>::retain, SharedConstant<LExp>::drop};

// A copy of a text that lives as long as the world, at a place of its own; null for null.
const char* constant_text(World& world, const char* text) {
  return expressions(world).constant_texts.copy(text);
}

/// The expression itself, not its result: a way to hand an expression over as a value.
class PredConst : public Form<PredConst, LConst> {
 public:
  static constexpr const char* kName = "pred";
  static constexpr const char* kUsage = "`(pred exp)` the expression itself, as a value";
  PredConst() { out_type = type_id_of<LExp>(); }
  // Only a copied `let` makes a difference between an expression and its copy.
  PredConst(const PredConst& other) : Form(other), exp_(other.exp_) {
    if (exp_.get() && expressions(world()).scopes.let_copies > 0) give(exp_.get()->copy());
  }
  void init(World& world, IRSlist* args) override { give(get_exp(world, args->nth(0))); }

 private:
  void give(std::unique_ptr<LExp> exp) {
    exp_ = SharedConstant<LExp>(std::move(exp));
    value = Value::of_kind(exp_.get(), kSharedExp);
  }

  SharedConstant<LExp> exp_;
};

class NamedObjConst : public Form<NamedObjConst, LConst> {
 public:
  static constexpr const char* kName = "named-obj";
  static constexpr const char* kUsage = "`(named-obj NAME TYPE)` a named object";
  void init(World& world, IRSlist* args) override {
    const char* object_name = args->get_str_val();
    const char* type = args->get_str_val();
    if (!type) messages() << "the type of '" << or_empty(object_name) << "' is not defined\n";
    value = world.objects.find(object_name, type, true);
  }
};

class IntegerConst : public Form<IntegerConst, LConst> {
 public:
  static constexpr const char* kName = "int";
  static constexpr const char* kUsage = "`(int N)` a constant integer";
  IntegerConst() { out_type = type_id_of<int>(); }
  void init(World&, IRSlist* args) override { value = Value::integer(args->get_long_val()); }
};

class StrConst : public Form<StrConst, LConst> {
 public:
  static constexpr const char* kName = "str";
  static constexpr const char* kUsage = "`(str TEXT)` a constant text";
  StrConst() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override {
    value = Value::constant(constant_text(world, args->get_str_val()));
  }
};

constexpr Prototype kConstantsForms[] = {
    form<PredConst>(),
    form<NamedObjConst>(),
    pure_form<IntegerConst>(),
    pure_form<StrConst>(),
};

}  // namespace

constinit const Offer offers::constants{kConstantsForms};

}  // namespace torvane
