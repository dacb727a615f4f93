// A graph for drawing programs: an arrow from each head.
#include "formats/format.h"

namespace torvane {
namespace {

void add_quoted(std::string& out, std::string_view text) {
  out += '"';
  for (char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c == '\n' || c == '\r' || c == '\t' ? ' ' : c;
  }
  out += '"';
}

}  // namespace

void write_dot(std::string& out, const Sentence& sentence, const Page&) {
  out += "digraph ";
  add_quoted(out, sentence.id.empty() ? "sentence" : sentence.id);
  out += " {\n  node [shape=plaintext]\n  label=";
  add_quoted(out, sentence.text);
  out += '\n';
  int number = 0;
  for (const SentenceWord& word : sentence.words) {
    out += "  " + std::to_string(++number) + " [label=";
    add_quoted(out, word.form);
    out += "]\n";
    if (word.head <= 0) continue;
    out += "  " + std::to_string(word.head) + " -> " + std::to_string(number) + " [label=";
    add_quoted(out, word.relation);
    out += "]\n";
  }
  out += "}\n";
}

}  // namespace torvane
