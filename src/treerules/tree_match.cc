#include "treerules/tree_match.h"

#include <memory>
#include <vector>

namespace torvane {
namespace {

// Matches are taken in order and given back all at once, so that whatever an expression did with
// one (kept, dropped, put into another) needs no care. The blocks stay: a stamp can be read for
// ever.
constexpr std::size_t kBlock = 256;

TreeMatch& match_at(std::size_t i) {
  static thread_local std::vector<std::unique_ptr<TreeMatch[]>> blocks;
  if (i == blocks.size() * kBlock) blocks.push_back(std::make_unique<TreeMatch[]>(kBlock));
  return blocks[i / kBlock][i % kBlock];
}

}  // namespace

TreeMatch* TreeMatch::make(RSTree* node) {
  TreeMatch& match = match_at(matches_made++);
  match = TreeMatch{.node = node, .stamp = ++last_match_stamp};
  return &match;
}

void TreeMatch::append(TreeMatch* child) {
  child->_parent = this;
  if (last) {
    child->next = last->next;
    last->next = child;
  } else {
    child->next = child;
  }
  last = child;
}

TreeMatch* TreeMatch::child(long n) const {
  if (n < 1) return nullptr;
  TreeMatch* found = first_child();
  while (found && --n > 0) found = found->next_sibling();
  return found;
}

TreeMatch* TreeMatch::last_descendant() {
  TreeMatch* match = this;
  while (match->last) match = match->last;
  return match;
}

bool TreeMatch::has_child_on(const RSTree* tree) const {
  for (const TreeMatch* c = first_child(); c; c = c->next_sibling())
    if (c->node == tree) return true;
  return false;
}

void MatchScope::end_matches(std::size_t mark) {
  while (matches_made > mark) match_at(--matches_made).stamp = 0;
}

}  // namespace torvane
