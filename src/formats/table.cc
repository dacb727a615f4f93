// The table that the program prints without arguments: position, word, category, head.
#include <cstddef>

#include "formats/format.h"
#include "support/text.h"

namespace torvane {

void write_table(std::string& out, const Sentence& sentence, const Page&) {
  out += "(\n";
  std::size_t number = 0;
  for (const SentenceWord& word : sentence.words) {
    out += std::to_string(++number) + "\t(";
    append_quoted(out, word.form, QuoteComma::no);
    out += "\t " + (word.xpos.empty() ? std::string("U") : word.xpos) + '\t';
    out += word.head > 0 ? std::to_string(word.head) : "*";
    out += ")\n";
  }
  out += ")\n";
}

}  // namespace torvane
