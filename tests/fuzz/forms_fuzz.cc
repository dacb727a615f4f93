// Forms from any bytes, and back: what is written must read as it was.
#include "fuzz_input.h"
#include "shell/irslist.h"
#include "shell/tokenizer.h"

namespace torvane {

void read_input(const std::string& bytes) {
  auto tokenizer = Tokenizer::make_default(false);
  Ref<Stream> stream = Stream::from_text(bytes.data(), bytes.size());
  tokenizer->set_input(stream.get());
  IRSlist form;
  do {
    tokenizer->reset_tokens();
    if (!form.read(*tokenizer, '(', ')') || form.is_atom()) continue;
    StrBufs text;
    form.to_text(text);
    std::string written = text.finish();
    IRSlistReader reader(false);
    IRSlist* again = reader.start_string(written.c_str());
    StrBufs text_again;
    if (!again) std::abort();
    again->to_text(text_again);
    if (written != text_again.finish()) std::abort();
  } while (tokenizer->more_input);

  StrBufs items;
  std::istringstream in(bytes);
  while (next_item(in, items)) continue;
  const char* cursor = bytes.c_str();
  while (next_item_in_text(cursor, items)) continue;
}

}  // namespace torvane
