// The forms on two vectors, each from a sub-expression.
#include "att/att_pred.h"
#include "att/offers.h"

namespace torvane {

namespace {

bool has_handed_out(const AttVec& vec) {
  if (!vec.interpreters) return false;
  LBitSetIterator bits(vec.defined & vec.interpreters->counted_atts);
  for (int index = bits.next(); index >= 0; index = bits.next()) {
    const Value value = vec.interpreters->atts[index]->to_value(vec.get(index));
    const auto* nested = value.as<AttVec>();
    if (nested && nested->handed_out) return true;
  }
  return false;
}

// As AttVec::unify with `store`, of any two vectors: what `a` gets of one that it is a part of is
// as it was before.
void unify_any(AttVec& a, const AttVec& b, const LBitSet* mask) {
  if (has_handed_out(b))
    a.unify(AttVec(b), mask, true);
  else
    a.unify(b, mask, true);
}

// Two vectors from sub-expressions, and the attributes that count. The input is theirs alone.
class TwoVectors : public LExp {
 public:
  TwoVectors() { out_type = type_id_of<AttVec>(); }
  void init(World& world, IRSlist* args) override {
    AttInterpreterList* type = take_att_type(world, *args);
    a_ = take_exp(world, *args);
    b_ = take_exp(world, *args);
    auto names = args->pop_front();
    masked_ = names != nullptr;
    if (masked_) mask_ = find_att_set(type, names.get());
  }

 protected:
  const LBitSet* mask() const { return masked_ ? &mask_ : nullptr; }

  ExpPtr a_, b_;

 private:
  LBitSet mask_;
  bool masked_ = false;
};

class AttUnify2Pred : public Form<AttUnify2Pred, TwoVectors> {
 public:
  static constexpr const char* kName = "unify2";
  static constexpr const char* kUsage =
      "`(unify2 [type] exp exp [(att ...)])` takes the second vector's values into the first; the "
      "first";
  Value eval(Value input, int input_type) override {
    Value first = a_.eval(input, input_type);
    Value second = b_.eval(input, input_type);
    AttVec* a = first.as<AttVec>();
    AttVec* b = second.as<AttVec>();
    // Kept: unify2-always-succeeds
    if (a && b) unify_any(*a, *b, mask());
    return a ? first : Value();
  }
};

class AttUnifiable2Pred : public Form<AttUnifiable2Pred, TwoVectors> {
 public:
  static constexpr const char* kName = "unifiable2";
  static constexpr const char* kUsage =
      "`(unifiable2 [type] exp exp [(att ...)])` whether two vectors unify, on those attributes";
  Value eval(Value input, int input_type) override {
    Value first = a_.eval(input, input_type);
    Value second = b_.eval(input, input_type);
    const AttVec* a = first.as<AttVec>();
    const AttVec* b = second.as<AttVec>();
    // Kept: unifiable2-with-nothing
    return Value::truth(!a || !b || a->unifiable(*b, mask()));
  }
};

constexpr Prototype kAttPairForms[] = {
    form<AttUnify2Pred>(),
    form<AttUnifiable2Pred>(),
};

}  // namespace

constinit const Offer offers::att_pair_forms{kAttPairForms};

}  // namespace torvane
