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

/// Over the children of a node, without any storage. After a child that left the node comes the one
/// that stood behind it, or else the end.
class ChildWalk {
 public:
  explicit ChildWalk(const RSTree* parent) : parent_(parent) {
    stand_on(parent ? parent->head() : nullptr);
  }
  /// The child that the walk stands on; null behind the last.
  RSTree* child() const { return child_; }
  void next() {
    if (patience_.sees_edits()) {
      go_on_after_edit();
    } else {
      stand_on(parent_->next_of(cell_));
    }
  }

 private:
  void stand_on(RSTree::Cell* cell) {
    cell_ = cell;
    child_ = cell ? RSTree::value_of(cell) : nullptr;
    RSTree::Cell* behind = cell ? parent_->next_of(cell) : nullptr;
    following_ = behind ? RSTree::value_of(behind) : nullptr;
  }
  void go_on_after_edit() {
    RSTree::Cell* cell = patience_.is_over() ? nullptr : parent_->cell_of(child_);
    if (cell) {
      stand_on(parent_->next_of(cell));
    } else {
      stand_on(following_ && !patience_.is_over() ? parent_->cell_of(following_) : nullptr);
    }
  }

  const RSTree* parent_;
  RSTree::Cell* cell_;
  RSTree* child_;
  RSTree* following_;
  Patience patience_;
};

}  // namespace torvane
