// The two printers of the detached tree.
#include <cstring>
#include <string>

#include "att/contract.h"
#include "parser/sentence_tree.h"
#include "shell/world.h"
#include "support/depth.h"
#include "support/text.h"

namespace torvane {
namespace {

thread_local DepthLimit print_depth{"The dependency tree is too deep to be printed"};

void print_line(std::ostream& out, const SentenceNode& node) {
  // Kept: e-labels-hide
  if (!node.parent || node.label[0] == contract::kEmptyLabel) return;
  out << node.label << "\t(";
  out << (node.word && *node.word ? quoted(node.word, QuoteComma::no) : "()");
  out << "\t " << (node.category ? node.category : contract::kNoCategory) << '\t';
  bool has_head = node.parent->parent != nullptr;
  out << (has_head ? node.parent->label : "*") << ")\n";
}

// The head stands in its place among its dependents.
void print_in_order(std::ostream& out, const SentenceNode& node) {
  DepthGuard guard(print_depth);
  if (!guard) return;
  bool printed = false;
  for (const SentenceNode* child : node.children) {
    if (!printed && child->order >= node.order) {
      print_line(out, node);
      printed = true;
    }
    print_in_order(out, *child);
  }
  if (!printed) print_line(out, node);
}

void print_word(World& world, std::ostream& out, const char* word) {
  // Kept: p-quotes-less
  if (std::strpbrk(word, " \t\n()")) {
    out << " \"" << word << '"';
  } else if (std::strcmp(word, "\"") == 0) {
    // Kept: lone-quote-to-stdout
    world.out() << " \"\\\"\"";
  } else {
    out << ' ' << word;
  }
}

void print_body(World& world, std::ostream& out, const SentenceNode& node) {
  if (node.category) out << node.category;
  if (node.word) print_word(world, out, node.word);
  if (node.root) out << " (root " << node.root << ')';
  if (node.relation) out << " (relation " << node.relation << ')';
  for (const auto& [name, value] : node.props) out << " (" << name << ' ' << value << ')';
}

void print_nested(World& world, std::ostream& out, const SentenceNode& node, int level) {
  DepthGuard guard(print_depth);
  if (!guard) return;
  out << '\n' << std::string(static_cast<std::size_t>(2 * level), ' ');
  out << '(';
  print_body(world, out, node);
  for (const SentenceNode* child : node.children) print_nested(world, out, *child, level + 1);
  out << ')';
}

}  // namespace

void print_tree(std::ostream& out, const SentenceNode* node) {
  bool whole = !node || !node->parent;
  if (whole) out << "(\n";
  if (node) print_in_order(out, *node);
  if (whole) out << ')' << std::flush;
}

void SentenceTree::print(World& world, std::ostream& out) const {
  if (root) print_nested(world, out, *root, 0);
  out << '\n' << std::flush;
}

}  // namespace torvane
