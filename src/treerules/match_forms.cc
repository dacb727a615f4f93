// What an action does to the nodes of a dependency tree, and prints of its match.
#include "deps/chunks.h"
#include "deps/deps.h"
#include "deps/print_text.h"
#include "lexp/form.h"
#include "shell/world.h"
#include "support/messages.h"
#include "treerules/tree_edits.h"
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

bool pre_head(TreeMatch*, RSTree* tree) {
  const DepTree* node = dep_tree_of(tree);
  const DepTree* parent = node ? node->parent() : nullptr;
  return parent && node->order() < parent->order();
}

TreeMatch* print_attachment_points(World& world, TreeMatch* match) {
  const DepTree* site = match ? dep_tree_of(match->node) : nullptr;
  if (!site) return nullptr;
  world.out() << "Attachment points for " << span_text(*site) << '\n';
  for (TreeMatch* child = match->first_child(); child; child = child->next_sibling())
    if (const DepTree* node = dep_tree_of(child->node))
      world.out() << '\t' << span_text(*node) << '\n';
  return match;
}

/// The chunks of the sentence in which the match stands.
TreeMatch* get_chunk(World& world, TreeMatch* match) {
  DepTree* node = nullptr;
  if (match)
    match->for_each([&](const TreeMatch& part) {
      if (!node) node = dep_tree_of(part.node);
    });
  if (!node) return nullptr;
  print_chunks(world.out(), *node);
  return match;
}

struct GetChunk : Adaptor<GetChunk, TreeMatch, TreeMatch*> {
  static constexpr const char* kName = "get-chunk";
  TreeMatch* step(TreeMatch& match) const { return get_chunk(world(), &match); }
};

}  // namespace

void register_match_forms(World& world) {
  register_function<set_text<&DepTree::set_rel>>(world, "set-rel");
  register_function<set_text<&DepTree::set_cat>>(world, "set-cat");
  register_function<set_text<&DepTree::set_root_word>>(world, "set-root");
  register_function<invert_dep>(world, "invert-dep");
  register_function<pre_head>(world, "pre-head");
  register_function<print_attachment_points>(world, "print-attachment-points");
  register_form<GetChunk>(world);
}

}  // namespace torvane
