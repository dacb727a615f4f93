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
Value write_number(Int number, int base) {
  char digits[16];
  const char* end = std::to_chars(digits, digits + sizeof digits, number, base).ptr;
  return Value::made_text({digits, static_cast<std::size_t>(end - digits)});
}

}  // namespace

Value TwoInts::eval(Value input, int type) {
  // Kept: arithmetic-needs-input
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
  return write_number(static_cast<std::int32_t>(input.number()), 10);
}

Value Ent2Str::convert(Value input) {
  return write_number(static_cast<std::uint32_t>(input.number()), 16);
}

void register_integer_forms(World& world) {
  register_pure_form<IntEq>(world);
  register_pure_form<IntGt>(world);
  register_pure_form<IntDiff>(world);
  register_pure_form<IntSum>(world);
  register_pure_form<PlusOne>(world);
  register_pure_form<MinusOne>(world);
}

}  // namespace torvane
