// The table from names to things that the whole configuration language uses: keys without regard to
// case, a text (documentation, or an object's type) beside each entry, sorted chains, a fixed
// number of buckets.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "support/hash.h"
#include "support/messages.h"
#include "support/str_bufs.h"
#include "support/text.h"

namespace torvane {

template <class V>
class NameTable {
 public:
  struct Entry {
    Entry* next;
    const char* key;  ///< owned by the table
    V value;
    const char* text;  ///< owned by the table, may be null
    std::uint32_t hash;
  };
  using Compare = int (*)(const char*, const char*);

  explicit NameTable(int size, Compare compare = stricmp)
      : buckets_(static_cast<std::size_t>(size < 11 ? 11 : size)), compare_(compare) {}
  ~NameTable() { clear(); }
  NameTable(const NameTable&) = delete;
  NameTable& operator=(const NameTable&) = delete;

  /// The entry of a key, or null; a null key has none.
  Entry* find(const char* key) const {
    if (!key) return nullptr;
    std::uint32_t hash = string_hash(key);
    for (Entry* entry = buckets_[bucket_of(hash)]; entry; entry = entry->next)
      if (entry->hash == hash && compare_(entry->key, key) == 0) return entry;
    return nullptr;
  }
  /// Adds a key, with copies of key and text. An existing key is reported ("Duplicate definition of
  /// ") and its entry given unchanged, with `*added` false.
  Entry* insert(const char* key, V value, const char* text = nullptr, bool* added = nullptr) {
    Entry** link;
    key = or_empty(key);
    Entry* entry = search(key, link);
    if (added) *added = entry == nullptr;
    if (entry) {
      // Kept: first-definition-stays
      messages() << "Duplicate definition of " << key << '\n';
      return entry;
    }
    return link_new(link, key, std::move(value), text);
  }
  /// Sets value and text, or adds the key.
  Entry* replace(const char* key, V value, const char* text = nullptr) {
    Entry** link;
    key = or_empty(key);
    if (Entry* entry = search(key, link)) {
      entry->value = std::move(value);
      entry->text = names_->copy(text);
      return entry;
    }
    return link_new(link, key, std::move(value), text);
  }
  void clear() {
    for (Entry*& head : buckets_)
      while (Entry* entry = head) {
        head = entry->next;
        delete entry;
      }
    count_ = 0;
    names_->reset();
  }

  int count() const { return count_; }
  int bucket_count() const { return static_cast<int>(buckets_.size()); }

  /// Calls `visit(entry)` in bucket order, chains ascending.
  template <class Visit>
  void for_each(Visit visit) const {
    for (Entry* head : buckets_)
      for (Entry* entry = head; entry; entry = entry->next) visit(*entry);
  }

 private:
  std::uint32_t bucket_of(std::uint32_t hash) const {
    return hash % static_cast<std::uint32_t>(buckets_.size());
  }
  /// The entry of a key, or null; `link` is where a new one belongs in its chain.
  Entry* search(const char* key, Entry**& link) {
    link = &buckets_[bucket_of(string_hash(key))];
    for (; *link; link = &(*link)->next) {
      int order = compare_((*link)->key, key);
      if (order == 0) return *link;
      if (order > 0) break;
    }
    return nullptr;
  }
  Entry* link_new(Entry** link, const char* key, V value, const char* text) {
    ++count_;
    return *link = new Entry{*link, names_->copy(key), std::move(value), names_->copy(text),
                             string_hash(key)};
  }

  std::unique_ptr<StrBufs> names_ = std::make_unique<StrBufs>(4096);
  std::vector<Entry*> buckets_;
  Compare compare_;
  int count_ = 0;
};

}  // namespace torvane
