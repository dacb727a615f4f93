#include "att/slot_atts.h"

#include "support/big_endian.h"

namespace torvane {

void CharAtt::set(AttVec* vec, AttWord value) const {
  if (slot >= vec->laid_out_char) vec->lay_out();
  if (slot >= 0 && slot < vec->laid_out_char)
    // Kept: byte-values-are-cut
    vec->small_values[slot] = static_cast<unsigned char>(value);
}

void CharAtt::pack(const AttVec* vec, StrBufs& out) const {
  out.add_char(static_cast<char>(get(vec)));
}

bool CharAtt::unpack(AttVec* vec, const char*& p, const char* end) const {
  if (p == end) return false;
  set(vec, static_cast<unsigned char>(*p++));
  return true;
}

AttWord* LongVAtt::cell(AttVec* vec) const {
  if (slot >= vec->laid_out_long) vec->lay_out();
  return slot >= 0 && slot < vec->laid_out_long ? &vec->long_values[slot] : nullptr;
}

void LongVAtt::set(AttVec* vec, AttWord value) const {
  if (AttWord* word = cell(vec)) *word = value;
}

void Long32Att::set(AttVec* vec, AttWord value) const {
  LongVAtt::set(vec, static_cast<std::uint32_t>(value));
}

void Long32Att::pack(const AttVec* vec, StrBufs& out) const {
  out.add_be32(static_cast<std::uint32_t>(get(vec)));
}

bool Long32Att::unpack(AttVec* vec, const char*& p, const char* end) const {
  if (end - p < 4) return false;
  set(vec, load_be32(p));
  p += 4;
  return true;
}

Value Long32Att::to_value(AttWord value) const {
  return Value::integer(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

const char* value_text(IRSlist* form) {
  return or_empty(form->is_atom() ? form->atom : form->get_str_val());
}

}  // namespace torvane
