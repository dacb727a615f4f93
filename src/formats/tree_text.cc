// The tree text of docs/formats.md.
#include <cstddef>
#include <string>
#include <string_view>

#include "formats/format.h"
#include "support/text.h"

namespace torvane {
namespace {

void add_atom(std::string& out, std::string_view text) {
  if (text.find_first_of("\n\r\0", 0, 3) == text.npos) {
    append_quoted(out, text, QuoteComma::yes);
  } else {
    // A line is a word.
    std::string one_line(text);
    for (char& c : one_line)
      if (c == '\n' || c == '\r' || c == '\0') c = ' ';
    append_quoted(out, one_line, QuoteComma::yes);
  }
}

}  // namespace

void write_deps(std::string& out, const Sentence& sentence, const Page&) {
  out += '(';
  if (!sentence.id.empty()) {
    out += ":id ";
    add_atom(out, sentence.id);
  }
  out += '\n';
  std::size_t number = 0;
  for (const SentenceWord& word : sentence.words) {
    out += std::to_string(++number) + "\t(";
    add_atom(out, word.form);
    out += '\t';
    add_atom(out, word.lemma.empty() || word.lemma == word.form ? "~" : word.lemma);
    out += ' ';
    add_atom(out, word.xpos.empty() ? "U" : word.xpos);
    out += '\t';
    out += word.head > 0 && !word.part ? std::to_string(word.head) : "*";
    out += '\t';
    add_atom(out, word.relation);
    out += word.space_after ? ")\n" : ") :nogap\n";
  }
  out += ")\n";
}

}  // namespace torvane
