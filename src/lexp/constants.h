// Forms that give a fixed value, whatever the input.
#pragma once

#include "lexp/form.h"
#include "lexp/lexp.h"
#include "lexp/shared_constant.h"

namespace torvane {

/// A copy of a text that lives as long as the world, at a place of its own; null for null.
const char* constant_text(World& world, const char* text);

/// The expression itself, not its result: a way to hand an expression over as a value.
class PredConst : public Form<PredConst, LConst> {
 public:
  static constexpr const char* kName = "pred";
  PredConst() { out_type = type_id_of<LExp>(); }
  PredConst(const PredConst& other);
  void init(World& world, IRSlist* args) override;

 private:
  void give(std::unique_ptr<LExp> exp);

  SharedConstant<LExp> exp_;
};

class NamedObjConst : public Form<NamedObjConst, LConst> {
 public:
  static constexpr const char* kName = "named-obj";
  void init(World& world, IRSlist* args) override;
};

class IntegerConst : public Form<IntegerConst, LConst> {
 public:
  static constexpr const char* kName = "int";
  IntegerConst() { out_type = type_id_of<int>(); }
  void init(World&, IRSlist* args) override { value = Value::integer(args->get_long_val()); }
};

class StrConst : public Form<StrConst, LConst> {
 public:
  static constexpr const char* kName = "str";
  StrConst() { out_type = type_id_of<const char*>(); }
  void init(World& world, IRSlist* args) override {
    value = Value::constant(constant_text(world, args->get_str_val()));
  }
};

}  // namespace torvane
