// The packed form of a vector: for each defined attribute a tag and its value's bytes, then an end
// tag. A tag is the attribute's index, or its one's complement for a value of 0.
#include "att/att_interpreter_list.h"
#include "support/big_endian.h"

namespace torvane {

namespace {

bool wide_tags(int atts) {
  // Kept: wide-tags-from-126
  return atts >= 126;
}

void add_tag(StrBufs& out, int tag, bool wide) {
  if (wide)
    out.add_be16(static_cast<std::uint16_t>(tag));
  else
    out.add_char(static_cast<char>(tag));
}

bool read_tag(const char*& p, const char* end, bool wide, int& tag) {
  const int size = wide ? 2 : 1;
  if (end - p < size) return false;
  tag = wide ? static_cast<std::int16_t>(load_be16(p)) : static_cast<signed char>(*p);
  p += size;
  return true;
}

}  // namespace

void AttVec::pack(StrBufs& out) const {
  if (!interpreters) return;
  const int n = interpreters->count();
  const bool wide = wide_tags(n);
  LBitSetIterator bits(defined);
  for (int index = bits.next(); index >= 0; index = bits.next()) {
    bool has_value = get(index) != 0;
    add_tag(out, has_value ? index : ~index, wide);
    if (has_value && !interpreters->binary_atts.test(index))
      interpreters->atts[index]->pack(this, out);
  }
  add_tag(out, n + 1, wide);
}

bool AttVec::unpack(const char*& p, const char* end) {
  if (!interpreters) return true;
  const int n = interpreters->count();
  const bool wide = wide_tags(n);
  int tag;
  while (read_tag(p, end, wide, tag)) {
    if (tag >= n || tag < -n) return true;
    int index = tag < 0 ? ~tag : tag;
    if (tag < 0 || interpreters->binary_atts.test(index)) {
      set(index, tag >= 0);
    } else {
      if (!interpreters->atts[index]->unpack(this, p, end)) return false;
      defined.set(index);
    }
  }
  return false;
}

}  // namespace torvane
