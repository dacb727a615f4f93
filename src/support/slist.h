// A singly linked ring with a one-word header: prepend, append and the joining of two lists take
// constant time. Cells come from one free list shared by all lists and go back to it, so that a
// list that shrinks and grows in a main loop never reaches the allocator. A list does not own what
// its elements point to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <type_traits>
#include <utility>

#include "support/pool.h"

namespace torvane {

namespace slist_detail {
struct Cell {
  Cell* next;
  std::uintptr_t data;
};
inline constexpr std::size_t kCellWords = BlockPool::words_for(sizeof(Cell));
inline Cell* new_cell() {
  return static_cast<Cell*>(BlockPool::take(kCellWords));
}
inline void drop_cell(Cell* cell) {
  BlockPool::give(cell, kCellWords);
}
}  // namespace slist_detail

template <class T>
class Slist {
  static_assert(std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(std::uintptr_t));

 public:
  using Cell = slist_detail::Cell;

  static T value_of(const Cell* cell) {
    T value;
    std::memcpy(&value, &cell->data, sizeof value);
    return value;
  }
  static void set_value(Cell* cell, T value) {
    cell->data = 0;
    std::memcpy(&cell->data, &value, sizeof value);
  }

  Slist() = default;
  Slist(const Slist& other) { copy_from(other); }
  Slist(Slist&& other) noexcept : tail_(std::exchange(other.tail_, nullptr)) {}
  Slist& operator=(const Slist& other) {
    if (this != &other) {
      clear();
      copy_from(other);
    }
    return *this;
  }
  Slist& operator=(Slist&& other) noexcept {
    if (this != &other) {
      clear();
      tail_ = std::exchange(other.tail_, nullptr);
    }
    return *this;
  }
  ~Slist() { clear(); }

  bool empty() const { return tail_ == nullptr; }
  Cell* tail() const { return tail_; }
  Cell* head() const { return tail_ ? tail_->next : nullptr; }
  T front() const { return tail_ ? value_of(tail_->next) : T{}; }
  T back() const { return tail_ ? value_of(tail_) : T{}; }

  /// The new cell becomes the first.
  Cell* prepend(T value) {
    Cell* cell = slist_detail::new_cell();
    set_value(cell, value);
    if (tail_) {
      cell->next = tail_->next;
      tail_->next = cell;
    } else {
      cell->next = cell;
      tail_ = cell;
    }
    return cell;
  }
  Cell* append(T value) { return tail_ = prepend(value); }
  /// Behind `cell`, which is in this list; a null cell means the front.
  Cell* insert_after(Cell* cell, T value) {
    if (!cell || !tail_) return prepend(value);
    Cell* fresh = slist_detail::new_cell();
    set_value(fresh, value);
    fresh->next = cell->next;
    cell->next = fresh;
    if (cell == tail_) tail_ = fresh;
    return fresh;
  }
  /// The first element, removed; a null value from an empty list.
  T pop_front() {
    if (!tail_) return T{};
    T value = value_of(tail_->next);
    remove_after(tail_);
    return value;
  }
  /// Unlinks the cell behind `before` (in this list).
  void remove_after(Cell* before) {
    Cell* dead = before->next;
    if (dead == before) {
      tail_ = nullptr;
    } else {
      before->next = dead->next;
      if (dead == tail_) tail_ = before;
    }
    slist_detail::drop_cell(dead);
  }
  /// Element n from 0; a null value beyond the end.
  T nth(int n) const {
    if (n < 0) return T{};
    for (T value : *this)
      if (n-- == 0) return value;
    return T{};
  }
  int length() const {
    int n = 0;
    for (Cell* c = head(); c; c = next_of(c)) ++n;
    return n;
  }
  /// The cell behind one of this list; null behind the last.
  Cell* next_of(const Cell* cell) const { return cell == tail_ ? nullptr : cell->next; }
  /// The cell before the first element that passes, in the ring: before the front it is the last
  /// one. Null if no element passes.
  template <class Test>
  Cell* before_first(Test test) const {
    Cell* before = tail_;
    if (!before) return nullptr;
    do {
      if (test(value_of(before->next))) return before;
      before = before->next;
    } while (before != tail_);
    return nullptr;
  }
  /// The cell behind which to insert what is to stand before the first element that passes, or at
  /// the end if none does; null: the front.
  template <class Test>
  Cell* place_before(Test test) const {
    Cell* before = before_first(test);
    if (!before) return tail_;
    return before == tail_ ? nullptr : before;
  }
  void clear() {
    if (!tail_) return;
    if constexpr (BlockPool::kRecycles) {
      BlockPool::give_row(tail_->next, tail_, slist_detail::kCellWords);
      tail_ = nullptr;
    } else {
      while (tail_) remove_after(tail_);
    }
  }
  void reverse() {
    Slist other;
    while (tail_) other.prepend(pop_front());
    *this = std::move(other);
  }
  /// Removes the first equal element; false if there is none.
  bool remove(T value) {
    Cell* before = before_first([&](T element) { return element == value; });
    if (before) remove_after(before);
    return before != nullptr;
  }
  bool contains(T value) const {
    for (T v : *this)
      if (v == value) return true;
    return false;
  }
  /// Appends copies of the other list's cells.
  void copy_from(const Slist& other) {
    for (T value : other) append(value);
  }
  /// Takes over all cells of `other`, behind or before its own.
  void concat(Slist&& other) {
    if (!other.tail_) return;
    if (tail_) std::swap(tail_->next, other.tail_->next);
    tail_ = std::exchange(other.tail_, nullptr);
  }
  void concat_front(Slist&& other) {
    if (!other.tail_) return;
    if (!tail_) {
      tail_ = std::exchange(other.tail_, nullptr);
      return;
    }
    std::swap(tail_->next, other.tail_->next);
    other.tail_ = nullptr;
  }
  /// Walks a list sorted ascending: `compare(element, key)` is <0, 0, >0. True on a hit, with the
  /// hit in `*found`; `cursor` is the last cell that is smaller (null: the front), where a new one
  /// belongs.
  template <class Key, class Compare>
  bool find_sorted(const Key& key, Compare compare, Cell*& cursor, T* found = nullptr) const {
    cursor = nullptr;
    for (Cell* c = head(); c; c = next_of(c)) {
      int order = compare(value_of(c), key);
      if (order == 0) {
        if (found) *found = value_of(c);
        return true;
      }
      if (order > 0) return false;
      cursor = c;
    }
    return false;
  }

