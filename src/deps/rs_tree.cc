#include "deps/rs_tree.h"

#include "support/messages.h"

namespace torvane {

// A leaf cannot be above anything, so that a tree that grows by leaves is built without walks.
bool RSTree::can_take(const RSTree* child) const {
  return child && child != this && (child->empty() || !child->is_ancestor_of(this));
}

void RSTree::insert_behind(Cell* cell, RSTree* child) {
  ++lifetimes().tree_edits;
  child->_parent = this;
  ++child->places_;
  List::insert_after(cell, child);
}

void RSTree::remove_behind(Cell* before) {
  ++lifetimes().tree_edits;
  RSTree* child = value_of(before->next);
  if (--child->places_ == 0) child->_parent = nullptr;
  remove_after(before);
}

void RSTree::insert(RSTree* child) {
  if (!can_take(child) || (child->_parent && child->_parent != this)) {
    messages() << "RSTree::insert error.\n";
    return;
  }
  insert_behind(nullptr, child);
}

void RSTree::append(RSTree* child) {
  if (!can_take(child) || (child->_parent && child->_parent != this)) {
    messages() << "RSTree::append error.\n";
    return;
  }
  // Kept: child-stands-twice
  insert_behind(tail(), child);
}

RSTree::Cell* RSTree::cell_before(const RSTree* child) const {
  return before_first([child](const RSTree* other) { return other == child; });
}

RSTree::Cell* RSTree::cell_of(const RSTree* child) const {
  if (tail() && value_of(tail()) == child) return tail();
  Cell* before = cell_before(child);
  return before ? before->next : nullptr;
}

RSTree* RSTree::put_beside(RSTree* other, bool after) {
  if (!other || other == this || !_parent || !_parent->can_take(other)) return nullptr;
  if (!_parent->contains(this)) return nullptr;
  if (other->_parent) other->detach();
  Cell* before = after ? _parent->cell_of(this) : _parent->cell_before(this);
  // The cell before the first is the last: in front, not behind it.
  if (!after && before == _parent->tail()) before = nullptr;
  _parent->insert_behind(before, other);
  return _parent;
}

RSTree* RSTree::insert_before(RSTree* other) {
  return put_beside(other, false);
}

RSTree* RSTree::insert_after(RSTree* other) {
  return put_beside(other, true);
}

RSTree* RSTree::detach() {
  Cell* before = _parent ? _parent->cell_before(this) : nullptr;
  if (!before) {
    // Kept: cannot-delete-the-root
    messages() << "cannot delete the root node of a RSTree\n";
    return nullptr;
  }
  RSTree* parent = _parent;
  for (; before; before = places_ > 0 ? parent->cell_before(this) : nullptr)
    parent->remove_behind(before);
  return this;
}

RSTree* RSTree::pop_child() {
  if (empty()) return nullptr;
  RSTree* child = front();
  remove_behind(tail());
  return child;
}

RSTree* RSTree::root() {
  RSTree* node = this;
  while (node->_parent) node = node->_parent;
  return node;
}

bool RSTree::is_ancestor_of(const RSTree* node) const {
  if (!node) return false;
  for (const RSTree* p = node->_parent; p; p = p->_parent)
    if (p == this) return true;
  return false;
}

void RSTree::unlink_all() {
  ++lifetimes().tree_edits;
  clear();
  _parent = nullptr;
  places_ = 0;
}

}  // namespace torvane
