// What an action changes of a node: its relation, category and root form, and who its head is.
#include "deps/deps.h"
#include "lexp/form.h"
#include "support/messages.h"
#include "treerules/offers.h"
#include "treerules/tree_match.h"

namespace torvane {
namespace {

template <auto setter>
DepTree* set_text(TreeMatch*, RSTree* tree, const char* text) {
  DepTree* node = dep_tree_of(tree);
  if (node) (node->*setter)(text);
  return node;
}

void put_in_place_of(DepTree& old, DepTree& fresh) {
  if (old._parent) {
    old.insert_before(&fresh);
    old.detach();
    return;
  }
  fresh.detach();
  if (old._deps->_root == &old) old._deps->set_root(&fresh);
}

/// Head and dependent change places; the dependent's other children stay with it. The top that
/// only holds the trees of a sentence is nobody's head.
DepTree* invert_dep(TreeMatch* match, RSTree* tree) {
  DepTree* node = dep_tree_of(tree);
  if (!node) return nullptr;
  DepTree* parent = node->parent();
  if (!parent || parent->is_holder() || (match && match->node == node)) {
    messages()
        << "The dependency relationship between the root node of a tree match and its parent "
           "cannot be inverted\n";
    return nullptr;
  }
  put_in_place_of(*parent, *node);
  node->add_child(parent);
  return node;
}

constexpr Prototype kNodeEditsForms[] = {
    function<set_text<&DepTree::set_rel>>("set-rel",
                                          "`(set-rel node text)` the node with another relation"),
    function<set_text<&DepTree::set_cat>>("set-cat",
                                          "`(set-cat node text)` the node with another category"),
    function<set_text<&DepTree::set_root_word>>(
        "set-root", "`(set-root node text)` the node with another root form"),
    function<invert_dep>(
        "invert-dep",
        "`(invert-dep node)` the node takes the place of its parent, which becomes its child"),
};

}  // namespace

constinit const Offer offers::node_edits{kNodeEditsForms};

}  // namespace torvane
