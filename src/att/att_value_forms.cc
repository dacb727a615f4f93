// The forms that look at what a vector holds.
#include <optional>
#include <sstream>

#include "att/att_pred.h"
#include "att/attributes.h"
#include "att/offers.h"
#include "lexp/expressions.h"
#include "support/messages.h"

namespace torvane {

namespace {

// One attribute, named where the form is compiled.
class OneAtt : public AttPred {
 protected:
  /// The attribute of a type; one that it lacks is reported under the class's name.
  void find(const char* form_class, const AttInterpreterList* type, const char* att_name) {
    if (!type || !type->lookup(att_name, &index_)) {
      messages() << form_class << "::init: the attribute name '" << or_empty(att_name)
                 << "' is not found\n";
      index_ = -1;
    }
  }
  const AttInterpreter* att_in(const AttVec& vec) const {
    return vec.interpreters ? vec.interpreters->at(index_) : nullptr;
  }

  int index_ = -1;
};

// The raw value, passed through an expression if there is one.
class AttValPred : public Form<AttValPred, OneAtt> {
 public:
  static constexpr const char* kName = "value";
  static constexpr const char* kUsage =
      "`(value att [result-type] [type] [exp])` the raw value, passed through `exp`";
  void init(World& world, IRSlist* args) override {
    std::string att_name = or_empty(args->get_str_val());
    const char* result_type = args->nth_str_val(0);
    value_type_ = expressions(world).types.id(result_type ? result_type : "AttVal");
    if (result_type) args->pop_front();
    find("AttValPred", take_att_type(world, *args), att_name.c_str());
    exp_ = take_exp(world, *args);
    out_type = exp_ ? exp_.out_type() : value_type_;
  }

 protected:
  Value apply(AttVec& vec, Value, int) override {
    const AttInterpreter* att = att_in(vec);
    if (!att) return {};
    // What is done to a nested vector must not be seen by others that share it.
    AttVec* nested = vec.own_vec(index_);
    if (nested) nested->handed_out = true;
    Value value = nested ? Value::of(nested) : att->to_value(vec.get(index_));
    if (value.tag() && value.tag()->life == Life::counted) lend_value(value);
    return exp_ ? exp_.eval(value, value_type_) : value;
  }

 private:
  // Whatever is done to the vector meanwhile.
  static void lend_value(Value value) {
    if (auto* nested = value.as<AttVec>()) lend(*nested);
    if (auto* list = value.as<AttVecList>()) lend(*list);
    if (auto* chain = value.as<TraceChain>()) lend(*chain);
  }

  int value_type_ = kAnyType;
  ExpPtr exp_;
};

// The text of the value.
class AttStrVal : public Form<AttStrVal, OneAtt> {
 public:
  static constexpr const char* kName = "att-str-val";
  static constexpr const char* kUsage =
      "`(att-str-val att [type])` the text of the value; null when undefined";
  AttStrVal() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override {
    std::string att_name = or_empty(args->get_str_val());
    find("AttStrVal", take_att_type(world, *args), att_name.c_str());
  }

 protected:
  Value apply(AttVec& vec, Value, int) override {
    const AttInterpreter* att = att_in(vec);
    if (!att || !vec.has(index_)) return {};
    std::string scratch;
    const char* text = att->str_val(vec.get(index_), scratch);
    return text == scratch.c_str() ? Value::made_text(scratch) : Value::constant(text);
  }
};

// The vector as it prints.
class AttVec2Str : public Form<AttVec2Str, AttPred> {
 public:
  static constexpr const char* kName = "attvec2str";
  static constexpr const char* kUsage =
      "`(attvec2str [att ...])` the vector as text, or only those attributes of it";
  AttVec2Str() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override {
    const AttInterpreterList* type = attributes(world).current;
    if (const char* first = args->nth_str_val(0)) {
      int index;
      bool is_att = type && type->lookup(first, &index);
      if (auto* named = is_att ? nullptr : find_att_list(world, first, false)) {
        type = named;
        args->pop_front();
      }
    }
    if (!args->empty()) mask_ = find_att_set(type, args);
  }

 protected:
  Value apply(AttVec& vec, Value, int) override {
    std::ostringstream out;
    vec.print(out, mask_ ? &*mask_ : nullptr, true);
    return Value::made_text(out.str());
  }

 private:
  std::optional<LBitSet> mask_;
};

constexpr Prototype kAttValueForms[] = {
    form<AttValPred>(),
    pure_form<AttStrVal>(),
    form<AttVec2Str>(),
};

}  // namespace

constinit const Offer offers::att_value_forms{kAttValueForms};

}  // namespace torvane
