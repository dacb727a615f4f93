// Walks over a node's children and over whole trees. They survive the removal of the element that
// they stand on, and any other edit: the way on is found from the links as they are when it is
// asked for.
#pragma once

#include <cstdint>
#include <vector>

#include "deps/rs_tree.h"

namespace torvane {

class Iterator {
 public:
  /// The next element; null at the end.
  virtual RSTree* next() = 0;
  /// Takes the element given last, with its subtree, out of its parent. A root stays.
  virtual void remove() = 0;
  virtual void reset() = 0;
  virtual ~Iterator() = default;

 protected:
  Iterator() = default;
  Iterator(const Iterator&) = delete;
  Iterator& operator=(const Iterator&) = delete;
};

/// Over the children of a node. The walks over a tree share its place: the path from the start node
/// down to where the walk stands.
class RSlistIterator : public Iterator {
 public:
  explicit RSlistIterator(RSTree* tree) : _tree(tree) { RSlistIterator::reset(); }
  RSTree* next() override;
  void remove() override;
  void reset() override;

  /// 1 once the place has moved past the element given last.
  int _moved = 1;
  int depth() const { return static_cast<int>(path_.size()); }

 protected:
  /// How the node at the end of the path stands to the walk.
  enum class Stage : std::uint8_t {
    enter,    // it and its subtree are still to come
    visited,  // it was the last result
    leave,    // its children are done
  };
  struct Step {
    RSTree* node;
    RSTree::Cell* cell;  // in the parent's list
    RSTree* following;   // the sibling behind it, when the walk came here
  };

  RSTree* top() const { return path_.back().node; }
  bool done() const { return path_.empty(); }
  void end_walk() { path_.clear(); }
  void push(RSTree* node, RSTree::Cell* cell);
  void push_first_child();
  /// To the sibling behind the top; false if there is none.
  bool step_aside();
  void pop() { path_.pop_back(); }
  RSTree* give(Stage stage);
  void stand(Stage stage);
  /// After an edit: puts the path right. A node that left the tree takes the walk to what stood
  /// behind it.
  void follow_edits();

  RSTree* _tree;  // the start node
  Stage stage_ = Stage::enter;

 private:
  bool in_tree(const RSTree* node) const;
  void rebuild_path(RSTree* node);
  void skip_lost_nodes();

  std::vector<Step> path_;
  std::uint64_t seen_edits_ = 0;
  std::int64_t budget_ = -1;  // results still to be given once the tree was edited
};

/// A node before its children, the start node first.
class PreIterator : public RSlistIterator {
 public:
  explicit PreIterator(RSTree* tree) : RSlistIterator(tree) { PreIterator::reset(); }
  RSTree* next() override;
  void reset() override;
  /// Goes past the subtree of the node given last.
  void skip();
};

/// A node after its children, the start node last.
class PostIterator : public RSlistIterator {
 public:
  explicit PostIterator(RSTree* tree) : RSlistIterator(tree) { PostIterator::reset(); }
  RSTree* next() override;
  void reset() override;
  /// Goes straight to the parent of the node given last.
  void skip();

 private:
  RSTree* descend();
};

/// The same for trees of one node class.
template <class T>
class TPreIterator : public PreIterator {
 public:
  explicit TPreIterator(T* tree) : PreIterator(tree) {}
  T* next() override { return static_cast<T*>(PreIterator::next()); }
};
template <class T>
class TPostIterator : public PostIterator {
 public:
  explicit TPostIterator(T* tree) : PostIterator(tree) {}
  T* next() override { return static_cast<T*>(PostIterator::next()); }
};

}  // namespace torvane
