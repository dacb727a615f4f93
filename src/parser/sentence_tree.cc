#include "parser/sentence_tree.h"

#include <string>
#include <utility>

#include "att/att_interpreter_list.h"
#include "deps/tree_walk.h"
#include "parser/torvane_parser.h"
#include "support/depth.h"

namespace torvane {
namespace {

thread_local DepthLimit copy_depth{"The dependency tree is too deep to be copied"};

/// Pairs of a node and its copy.
using NodeMap = Array<std::pair<const DepTree*, SentenceNode*>>;
constexpr int kMapSize = 100;

/// An empty node stands where the first of its first children with a place stands, if that is
/// before it.
int order_of_empty(const DepTree& node) {
  std::vector<int> own;
  for (const DepTree* n = &node; n; n = static_cast<const DepTree*>(n->first_child()))
    own.push_back(n->_pos);
  int order = own.back();
  for (std::size_t i = own.size() - 1; i-- > 0;)
    order = order > 0 && (order < own[i] || own[i] < 0) ? order : own[i];
  return order;
}

const char* copy_text(const char* text, SentenceTree& tree) {
  return text && *text ? tree.strings.copy(text) : nullptr;
}

void copy_props(const AttVec& atts, SentenceNode& to) {
  if (!atts.interpreters) return;
  std::string scratch;
  LBitSetIterator indexes(atts.defined);
  for (int i; (i = indexes.next()) >= 0;) {
    const AttInterpreter* att = atts.interpreters->at(i);
    const char* value = att ? att->str_val(atts.get(i), scratch) : nullptr;
    if (value) to.props.append({att->name.c_str(), to.tree->strings.copy(value)});
  }
}

SentenceNode* copy_node(DepTree& source, SentenceTree& tree, NodeMap& map);

void copy_antecedents(DepTree& source, const NodeMap& map) {
  auto copy_of = [&](const DepTree* node) -> SentenceNode* {
    for (const auto& [original, copy] : map)
      if (original == node) return copy;
    return nullptr;
  };
  for (TPreIterator<DepTree> walk(&source); const DepTree* node = walk.next();) {
    if (!node->antecedent) continue;
    SentenceNode* copy = copy_of(node);
    SentenceNode* antecedent = copy_of(node->antecedent);
    if (copy && antecedent) copy->antecedent = antecedent;
  }
}

SentenceNode* copy_node(DepTree& source, SentenceTree& tree, NodeMap& map) {
  DepthGuard guard(copy_depth);
  if (!guard) return nullptr;
  SentenceNode* node = tree.new_node();
  map.append({&source, node});
  node->low = source._low;
  node->high = source._high;
  node->order = source._pos;
  node->word = tree.strings.copy(source.word());
  node->root = tree.strings.copy(source._root_word);
  node->relation = copy_text(source._rel, tree);
  node->category = copy_text(source._cat, tree);
  node->label = tree.strings.copy(source.is_holder() ? "" : source.label());
  if (source._atts) copy_props(*source._atts, *node);
  if (node->order < 0) node->order = order_of_empty(source);
  source.for_each_child([&](DepTree* child) {
    if (SentenceNode* copy = copy_node(*child, tree, map)) node->attach(copy);
  });
  if (!source._parent) copy_antecedents(source, map);
  return node;
}

void parse_fed(TorvaneParser& parser, SentenceTree& tree) {
  parser.parse_items();
  fill_tree(parser, tree);
}

}  // namespace

void SentenceNode::attach(SentenceNode* child) {
  child->parent = this;
  if (children.empty() || children.back()->order <= child->order) {
    children.append(child);
    return;
  }
  auto stands_behind = [child](const SentenceNode* other) { return other->order > child->order; };
  children.insert_after(children.place_before(stands_behind), child);
}

SentenceNode* SentenceTree::new_node() {
  SentenceNode& node = nodes_.emplace_back();
  node.tree = this;
  return &node;
}

void SentenceTree::reset() {
  strings.reset();
  nodes_.clear();
  root = nullptr;
}

void fill_tree(TorvaneParser& parser, SentenceTree& tree) {
  if (parser._constituency || !parser._deps || !parser._deps->_root) return;
  DepTree& top = *parser._deps->_root;
  NodeMap map(kMapSize);
  SentenceNode* copy = copy_node(top, tree, map);
  if (!copy || top.is_holder()) {
    tree.root = copy;
    return;
  }
  // The printed tree's top is a holder without a line of its own.
  tree.root = tree.new_node();
  tree.root->label = tree.strings.copy("");
  tree.root->attach(copy);
}

void parse_sentence(World& world, const char* text, SentenceTree& tree) {
  TorvaneParser* parser = current_parser(world);
  if (text && parser && parser->feed(text, nullptr)) parse_fed(*parser, tree);
}

void parse_words(World& world, const std::vector<const char*>& words, SentenceTree& tree) {
  TorvaneParser* parser = current_parser(world);
  if (parser && parser->feed_words(words)) parse_fed(*parser, tree);
}

}  // namespace torvane
