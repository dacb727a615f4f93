// A growable array that checks its indexes in the way users of the system know: a wrong index is
// reported, and the access goes to a scratch element that reads as zero, so that the run goes on.
#pragma once

#include <cstdint>
#include <memory>
#include <new>
#include <utility>

namespace torvane {

/// "Array index out of bounds: i It should be between 0 and count - 1", on the error stream.
void report_bounds(int index, int count);

template <class T>
class Array {
 public:
  Array() = default;
  explicit Array(int initial_capacity) {
    if (initial_capacity > 0) grow(initial_capacity);
  }
  Array(const Array& other) { *this = other; }
  Array(Array&& other) noexcept { swap(other); }
  Array& operator=(const Array& other) {
    if (this == &other) return *this;
    clear();
    reserve(other.count_);
    for (const T& value : other) append(value);
    return *this;
  }
  Array& operator=(Array&& other) noexcept {
    swap(other);
    return *this;
  }
  ~Array() {
    clear();
    drop_block(data_);
  }

  int count() const { return count_; }
  int capacity() const { return capacity_; }
  bool empty() const { return count_ == 0; }

  T& operator[](int i) {
    if (static_cast<std::uint32_t>(i) < static_cast<std::uint32_t>(count_)) [[likely]]
      return data_[i];
    return out_of_bounds(i);
  }
  const T& operator[](int i) const { return const_cast<Array&>(*this)[i]; }
  /// The element, or a zero value where there is none, without a report.
  T at_or_zero(int i) const {
    return static_cast<std::uint32_t>(i) < static_cast<std::uint32_t>(count_) ? data_[i] : T{};
  }

  T& append(T value) {
    if (count_ == capacity_) grow(0);
    return *new (data_ + count_++) T(std::move(value));
  }
  /// Before element i (0 to count).
  void insert_at(int i, T value) {
    append(std::move(value));
    for (int k = count_ - 1; k > i; --k) std::swap(data_[k], data_[k - 1]);
  }
  void remove_at(int i) {
    for (int k = i; k + 1 < count_; ++k) data_[k] = std::move(data_[k + 1]);
    pop_back();
  }
  void pop_back() { data_[--count_].~T(); }
  T& back() { return data_[count_ - 1]; }
  void clear() {
    while (count_ > 0) pop_back();
  }
  /// Sets the count, with zero values for new elements.
  void resize(int n) {
    while (count_ > n) pop_back();
    reserve(n);
    while (count_ < n) new (data_ + count_++) T();
  }
  void reserve(int n) {
    while (capacity_ < n) grow(n - capacity_);
  }
  /// Adds `n` elements of capacity; below 1 the usual quarter plus four.
  void grow(int n) {
    if (n < 1) n = (capacity_ >> 2) + 4;
    T* fresh = static_cast<T*>(::operator new(sizeof(T) * static_cast<std::size_t>(capacity_ + n),
                                              std::align_val_t(alignof(T))));
    for (int i = 0; i < count_; ++i) {
      new (fresh + i) T(std::move(data_[i]));
      data_[i].~T();
    }
    drop_block(data_);
    data_ = fresh;
    capacity_ += n;
  }
  /// Sorts by `compare(a, b)` giving <0, 0, >0: the quicksort whose order among equals is the
  /// system's.
  template <class Compare>
  void sort(Compare compare) {
    // Kept: order-of-equals
    if (count_ > 1) sort_range(data_, data_ + count_ - 1, compare);
  }

  T* begin() { return data_; }
  T* end() { return data_ + count_; }
  const T* begin() const { return data_; }
  const T* end() const { return data_ + count_; }
  T* data() { return data_; }
  void swap(Array& other) noexcept {
    std::swap(capacity_, other.capacity_);
    std::swap(count_, other.count_);
    std::swap(data_, other.data_);
  }

 private:
  static void drop_block(T* data) {
    if (data) ::operator delete(data, std::align_val_t(alignof(T)));
  }
  [[gnu::cold, gnu::noinline]] T& out_of_bounds(int i) const {
    report_bounds(i, count_);
    static thread_local T scratch;
    scratch.~T();
    return *new (&scratch) T();
  }
  template <class Compare>
  static void sort_range(T* first, T* last, Compare& compare) {
    while (last > first) {
      std::ptrdiff_t distance = last - first;
      if (distance == 1) {
        if (compare(*first, *last) > 0) std::swap(*first, *last);
        return;
      }
      T* mid = first + distance / 2;
      if (distance == 2) {
        if (compare(*first, *mid) > 0) std::swap(*first, *mid);
        if (compare(*mid, *last) > 0) std::swap(*mid, *last);
        if (compare(*first, *mid) > 0) std::swap(*first, *mid);
        return;
      }
      // The median of three comes to the front and is the pivot.
      if (compare(*mid, *first) > 0) std::swap(*mid, *first);
      if (compare(*mid, *last) > 0) std::swap(*mid, *last);
      if (compare(*first, *last) > 0) std::swap(*first, *last);
      T* low = first + 1;
      T* high = last;
      while (true) {
        while (low <= high && compare(*low, *first) < 0) ++low;
        while (low <= high && compare(*high, *first) > 0) --high;
        if (low >= high) break;
        std::swap(*low++, *high--);
      }
      std::swap(*first, *high);
      if (high - first < last - high) {
        if (high > first) sort_range(first, high - 1, compare);
        first = high + 1;
      } else {
        if (high < last) sort_range(high + 1, last, compare);
        if (high == first) return;
        last = high - 1;
      }
    }
  }

  int capacity_ = 0;
  int count_ = 0;
  T* data_ = nullptr;
};

}  // namespace torvane
