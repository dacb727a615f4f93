#include "lexp/integer_forms.h"

#include <charconv>
#include <cstdint>

namespace torvane {

namespace {

// Sums and differences wrap round, as words do.
using Unsigned = std::uintptr_t;

Word sum(Word left, Word right) {
  return static_cast<Word>(static_cast<Unsigned>(left) + static_cast<Unsigned>(right));
}

template <class Int>
Value write_number(Int number, int base, char (&digits)[16]) {
  *std::to_chars(digits, digits + sizeof digits - 1, number, base).ptr = 0;
  return Value::buffer_text(digits);
}

}  // namespace

Value TwoInts::eval(Value input, int type) {
  if (!input || !a || !b) return Value();
  Word left = a->eval(input, type).number();
  return Value::integer(apply(left, b->eval(input, type).number()));
}

Word IntDiff::apply(Word left, Word right) const {
  return static_cast<Word>(static_cast<Unsigned>(left) - static_cast<Unsigned>(right));
}

Word IntSum::apply(Word left, Word right) const {
  return sum(left, right);
}

Value PlusOne::convert(Value input) {
  return Value::integer(sum(input.number(), 1));
}

Value MinusOne::convert(Value input) {
  return Value::integer(sum(input.number(), -1));
}

Int2Str::Int2Str() {
  in_type = type_id_of<int>();
  mid_type = type_id_of<const char*>();
}

Value Int2Str::convert(Value input) {
  return write_number(static_cast<std::int32_t>(input.number()), 10, digits_);
}

Value Ent2Str::convert(Value input) {
  return write_number(static_cast<std::uint32_t>(input.number()), 16, digits_);
}

void register_integer_forms(World& world) {
  register_form<IntEq>(world);
  register_form<IntGt>(world);
  register_form<IntDiff>(world);
  register_form<IntSum>(world);
  register_form<PlusOne>(world);
  register_form<MinusOne>(world);
}

}  // namespace torvane
