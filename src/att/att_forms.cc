// The forms that test and change attribute vectors.
#include <algorithm>
#include <iostream>

#include "att/att_pred.h"
#include "att/nesting.h"

namespace torvane {

AttPred::AttPred() {
  in_type = out_type = type_id_of<AttVec>();
}

Value AttPred::eval(Value input, int input_type) {
  if (!accepts(input_type)) return {};
  AttVec* vec = input.as<AttVec>();
  return vec ? apply(*vec, input, input_type) : Value();
}

int find_att(const AttInterpreterList* type, const char* att_name) {
  int index;
  if (type && att_name && type->lookup(att_name, &index)) return index;
  std::cerr << "The attribute " << or_empty(att_name) << " is not found\n";
  return -1;
}

Array<std::int16_t> find_atts(const AttInterpreterList* type, IRSlist* names) {
  Array<std::int16_t> indexes;
  while (names && !names->empty())
    if (const char* att_name = names->get_str_val())
      if (int index = find_att(type, att_name); index >= 0)
        indexes.append(static_cast<std::int16_t>(index));
  return indexes;
}

LBitSet find_att_set(const AttInterpreterList* type, IRSlist* names) {
  LBitSet set(type ? type->count() : 0);
  for (std::int16_t index : find_atts(type, names)) set.set(index);
  return set;
}

namespace {

// All of the named attributes are defined.
class AttDefPred : public Form<AttDefPred, AttPred> {
 public:
  static constexpr const char* kName = "defined";
  void init(IRSlist* args) override {
    AttInterpreterList* type = take_att_type(*args);
    indexes_ = find_atts(type, args->pop_front().get());
  }

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    bool all = std::all_of(indexes_.begin(), indexes_.end(), [&](int i) { return vec.has(i); });
    return all ? input : Value();
  }

  Array<std::int16_t> indexes_;
};

class AttUnDefPred : public Form<AttUnDefPred, AttDefPred> {
 public:
  static constexpr const char* kName = "undefine";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    for (std::int16_t index : indexes_) vec.undefine(index);
    return input;
  }
};

class AttDefOnePred : public Form<AttDefOnePred, AttDefPred> {
 public:
  static constexpr const char* kName = "defined-one-of";

 protected:
  bool any_defined(const AttVec& vec) const {
    return std::any_of(indexes_.begin(), indexes_.end(), [&](int i) { return vec.has(i); });
  }
  Value apply(AttVec& vec, Value input, int) override { return any_defined(vec) ? input : Value(); }
};

// One of the attributes is defined, and the vector as a whole is unifiable.
class AttDefAndUnifiablePred : public Form<AttDefAndUnifiablePred, AttDefOnePred> {
 public:
  static constexpr const char* kName = "strict-unifiable";
  void init(IRSlist* args) override {
    AttInterpreterList* type = take_att_type(*args);
    indexes_ = find_atts(type, args->pop_front().get());
    vec_ = make_ref<AttVec>(args->pop_front().get(), type);
  }

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    return any_defined(vec) && vec.unifiable(*vec_) ? input : Value();
  }

 private:
  Ref<AttVec> vec_;
};

// Forms with a vector of their own.
class AttWithAttPred : public AttPred {
 public:
  void init(IRSlist* args) override { constant_ = read_vector(*args); }

 protected:
  Ref<AttVec> constant_;
};

class AttUnifiablePred : public Form<AttUnifiablePred, AttWithAttPred> {
 public:
  static constexpr const char* kName = "unifiable";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    return vec.unifiable(*constant_) ? input : Value();
  }
};

// The vector has all that the constant has, with the same values or wider ones.
class AttContainPred : public Form<AttContainPred, AttUnifiablePred> {
 public:
  static constexpr const char* kName = "contain";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    if (!constant_->defined.subset_of(vec.defined)) return {};
    int code = vec.compare(*constant_, &constant_->defined);
    return code == subsume::kEqual || code == subsume::kMoreGeneral ? input : Value();
  }
};

class AttUnifyPred : public Form<AttUnifyPred, AttWithAttPred> {
 public:
  static constexpr const char* kName = "unify";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    return vec.unify(*constant_, nullptr, 1) ? input : Value();
  }
};

class AttModifyPred : public Form<AttModifyPred, AttWithAttPred> {
 public:
  static constexpr const char* kName = "modify";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    vec.modify(*constant_);
    return input;
  }
};

// A vector. What is done to it stays done, since it is the expression's own from one evaluation to
// the next.
class AttVecConst : public Form<AttVecConst, LConst> {
 public:
  static constexpr const char* kName = "attvec";
  AttVecConst() { out_type = type_id_of<AttVec>(); }
  void init(IRSlist* args) override {
    vec_ = read_vector(*args);
    value = Value::of(vec_.get());
  }

