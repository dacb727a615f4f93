#include "parser/forest/tree_builder.h"

#include "parser/grammar/syntax_atts.h"

namespace torvane {

void TreeBuilder::build(const Slist<TNode*>& roots, Deps& deps) {
  budget_.reset();
  traces_.clear();
  WordTrees words(deps, budget_, traces_);
  DepTree* top = nullptr;
  if (!roots.empty() && roots.head() != roots.tail()) top = deps.new_node();
  for (TNode* root : roots) {
    DepTree* tree = make_tree(*root, words);
    if (top && tree) top->add_child(tree);
    if (!top) top = tree;
  }
  deps.set_root(top);
  traces_.add_to(deps);
}

DepTree* TreeBuilder::make_tree(TNode& tnode, WordTrees& words) {
  DepthGuard guard(tree_depth);
  if (!guard || tnode.best().empty() || !budget_.take()) return nullptr;
  const std::size_t base = parts_.size();
  DepTree* head = make_parts(tnode, words);
  if (!head) head = words.make_empty(*tnode._item);
  for (std::size_t i = base; i < parts_.size(); ++i) take_part(*head, parts_[i], *tnode._item);
  parts_.resize(base);
  WordTrees::unite(*head, *tnode._item->_atts);
  return head;
}

/// Puts the modifiers of the best decomposition on the stack of parts; gives the head's node.
DepTree* TreeBuilder::make_parts(TNode& tnode, WordTrees& words) {
  DepTree* head = nullptr;
  for (const Derivation* entry : tnode.best()) {
    DepTree* node = entry->_child ? make_subtree(*entry, words) : words.make_word(*entry->_item);
    if (!node) continue;
    if (entry->_is_head) {
      head = node;
    } else {
      parts_.push_back({node, entry->_link ? entry->_link->position() - 1 : -1, entry->merged});
    }
  }
  return head;
}

DepTree* TreeBuilder::make_subtree(const Derivation& entry, WordTrees& words) {
  DepTree* node = make_tree(*entry._child, words);
  if (!node) return nullptr;
  if (entry._link && entry._link->type()) node->set_rel(entry._link->type().c_str());
  node->_weight += entry._local_cost;
  return node;
}

void TreeBuilder::take_part(DepTree& head, const Part& part, const PItem& item) {
  const SyntaxAtts& syn = syntax_atts(*item._atts);
  const AttVec* arg = argument_of(*item._atts, syn.args, part.argument);
  if (Name role = arg ? text_of(*arg, syn.role) : Name()) part.node->set_rel(role.c_str());
  traces_.note_merge(head, *part.node, *part.merged);
  head.add_child(part.node);
}

}  // namespace torvane
