// Packed vectors and alias files of any bytes: what comes in must print, pack and compare as any
// vector.
#include <vector>

#include "att/aliases.h"
#include "att/attributes.h"
#include "fuzz_input.h"

namespace torvane {
namespace {

const char* const kTypes[] = {"narrow", "wide"};

void define_types() {
  const std::string atts =
      "(defattribute b BinAtt)(defattribute e EnumAtt (allowable-values x y))"
      "(defattribute d DisjAtt (allowable-values p q))(defattribute d8 Disj8Att (allowable-values "
      "p q))"
      "(defattribute i IntAtt)(defattribute s SmIntAtt)(defattribute t StrAtt)(defattribute n "
      "EntAtt)"
      "(defattribute v VecAtt)(defattribute l ListAtt)(defattribute k StackAtt)(defattribute r "
      "TraceAtt)";
  std::string more;
  for (int i = 0; i < 120; ++i) more += "(defattribute b" + std::to_string(i) + " BinAtt)";
  define("(def-att-list narrow " + atts + ") (def-att-list wide " + more + atts + ")");
}

// A vector that was unpacked once comes back as it was.
void check_round_trip(const AttVec& vec, AttInterpreterList* type) {
  StrBufs bytes;
  bytes.open();
  vec.pack(bytes);
  const char* p = bytes.object();
  AttVec back(type);
  if (!back.unpack(p, p + bytes.object_size())) __builtin_trap();
  std::ostringstream once, twice;
  vec.print(once, nullptr, true);
  back.print(twice, nullptr, true);
  if (once.str() != twice.str()) __builtin_trap();
}

}  // namespace

void read_input(const std::string& bytes) {
  static const bool defined = (define_types(), true);
  if (!defined || bytes.empty()) return;
  AttInterpreterList* type = find_att_list(world(), kTypes[bytes[0] & 1]);
  // A block of exactly the bytes' size, so that reading on would be seen.
  const std::vector<char> block(bytes.begin() + 1, bytes.end());
  const char* p = block.data();
  const char* end = p + block.size();

  std::istringstream file(std::string(p, end));
  read_aliases(*type, file);
  AttVec first(type);
  AttVec second(type);
  while (p < end && first.unpack(p, end)) {
    check_round_trip(first, type);
    second.unify(first, nullptr, true);
    first.compare(second);
    second.generalize(first);
    second.modify(first);
    first.subtract(second);
  }
  type->aliases.clear();
}

}  // namespace torvane