 private:
  Ref<AttVec> vec_;
};

// A set of attributes that lives as long as anybody holds it.
struct HeldSet : LBitSet, Counted<HeldSet> {
  explicit HeldSet(LBitSet set) : LBitSet(std::move(set)) {}
};
HeldSet* held_set(Word word) {
  return static_cast<HeldSet*>(reinterpret_cast<LBitSet*>(word));
}

constinit const TypeTag kHeldSet{"LBitSet*", &tags::bit_set, Life::counted,
                                 [](Word word) { held_set(word)->retain(); },
                                 [](Word word) { held_set(word)->release(); }};

}  // namespace

template <>
struct ValueTraits<HeldSet> {
  using Base = LBitSet;
  static const TypeTag& tag() { return kHeldSet; }
};

namespace {

class AttSetConst : public Form<AttSetConst, LConst> {
 public:
  static constexpr const char* kName = "att-set";
  AttSetConst() { out_type = type_id_of<LBitSet>(); }
  void init(IRSlist* args) override {
    bool negated = take_not(*args);
    AttInterpreterList* type = take_att_type(*args);
    negated = take_not(*args) || negated;
    LBitSet set = find_att_set(type, args->pop_front().get());
    set_ = make_ref<HeldSet>(negated ? set.complement() : set);
    value = Value::of(set_.get());
  }

 private:
  static bool take_not(IRSlist& args) {
    if (!same_word(args.nth_str_val(0), "not")) return false;
    args.pop_front();
    return true;
  }

  Ref<HeldSet> set_;
};

class AttIndex : public Form<AttIndex, LConst> {
 public:
  static constexpr const char* kName = "att-index";
  AttIndex() { out_type = type_id_of<int>(); }
  void init(IRSlist* args) override {
    const AttInterpreterList* current = AttInterpreterList::current();
    const char* type = args->length() > 1 ? args->get_str_val()
                       : current          ? current->name.c_str()
                                          : nullptr;
    value = Value::integer(AttInterpreterList::get_att(type, args->get_str_val()));
  }
};

template <class Visit>
void for_each_nested(const AttVec& vec, const LBitSet* mask, Visit visit) {
  if (!vec.interpreters) return;
  LBitSetIterator bits(vec.defined & vec.interpreters->counted_atts);
  for (int index = bits.next(); index >= 0; index = bits.next())
    if (!mask || mask->test(index)) visit(index);
}

// True if one of the values of `vec` (in the mask) is `wanted`, or has it somewhere inside.
bool reaches(const AttVec& vec, const LBitSet* mask, const AttVec& wanted) {
  DepthGuard guard(nesting_limit());
  if (!guard) return true;
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

// Gives `vec` values that it shares with nobody. False if they nest too deep for that.
bool detach(AttVec& vec) {
  DepthGuard guard(nesting_limit());
  bool ok = static_cast<bool>(guard);
  if (!ok) return false;
  for_each_nested(vec, nullptr, [&](int index) {
    if (AttVec* nested = vec.own_vec(index)) ok = ok && detach(*nested);
    if (AttVecList* list = vec.own_list(index))
      for (int i = 0, n = list->length(); i < n && ok; ++i)
        if (AttVec* element = list->own(i)) ok = detach(*element);
  });
  return ok;
}

// As AttVec::unify with `store`, of any two vectors: one that is a part of the other is not to
// become a part of itself.
void unify_any(AttVec& a, const AttVec& b, const LBitSet* mask) {
  if (&a == &b || !reaches(b, mask, a)) {
    a.unify(b, mask, 1);
    return;
  }
  AttVec copy(b);
  if (detach(copy)) a.unify(copy, mask, 1);
}

// Two vectors from sub-expressions, and the attributes that count. The input is theirs alone.
class TwoVectors : public LExp {
 public:
  TwoVectors() { out_type = type_id_of<AttVec>(); }
  void init(IRSlist* args) override {
    AttInterpreterList* type = take_att_type(*args);
    a_ = get_exp(args->pop_front().get());
    b_ = get_exp(args->pop_front().get());
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

template <class... Forms>
void register_forms() {
  (register_form<Forms>(), ...);
}

}  // namespace

void register_attribute_forms() {
  static bool done = false;
  if (done) return;
  done = true;
  register_forms<AttDefPred, AttDefOnePred, AttUnDefPred, AttDefAndUnifiablePred, AttUnifiablePred,
                 AttContainPred, AttUnifyPred, AttModifyPred, AttVecConst, AttSetConst, AttIndex,
                 AttUnify2Pred, AttUnifiable2Pred>();
  register_att_value_forms();
  register_avlist_forms();
}

}  // namespace torvane
