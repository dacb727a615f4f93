// A tokenizer whose classes come from the input too: the first lines are its classes, the rest its
// text.
#include "fuzz_input.h"
#include "shell/tokenizer.h"

namespace torvane {
namespace {

std::string take_line(std::string& text) {
  std::size_t end = text.find('\n');
  std::string line = text.substr(0, end);
  text.erase(0, end == std::string::npos ? end : end + 1);
  return line;
}

void read_all(TokenizerBase& tokenizer, const std::string& text) {
  Ref<Stream> stream = Stream::from_text(text.data(), text.size());
  tokenizer.set_input(stream.get());
  while (tokenizer.next_token() && (tokenizer.token_length() > 0 || tokenizer.more_input)) continue;
}

}  // namespace

void read_input(const std::string& bytes) {
  std::string text = bytes;
  std::string classes[8];
  for (std::string& line : classes) line = take_line(text);
  char escape = classes[4].empty() ? '\0' : classes[4][0];
  char comment = classes[4].size() < 2 ? '\0' : classes[4][1];
  Tokenizer tokenizer(classes[0].c_str(), classes[1].c_str(), classes[2].c_str(),
                      classes[3].c_str(), escape, comment, 16, 16, classes[4].size() > 2);
  for (int i : {5, 6})
    if (classes[i].size() > 1)
      tokenizer.long_quotes.append(new LongQuote{classes[i].substr(0, 1), classes[i].substr(1)});
  read_all(tokenizer, text);
  Tokenizer copy(static_cast<const TokenizerBase&>(tokenizer));
  read_all(copy, text);
  Tokenizer separated(classes[7].c_str(), 16, 16, false);
  read_all(separated, text);
}

}  // namespace torvane
