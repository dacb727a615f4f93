// A tree whose node is the ring list of its children, and the walks over it.
#pragma once

#include <utility>
#include <vector>

#include "support/slist.h"
#include "support/value.h"

namespace torvane {

/// The ring list in its generic form.
template <class T>
class RSlist : public Slist<T*> {
 public:
  T* pop() { return this->pop_front(); }
  /// Behind the last element that is not greater: `compare(element, value)` is <0, 0, >0.
  template <class Compare>
  void insert_sorted(T* value, Compare compare) {
    typename Slist<T*>::Cell* cursor = nullptr;
    for (auto* cell = this->head(); cell; cell = cell == this->tail() ? nullptr : cell->next) {
      if (compare(Slist<T*>::value_of(cell), value) > 0) break;
      cursor = cell;
    }
    this->insert_after(cursor, value);
  }
};

/// Does not own its children: whoever makes nodes keeps them.
class RSTree : public RSlist<RSTree> {
 public:
  RSTree* _parent = nullptr;  ///< null at the root

  RSTree() = default;
  RSTree(const RSTree&) = delete;
  RSTree& operator=(const RSTree&) = delete;
  virtual ~RSTree() = default;

  /// Adds a child at the front (the end). One that has another parent is reported and left alone.
  void insert(RSTree* child);
  void append_child(RSTree* child);
  /// Puts `other` directly before (after) this node, off its old parent; the parent, or null if this node
  /// is no child of it.
  RSTree* insert_before(RSTree* other);
  RSTree* insert_after(RSTree* other);
  /// Removes this node from its parent and returns it; null, reported, for a root.
  RSTree* detach();
  RSTree* root();
  /// On the node's parent chain; false for null and for the node itself.
  bool is_ancestor_of(const RSTree* node) const;
};

namespace tags {
inline constexpr TypeTag rs_tree{"RSTree*", nullptr, Life::sentence};
}
template <>
struct ValueTraits<RSTree> : TagOf<RSTree, tags::rs_tree> {};

}  // namespace torvane
