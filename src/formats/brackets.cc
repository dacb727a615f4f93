// Brackets: a line a sentence. Each word stands in its place among its dependents, in brackets of
// its own with its relation in front: (root (nsubj Dogs) bark). Arcs that cross come out in the
// order of the heads' dependents.
#include "formats/format.h"
#include "formats/layout.h"

namespace torvane {
namespace {

void add_word(std::string& out, std::string_view form) {
  for (char c : form) {
    if (c == '(') {
      out += "-LRB-";
    } else if (c == ')') {
      out += "-RRB-";
    } else {
      out += c == ' ' || c == '\t' ? '_' : c;
    }
  }
}

}  // namespace

void write_brackets(std::string& out, const Sentence& sentence, const Page&) {
  const auto dependents = dependents_of(sentence);
  // What is still to be written: a word opened (positive), its form (negative), or a closing (0).
  std::vector<int> stack(dependents[0].rbegin(), dependents[0].rend());
  bool first = true;
  while (!stack.empty()) {
    const int step = stack.back();
    stack.pop_back();
    if (step == 0) {
      out += ')';
      continue;
    }
    const auto number = static_cast<std::size_t>(step > 0 ? step : -step);
    const SentenceWord& word = sentence.words[number - 1];
    if (!first) out += ' ';
    first = false;
    if (step < 0) {
      add_word(out, word.form);
      continue;
    }
    out += '(';
    out += word.relation.empty() ? "dep" : word.relation;
    stack.push_back(0);
    const std::vector<int>& below = dependents[number];
    auto from = below.rbegin();
    for (; from != below.rend() && *from > step; ++from) stack.push_back(*from);
    stack.push_back(-step);
    for (; from != below.rend(); ++from) stack.push_back(*from);
  }
  out += '\n';
}

}  // namespace torvane
