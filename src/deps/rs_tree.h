// A tree whose node is the ring list of its children.
#pragma once

#include <cstdint>
#include <utility>

#include "support/lifetime.h"
#include "support/slist.h"
#include "support/value.h"

namespace torvane {

/// The ring list in its generic form.
template <class T>
class RSlist : public Slist<T*> {
 public:
  T* pop() { return this->pop_front(); }
  /// Behind the last element that is not greater: `compare(element, value)` is <0, 0, >0.
  // Part of the interface; nothing in the engine calls it yet.
  template <class Compare>
  void insert_sorted(T* value, Compare compare) {
    auto is_greater = [&](T* element) { return compare(element, value) > 0; };
    this->insert_after(this->place_before(is_greater), value);
  }
};

class DepTree;

/// Does not own its children: whoever makes nodes keeps them. The list is changed only through the
/// operations below, so that links never close to a ring and a walk notices every edit.
class RSTree : protected RSlist<RSTree> {
 public:
  using List = RSlist<RSTree>;
  using Slist::begin;
  using Slist::Cell;
  using Slist::contains;
  using Slist::empty;
  using Slist::end;
  using Slist::head;
  using Slist::length;
  using Slist::next_of;
  using Slist::nth;
  using Slist::tail;
  using Slist::value_of;

  RSTree* _parent = nullptr;  ///< null at the root

  RSTree() = default;
  RSTree(const RSTree&) = delete;
  RSTree& operator=(const RSTree&) = delete;
  virtual ~RSTree() = default;
  /// This node, if it is one of a dependency tree.
  virtual DepTree* as_dep_tree() { return nullptr; }
  /// What a holder of the node reads by; null for a node that belongs to nothing (any more).
  virtual Era* era() const { return nullptr; }

  RSTree* first_child() const { return front(); }
  RSTree* last_child() const { return back(); }

  /// Adds a child at the front (the end). One that has another parent, or that this node is or lies
  /// below, is reported and left alone.
  void insert(RSTree* child);
  void append(RSTree* child);
  /// Puts `other` directly before (after) this node, off its old parent; the parent, or null if
  /// this node is no child of it, or would come to lie below itself.
  RSTree* insert_before(RSTree* other);
  RSTree* insert_after(RSTree* other);
  /// Removes this node from its parent and returns it; null, reported, for a root.
  RSTree* detach();
  /// Takes the first child off; null if there is none.
  RSTree* pop_child();
  RSTree* root();
  const RSTree* root() const { return const_cast<RSTree*>(this)->root(); }
  /// On the node's parent chain; false for null and for the node itself.
  bool is_ancestor_of(const RSTree* node) const;

  /// The cell of a child; null if it is none. O(1) for the last one.
  Cell* cell_of(const RSTree* child) const;
  /// Grows with every change of any tree of the world that runs.
  static std::uint64_t edits() { return lifetimes().tree_edits; }

 protected:
  /// Behind the cell (null: in front); the caller has tested the child.
  void insert_behind(Cell* cell, RSTree* child);
  bool can_take(const RSTree* child) const;
  /// Drops parent and children, for a node that is used anew.
  void unlink_all();

 private:
  Cell* cell_before(const RSTree* child) const;
  RSTree* put_beside(RSTree* other, bool after);
  void remove_behind(Cell* before);

  std::int32_t places_ = 0;  // how often the parent lists this node
};

namespace tags {
inline constexpr TypeTag rs_tree{
    .name = "RSTree*", .life = Life::sentence, .era_of = [](Word word) {
      return reinterpret_cast<const RSTree*>(word)->era();
    }};
}
template <>
struct ValueTraits<RSTree> : TagOf<RSTree, tags::rs_tree> {};

}  // namespace torvane
