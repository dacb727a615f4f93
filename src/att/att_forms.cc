// The forms that test and change attribute vectors.
#include <algorithm>
#include <sstream>

#include "att/att_pred.h"
#include "att/offers.h"
#include "support/messages.h"

namespace torvane {

AttPred::AttPred() {
  in_type = out_type = type_id_of<AttVec>();
}

Value AttPred::eval(Value input, int input_type) {
  if (!accepts(input_type)) return {};
  AttVec* vec = input.as<AttVec>();
  return vec ? apply(*vec, input, input_type) : Value();
}

Outlook AttPred::foresee(Value input, int input_type) {
  return own_reach == Reach::input ? foresee_by_eval(input, input_type) : Outlook::unknown;
}

int find_att(const AttInterpreterList* type, const char* att_name) {
  int index;
  if (type && att_name && type->lookup(att_name, &index)) return index;
  messages() << "The attribute " << or_empty(att_name) << " is not found\n";
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

/// The values of these attributes in a vector, for a reader.
std::string values_in(Value input, const LBitSet& atts) {
  const AttVec* vec = input.as<AttVec>();
  if (!vec) return "there is none";
  std::ostringstream out;
  vec->print(out, &atts);
  const std::string values = out.str();
  return values.size() <= 2 ? "it has none" : "it has " + values.substr(1, values.size() - 2);
}

// All of the named attributes are defined.
class AttDefPred : public Form<AttDefPred, AttPred> {
 public:
  static constexpr const char* kName = "defined";
  static constexpr const char* kUsage =
      "`(defined [type] (att ...))` the vector if all are defined";
  void init(World& world, IRSlist* args) override {
    AttInterpreterList* type = take_att_type(world, *args);
    indexes_ = find_atts(type, args->pop_front().get());
  }

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    bool all = std::all_of(indexes_.begin(), indexes_.end(), [&](int i) { return vec.has(i); });
    return all ? input : Value();
  }
  std::string finding(Value input) override {
    LBitSet atts;
    for (std::int16_t index : indexes_) atts.set(index);
    return values_in(input, atts);
  }

  Array<std::int16_t> indexes_;
};

class AttUnDefPred : public Form<AttUnDefPred, AttDefPred> {
 public:
  static constexpr const char* kName = "undefine";
  static constexpr const char* kUsage = "`(undefine [type] (att ...))` removes the values";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    for (std::int16_t index : indexes_) vec.undefine(index);
    return input;
  }
};

class AttDefOnePred : public Form<AttDefOnePred, AttDefPred> {
 public:
  static constexpr const char* kName = "defined-one-of";
  static constexpr const char* kUsage =
      "`(defined-one-of [type] (att ...))` the vector if one is defined";

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
  static constexpr const char* kUsage =
      "`(strict-unifiable [type] (att ...) (item ...))` one of the attributes is defined and the "
      "values unify";
  void init(World& world, IRSlist* args) override {
    AttInterpreterList* type = take_att_type(world, *args);
    indexes_ = find_atts(type, args->pop_front().get());
    vec_ = make_ref<AttVec>(args->pop_front().get(), type);
  }

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    // Kept: strict-unifiable-one-of
    return any_defined(vec) && vec.unifiable(*vec_) ? input : Value();
  }
  std::string finding(Value input) override { return values_in(input, vec_->defined); }

 private:
  Ref<AttVec> vec_;
};

// Forms with a vector of their own.
class AttWithAttPred : public AttPred {
 public:
  void init(World& world, IRSlist* args) override { constant_ = read_vector(world, *args); }

 protected:
  std::string finding(Value input) override { return values_in(input, constant_->defined); }

  Ref<AttVec> constant_;
};

class AttUnifiablePred : public Form<AttUnifiablePred, AttWithAttPred> {
 public:
  static constexpr const char* kName = "unifiable";
  static constexpr const char* kUsage =
      "`(unifiable [type] (item ...))` the vector if the values unify with it";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    return vec.unifiable(*constant_) ? input : Value();
  }
};

// The vector has all that the constant has, with the same values or wider ones.
class AttContainPred : public Form<AttContainPred, AttUnifiablePred> {
 public:
  static constexpr const char* kName = "contain";
  static constexpr const char* kUsage =
      "`(contain [type] (item ...))` the vector if it has all these values, or wider ones";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    if (!constant_->defined.subset_of(vec.defined)) return {};
    Subsumption code = vec.compare(*constant_, &constant_->defined);
    return code == Subsumption::equal || code == Subsumption::more_general ? input : Value();
  }
};

class AttUnifyPred : public Form<AttUnifyPred, AttWithAttPred> {
 public:
  static constexpr const char* kName = "unify";
  static constexpr const char* kUsage =
      "`(unify [type] (item ...))` takes the values in; null if one does not fit";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    return vec.unify(*constant_, nullptr, true) ? input : Value();
  }
  Outlook foresee(Value input, int input_type) override {
    if (!takes(input_type)) return Outlook::unknown;
    const AttVec* vec = input.as<AttVec>();
    return vec && vec->unifiable(*constant_) ? Outlook::unknown : Outlook::null;
  }
};

class AttModifyPred : public Form<AttModifyPred, AttWithAttPred> {
 public:
  static constexpr const char* kName = "modify";
  static constexpr const char* kUsage = "`(modify [type] (item ...))` overwrites these values";

 protected:
  Value apply(AttVec& vec, Value input, int) override {
    vec.modify(*constant_);
    return input;
  }
};

constexpr Prototype kAttForms[] = {
    pure_form<AttDefPred>(),
    pure_form<AttDefOnePred>(),
    form<AttUnDefPred, Reach::change>(),
    pure_form<AttDefAndUnifiablePred>(),
    pure_form<AttUnifiablePred>(),
    pure_form<AttContainPred>(),
    form<AttUnifyPred, Reach::change>(),
    form<AttModifyPred, Reach::change>(),
};

}  // namespace

constinit const Offer offers::att_forms{kAttForms};

}  // namespace torvane
