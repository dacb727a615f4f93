// Packed dependency trees from any bytes: what could be read must pack and print.
#include "att/attributes.h"
#include "deps/deps.h"
#include "fuzz_input.h"

namespace torvane {

void read_input(const std::string& bytes) {
  static AttInterpreterList* type = [] {
    define("(def-att-list packed (defattribute b BinAtt) (defattribute s StrAtt))");
    return attributes(world()).current;
  }();
  Deps deps(world());
  deps._att_type = type;
  for (const char* word : {"a", "b", "c"}) deps.add_word(word, " ");
  const char* p = bytes.data();
  const char* end = p + bytes.size();
  if (!deps.unpack(p, end)) return;
  if (p > end) std::abort();
  StrBufs packed;
  deps.pack(packed);
  printed(deps);
  Deps again(world());
  again._att_type = type;
  const char* q = packed.object();
  if (!again.unpack(q, packed.object() + packed.object_size())) std::abort();
}

}  // namespace torvane
