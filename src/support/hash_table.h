// Hash tables of elements that carry their own keys. A bucket's list is kept ascending, so that a
// failed search stops half way, and the table remembers where a missing element belongs: a search
// that misses, followed by `insert_at_cursor`, adds it without a second search.
#pragma once

#include <cstdint>
#include <vector>

#include "support/hash.h"
#include "support/slist.h"

namespace torvane {

/// Elements of type V, found by keys of type K. What the elements point to is not owned.
template <class V, class K>
class HashTable {
 public:
  using Hash = std::uint32_t (*)(K key);

  virtual ~HashTable() = default;
  /// The element of a key, or a zero value.
  virtual V find(K key) = 0;
  /// Adds the element whose key was searched last, where that search ended.
  virtual void insert_at_cursor(V value) = 0;
  /// Takes the element of a key out; it, or a zero value.
  virtual V remove(K key) = 0;

  int size() const { return static_cast<int>(buckets_.size()); }
  int count() const {
    int n = 0;
    for (const Slist<V>& list : buckets_) n += list.length();
    return n;
  }
  void clear() {
    for (Slist<V>& list : buckets_) list.clear();
  }
  /// Calls `visit(value)` in bucket order.
  template <class Visit>
  void for_each(Visit visit) const {
    for (const Slist<V>& list : buckets_)
      for (V value : list) visit(value);
  }

 protected:
  HashTable(int size_wanted, Hash hash)
      : hash_(hash), buckets_(static_cast<std::size_t>(next_prime(size_wanted))) {}

  Hash hash_;
  std::vector<Slist<V>> buckets_;
  Slist<V>* bucket_ = nullptr;  // where the last search was
};

/// Buckets ascending by `compare(element, key)`.
template <class V, class K>
class THashTableWithOrd : public HashTable<V, K> {
 public:
  using typename HashTable<V, K>::Hash;
  using Compare = int (*)(V value, K key);

  /// The number of buckets is `next_prime` of the request.
  THashTableWithOrd(int size_wanted, Hash hash, Compare compare)
      : HashTable<V, K>(size_wanted, hash), compare_(compare) {}

  V find(K key) override {
    V value{};
    search(key, value);
    return value;
  }
  void insert_at_cursor(V value) override {
    if (this->bucket_) cursor_ = this->bucket_->insert_after(cursor_, value);
  }
  V remove(K key) override {
    V value{};
    if (search(key, value)) this->bucket_->remove_after(cursor_ ? cursor_ : this->bucket_->tail());
    return value;
  }

 private:
  bool search(K key, V& value) {
    this->bucket_ = &this->buckets_[this->hash_(key) % this->buckets_.size()];
    return this->bucket_->find_sorted(key, compare_, cursor_, &value);
  }

  Compare compare_;
  typename Slist<V>::Cell* cursor_ = nullptr;  // the last smaller cell; null: the front
};

}  // namespace torvane
