// Integers: arithmetic, comparison, and how they print.
#include <charconv>
#include <cstdint>
#include <string>

#include "lexp/form.h"
#include "lexp/offers.h"
#include "lexp/refusal.h"

namespace torvane {

namespace {

// Sums and differences wrap round, as words do.
using Unsigned = std::uintptr_t;

Word sum(Word left, Word right) {
  return static_cast<Word>(static_cast<Unsigned>(left) + static_cast<Unsigned>(right));
}

template <class Int>
Value write_number(Int number, int base) {
  char digits[16];
  const char* end = std::to_chars(digits, digits + sizeof digits, number, base).ptr;
  return Value::made_text({digits, static_cast<std::size_t>(end - digits)});
}

/// A function of two integers; 0 on an input of 0, or when an expression is missing.
class TwoInts : public BinaryFunc {
 public:
  Value eval(Value input, int type) override {
    // Kept: arithmetic-needs-input
    if (!input || !a || !b) return Value();
    Word left = a->eval(input, type).number();
    return Value::integer(apply(left, b->eval(input, type).number()));
  }
  Value watch(Value input, int type, Refusal& refusal) override {
    if (Value value = eval(input, type)) return value;
    std::string found = "they are";
    for (const ExpPtr* part : {&a, &b})
      if (*part)
        found += (part == &a ? " " : " and ") + std::to_string(part->eval(input, type).number());
    refusal.steps.push_back({this, found});
    return Value();
  }

 protected:
  virtual Word apply(Word left, Word right) const = 0;
};

class IntEq : public Form<IntEq, TwoInts> {
 public:
  static constexpr const char* kName = "int-eq";
  static constexpr const char* kUsage =
      "`(int-eq a b)` 1 if equal; 0 on a zero input, as for all of the four";

 protected:
  Word apply(Word left, Word right) const override { return left == right; }
};

class IntGt : public Form<IntGt, TwoInts> {
 public:
  static constexpr const char* kName = "int-gt";
  static constexpr const char* kUsage = "`(int-gt a b)` 1 if a is above b";

 protected:
  Word apply(Word left, Word right) const override { return left > right; }
};

class IntDiff : public Form<IntDiff, TwoInts> {
 public:
  static constexpr const char* kName = "int-diff";
  static constexpr const char* kUsage = "`(int-diff a b)` a - b";
  IntDiff() { out_type = type_id_of<int>(); }

 protected:
  Word apply(Word left, Word right) const override {
    return static_cast<Word>(static_cast<Unsigned>(left) - static_cast<Unsigned>(right));
  }
};

class IntSum : public Form<IntSum, TwoInts> {
 public:
  static constexpr const char* kName = "int-sum";
  static constexpr const char* kUsage = "`(int-sum a b)` a + b";
  IntSum() { out_type = type_id_of<int>(); }

 protected:
  Word apply(Word left, Word right) const override { return sum(left, right); }
};

class PlusOne : public Form<PlusOne, LAdaptor> {
 public:
  static constexpr const char* kName = "+1";
  static constexpr const char* kUsage = "`(+1 [exp])` the integer plus one";
  PlusOne() { in_type = mid_type = type_id_of<int>(); }
  Value convert(Value input) override { return Value::integer(sum(input.number(), 1)); }
};

class MinusOne : public Form<MinusOne, LAdaptor> {
 public:
  static constexpr const char* kName = "-1";
  static constexpr const char* kUsage = "`(-1 [exp])` the integer minus one";
  MinusOne() { in_type = mid_type = type_id_of<int>(); }
  Value convert(Value input) override { return Value::integer(sum(input.number(), -1)); }
};

/// In decimal, cut to 32 bits.
class Int2Str : public Form<Int2Str, LAdaptor> {
 public:
  static constexpr const char* kName = "int2str";
  static constexpr const char* kUsage = "`(int2str [exp])` the integer in decimal";
  Int2Str() {
    in_type = type_id_of<int>();
    mid_type = type_id_of<const char*>();
  }
  Value convert(Value input) override {
    return write_number(static_cast<std::int32_t>(input.number()), 10);
  }
};

/// In hexadecimal, cut to 32 bits.
class Ent2Str : public Form<Ent2Str, LAdaptor> {
 public:
  static constexpr const char* kName = "ent2str";
  static constexpr const char* kUsage = "`(ent2str [exp])` the value in hexadecimal";
  Ent2Str() { mid_type = type_id_of<const char*>(); }
  Value convert(Value input) override {
    return write_number(static_cast<std::uint32_t>(input.number()), 16);
  }
};

constexpr Prototype kIntegerForms[] = {
    pure_form<IntEq>(),   pure_form<IntGt>(),    pure_form<IntDiff>(), pure_form<IntSum>(),
    pure_form<PlusOne>(), pure_form<MinusOne>(), form<Int2Str>(),      form<Ent2Str>(),
};

}  // namespace

constinit const Offer offers::integer_forms{kIntegerForms};

}  // namespace torvane
