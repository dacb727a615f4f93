// The forms on two vectors, each from a sub-expression.

#include "att/att_pred.h"
#include "att/nesting.h"
#include "support/messages.h"

namespace torvane {

namespace {

template <class Visit>
void for_each_nested(const AttVec& vec, const LBitSet* mask, Visit visit) {
  if (!vec.interpreters) return;
  LBitSetIterator bits(vec.defined & vec.interpreters->counted_atts);
  for (int index = bits.next(); index >= 0; index = bits.next())
    if (!mask || mask->test(index)) visit(index);
}

// A walk over nested values. Vectors that share values can be a tree of any size, so it is given up
// in time.
class NestedWalk {
 public:
  /// True if one of the values of `vec` (in the mask) is `wanted`, or has it somewhere inside.
  bool reaches(const AttVec& vec, const LBitSet* mask, const AttVec& wanted) {
    DepthGuard guard(nesting_limit());
    if (!guard || --steps_left_ < 0) return true;
    bool found = false;
    auto look = [&](const AttVec* nested) {
      found = found || nested == &wanted || (nested && reaches(*nested, nullptr, wanted));
    };
    for_each_nested(vec, mask, [&](int index) {
      Value value = vec.interpreters->atts[index]->to_value(vec.get(index));
      look(value.as<AttVec>());
      if (const auto* list = value.as<AttVecList>())
        for (const Ref<AttVec>& element : list->vecs) look(element.get());
    });
    return found;
  }

  /// Gives `vec` values that it shares with nobody. False if it gave up.
  bool detach(AttVec& vec) {
    DepthGuard guard(nesting_limit());
    bool ok = guard && --steps_left_ >= 0;
    if (!ok) return false;
    for_each_nested(vec, nullptr, [&](int index) {
      if (AttVec* nested = vec.own_vec(index)) ok = ok && detach(*nested);
      if (AttVecList* list = vec.own_list(index))
        for (int i = 0, n = list->length(); i < n && ok; ++i)
          if (AttVec* element = list->own(i)) ok = detach(*element);
    });
    return ok;
  }

 private:
  int steps_left_ = 1000000;
};

// As AttVec::unify with `store`, of any two vectors: one that is a part of the other is not to
// become a part of itself.
void unify_any(AttVec& a, const AttVec& b, const LBitSet* mask) {
  if (&a == &b || !NestedWalk().reaches(b, mask, a)) {
    a.unify(b, mask, 1);
    return;
  }
  AttVec copy(b);
  if (NestedWalk().detach(copy))
    a.unify(copy, mask, 1);
  else
    messages() << nesting_limit().message << '\n';
}

// Two vectors from sub-expressions, and the attributes that count. The input is theirs alone.
class TwoVectors : public LExp {
 public:
  TwoVectors() { out_type = type_id_of<AttVec>(); }
  void init(World& world, IRSlist* args) override {
    AttInterpreterList* type = take_att_type(world, *args);
    a_ = get_exp(world, args->pop_front().get());
    b_ = get_exp(world, args->pop_front().get());
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
  Value eval(Value input, int input_type) override {
    Value first = a_.eval(input, input_type);
    Value second = b_.eval(input, input_type);
    AttVec* a = first.as<AttVec>();
    AttVec* b = second.as<AttVec>();
    if (a && b) unify_any(*a, *b, mask());
    return a ? first : Value();
  }
};

class AttUnifiable2Pred : public Form<AttUnifiable2Pred, TwoVectors> {
 public:
  static constexpr const char* kName = "unifiable2";
  Value eval(Value input, int input_type) override {
    Value first = a_.eval(input, input_type);
    Value second = b_.eval(input, input_type);
    const AttVec* a = first.as<AttVec>();
    const AttVec* b = second.as<AttVec>();
    return Value::truth(!a || !b || a->unifiable(*b, mask()));
  }
};

}  // namespace

void register_att_pair_forms(World& world) {
  register_form<AttUnify2Pred>(world);
  register_form<AttUnifiable2Pred>(world);
}

}  // namespace torvane
