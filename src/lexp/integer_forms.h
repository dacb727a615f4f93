// Integers: arithmetic, comparison, and how they print.
#pragma once

#include "lexp/form.h"

namespace torvane {

/// A function of two integers; 0 on an input of 0, or when an expression is missing.
class TwoInts : public BinaryFunc {
 public:
  Value eval(Value input, int type) override;

 protected:
  virtual Word apply(Word left, Word right) const = 0;
};

class IntEq : public Form<IntEq, TwoInts> {
 public:
  static constexpr const char* kName = "int-eq";

 protected:
  Word apply(Word left, Word right) const override { return left == right; }
};

class IntGt : public Form<IntGt, TwoInts> {
 public:
  static constexpr const char* kName = "int-gt";

 protected:
  Word apply(Word left, Word right) const override { return left > right; }
};

class IntDiff : public Form<IntDiff, TwoInts> {
 public:
  static constexpr const char* kName = "int-diff";
  IntDiff() { out_type = type_id_of<int>(); }

 protected:
  Word apply(Word left, Word right) const override;
};

class IntSum : public Form<IntSum, TwoInts> {
 public:
  static constexpr const char* kName = "int-sum";
  IntSum() { out_type = type_id_of<int>(); }

 protected:
  Word apply(Word left, Word right) const override;
};

class PlusOne : public Form<PlusOne, LAdaptor> {
 public:
  static constexpr const char* kName = "+1";
  PlusOne() { in_type = mid_type = type_id_of<int>(); }
  Value convert(Value input) override;
};

class MinusOne : public Form<MinusOne, LAdaptor> {
 public:
  static constexpr const char* kName = "-1";
  MinusOne() { in_type = mid_type = type_id_of<int>(); }
  Value convert(Value input) override;
};

/// In decimal, cut to 32 bits.
class Int2Str : public Form<Int2Str, LAdaptor> {
 public:
  static constexpr const char* kName = "int2str";
  Int2Str();
  Value convert(Value input) override;
};

/// In hexadecimal, cut to 32 bits.
class Ent2Str : public Form<Ent2Str, LAdaptor> {
 public:
  static constexpr const char* kName = "ent2str";
  Ent2Str() { mid_type = type_id_of<const char*>(); }
  Value convert(Value input) override;
};

}  // namespace torvane
