// Walks that conditions run in the middle of. A condition may be any expression, one that edits the
// tree too.
#pragma once

#include <cstdint>

#include "deps/rs_tree.h"

namespace torvane {

/// Ends a walk that edits would keep going for ever.
class Patience {
 public:
  /// Whether the tree was edited since the last call.
  bool sees_edits() {
    if (seen_ == RSTree::edits()) [[likely]]
      return false;
    seen_ = RSTree::edits();
    if (left_ > 0) --left_;
    return true;
  }
  bool is_over() const { return left_ == 0; }
  /// For a walk that has nothing to put right: false once there were too many edits.
  bool lasts() { return !sees_edits() || !is_over(); }

 private:
  std::uint64_t seen_ = RSTree::edits();
  int left_ = 100000;
};

/// Over the children of a node, without any storage. A child that left the node ends it.
class ChildWalk {
 public:
  explicit ChildWalk(const RSTree* parent)
      : parent_(parent), cell_(parent ? parent->head() : nullptr) {
    if (cell_) child_ = RSTree::value_of(cell_);
  }
  /// The child that the walk stands on; null behind the last.
  RSTree* child() const { return child_; }
  void next() {
    if (patience_.sees_edits()) cell_ = patience_.is_over() ? nullptr : parent_->cell_of(child_);
    cell_ = !cell_ || cell_ == parent_->tail() ? nullptr : cell_->next;
    child_ = cell_ ? RSTree::value_of(cell_) : nullptr;
  }

 private:
  const RSTree* parent_;
  RSTree::Cell* cell_;
  RSTree* child_ = nullptr;
  Patience patience_;
};

}  // namespace torvane
