#include "treerules/tree_match.h"

#include <memory>
#include <vector>

namespace torvane {
namespace {

// Matches are taken in order and given back all at once, so that whatever an expression did with
// one (kept, dropped, put into another) needs no care. The blocks stay: a stamp can be read for
// ever.
class Pool {
 public:
  static constexpr std::size_t kBlock = 256;

  TreeMatch* take(RSTree* node) {
    if (used_ == blocks_.size() * kBlock) blocks_.push_back(std::make_unique<TreeMatch[]>(kBlock));
    TreeMatch& match = at(used_++);
    match = TreeMatch{.node = node, .stamp = ++stamp_};
    return &match;
  }
  void give_back(std::size_t mark) {
    while (used_ > mark) at(--used_).stamp = 0;
  }
  std::size_t used() const { return used_; }
  std::uint64_t stamp() const { return stamp_; }

 private:
  TreeMatch& at(std::size_t i) { return blocks_[i / kBlock][i % kBlock]; }

  std::vector<std::unique_ptr<TreeMatch[]>> blocks_;
  std::size_t used_ = 0;
  std::uint64_t stamp_ = 0;
};

Pool& pool() {
  static auto& matches = *new Pool;
  return matches;
}

}  // namespace

TreeMatch* TreeMatch::make(RSTree* node) {
  return pool().take(node);
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

MatchScope::MatchScope() : mark_(pool().used()) {}

MatchScope::~MatchScope() {
  pool().give_back(mark_);
}

std::uint64_t last_match_stamp() {
  return pool().stamp();
}

}  // namespace torvane
