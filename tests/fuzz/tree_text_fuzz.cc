// Dependency trees from any text, and back: what is written must read as it was.
#include "deps/deps.h"
#include "fuzz_input.h"

namespace torvane {

void read_input(const std::string& bytes) {
  IRSlistReader reader(false);
  Ref<Stream> stream = Stream::from_text(bytes.data(), bytes.size());
  Deps deps(world());
  for (IRSlist* form = reader.start_stream(stream.get()); form; form = reader.next()) {
    if (form->is_atom()) continue;
    deps.read(*form);
    std::string once = printed(deps);
    StrBufs packed;
    deps.pack(packed);
    IRSlistReader again_reader(false);
    Deps again(world());
    IRSlist* again_form = again_reader.start_string(once.c_str());
    if (!again_form) std::abort();
    again.read(*again_form);
    // What crosses is untangled by the first writing, and stays as it is from then on.
    std::string twice = printed(again);
    const char* p = packed.object();
    if (!deps.unpack(p, packed.object() + packed.object_size())) std::abort();
    again.read(*again_reader.start_string(twice.c_str()));
    if (printed(again) != twice) std::abort();
  }
}

}  // namespace torvane
