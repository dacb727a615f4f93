#include "deps/print_text.h"

#include <iostream>
#include <string>

#include "deps/deps.h"
#include "shell/world.h"
#include "support/text.h"

namespace torvane {

namespace {
constexpr const char* kUnknown = "unknown";
}

const char* root_text(const DepTree* node) {
  if (!node || !node->_root_word) return kUnknown;
  return node->_root_word[0] == '~' ? span_text(*node) : node->_root_word;
}

const char* relation_text(const DepTree* node) {
  return node && node->_rel ? node->_rel : kUnknown;
}

const char* span_text(const DepTree& node) {
  return node._deps->span_text(node._low, node._high);
}

void write_atom(std::ostream& out, const char* text) {
  std::string atom = quoted(text, QuoteComma::yes);
  out << (atom.empty() ? "\"\"" : atom);
}

std::ostream* output_of(World& world, Stream* stream) {
  return stream ? stream->out() : &world.out();
}

}  // namespace torvane