  class const_iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = const T*;
    using reference = T;
    const_iterator() = default;
    const_iterator(Cell* cell, Cell* tail) : cell_(cell), tail_(tail) {}
    T operator*() const { return value_of(cell_); }
    const_iterator& operator++() {
      cell_ = cell_ == tail_ ? nullptr : cell_->next;
      return *this;
    }
    const_iterator operator++(int) {
      const_iterator old = *this;
      ++*this;
      return old;
    }
    friend bool operator==(const_iterator a, const_iterator b) { return a.cell_ == b.cell_; }

   private:
    Cell* cell_ = nullptr;
    Cell* tail_ = nullptr;
  };
  const_iterator begin() const { return const_iterator(head(), tail_); }
  const_iterator end() const { return const_iterator(nullptr, tail_); }

 private:
  Cell* tail_ = nullptr;
};

/// A walk over a list that may insert and remove where it stands: `cursor` is the cell before the
/// current one, so the current one can go without a search.
// Part of the interface; nothing in the engine calls it yet.
template <class T>
class SlistIterator {
 public:
  explicit SlistIterator(Slist<T>& list) : cursor_(list.tail()), list_(&list) {}

  bool done() const { return cursor_ == nullptr || passed_; }
  T current() const { return done() ? T{} : Slist<T>::value_of(cursor_->next); }
  void next() {
    if (done()) return;
    cursor_ = cursor_->next;
    passed_ = cursor_ == list_->tail();
  }
  /// Before the current element, which stays current.
  void insert_here(T value) {
    if (done()) {
      list_->append(value);
      return;
    }
    // The tail keeps its place: only a cell behind the tail, before the first, needs care.
    if (cursor_ == list_->tail()) {
      cursor_ = list_->prepend(value);
    } else {
      cursor_ = list_->insert_after(cursor_, value);
    }
  }
  /// Removes the current element; the next one becomes current.
  void remove_here() {
    if (done()) return;
    bool last = cursor_->next == list_->tail();
    bool only = cursor_->next == cursor_;
    list_->remove_after(cursor_);
    if (only) cursor_ = nullptr;
    passed_ = last;
  }

 private:
  typename Slist<T>::Cell* cursor_;
  Slist<T>* list_;
  bool passed_ = false;
};

}  // namespace torvane
