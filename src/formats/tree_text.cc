// The tree text of docs/formats.md.
#include <cstddef>

#include "formats/format.h"
#include "support/text.h"

namespace torvane {
namespace {

void add_atom(std::string& out, std::string_view text) {
  append_quoted(out, text, QuoteComma::no);
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
    out += word.head > 0 ? std::to_string(word.head) : "*";
    out += '\t';
    add_atom(out, word.relation);
    out += word.space_after ? ")\n" : ") :nogap\n";
  }
  out += ")\n";
}

}  // namespace torvane
