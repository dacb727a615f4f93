// Packed vectors and alias files of any bytes: what comes in must print, pack and compare as any
// vector.
#include <cstdint>
#include <iostream>
#include <sstream>
#include <string>

#include "att/aliases.h"
#include "shell/exec.h"

namespace torvane {
namespace {

const char* const kTypes[] = {"narrow", "wide"};

void define_types() {
  register_attribute_types();
  register_attribute_commands();
  std::cerr.setstate(std::ios::failbit);
  interpreter().prompt = false;
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
  interpreter().load_string(("(def-att-list narrow " + atts + ")").c_str());
  interpreter().load_string(("(def-att-list wide " + more + atts + ")").c_str());
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
}  // namespace torvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace torvane;
  static const bool defined = (define_types(), true);
  if (!defined || size == 0) return 0;
  AttInterpreterList* type = AttInterpreterList::find(kTypes[data[0] % 2]);
  const char* p = reinterpret_cast<const char*>(data) + 1;
  const char* end = p + size - 1;

  std::istringstream file(std::string(p, end));
  read_aliases(*type, file);
  AttVec first(type);
  AttVec second(type);
  while (p < end && first.unpack(p, end)) {
    check_round_trip(first, type);
    second.unify(first, nullptr, 1);
    first.compare(second);
    second.generalize(first);
    second.modify(first);
    first.subtract(second);
  }
  type->aliases.clear();
  return 0;
}
