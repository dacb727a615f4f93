#include "treerules/tree_match.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace torvane {
namespace {

// Matches are taken in order and given back all at once, so that whatever an expression did with
// one (kept, dropped, put into another) needs no care.
constexpr std::size_t kBlock = 256;

// A stamp can be read for ever, so blocks stay: a thread that ends leaves its own to others. Stamps
// of two threads differ.
class Blocks {
 public:
  Blocks() { last_match_stamp = ++process().threads << 40; }
  ~Blocks() {
    std::lock_guard lock(process().mutex);
    for (auto& block : mine_) process().spare.push_back(std::move(block));
  }
  TreeMatch& at(std::size_t i) {
    if (i == mine_.size() * kBlock) mine_.push_back(take());
    return mine_[i / kBlock][i % kBlock];
  }

 private:
  using Block = std::unique_ptr<TreeMatch[]>;
  struct Process {
    std::mutex mutex;
    std::vector<Block> spare;
    std::atomic<std::uint64_t> threads = 0;
  };
  static Process& process() {
    static auto& shared = *new Process;
    return shared;
  }
  static Block take() {
    std::lock_guard lock(process().mutex);
    auto& spare = process().spare;
    if (spare.empty()) return std::make_unique<TreeMatch[]>(kBlock);
    Block block = std::move(spare.back());
    spare.pop_back();
    return block;
  }

  std::vector<Block> mine_;
};

TreeMatch& match_at(std::size_t i) {
  static thread_local Blocks blocks;
  return blocks.at(i);
}

}  // namespace

TreeMatch* TreeMatch::make(RSTree* node) {
  TreeMatch& match = match_at(matches_made);
  ++matches_made;
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
