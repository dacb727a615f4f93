// What constants of the expression language give as values, such as a compiled expression: a thing
// that cannot count its holders by itself, and lives as long as a constant has it or a holder of
// the value counts it.
#pragma once

#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "support/value.h"

namespace torvane {

template <class T>
class SharedConstant {
 public:
  SharedConstant() = default;
  explicit SharedConstant(std::unique_ptr<T> thing) : thing_(thing.get()) {
    if (!thing_) return;
    std::lock_guard guard(table().lock);
    table().entries.emplace(word_of(thing_), Entry{1, std::move(thing)});
  }
  SharedConstant(const SharedConstant& other) : thing_(other.thing_) {
    if (thing_) retain(word_of(thing_));
  }
  SharedConstant& operator=(SharedConstant other) noexcept {
    std::swap(thing_, other.thing_);
    return *this;
  }
  ~SharedConstant() {
    if (thing_) drop(word_of(thing_));
  }

  T* get() const { return thing_; }

  /// For the tag of the values.
  static void retain(Word word) {
    std::lock_guard guard(table().lock);
    ++table().entries.find(word)->second.holders;
  }
  static void drop(Word word) {
    // Ends behind the lock: what goes may have constants of its own in the table.
    std::unique_ptr<T> last;
    std::lock_guard guard(table().lock);
    auto place = table().entries.find(word);
    if (--place->second.holders > 0) return;
    last = std::move(place->second.thing);
    table().entries.erase(place);
  }

 private:
  struct Entry {
    int holders;
    std::unique_ptr<T> thing;
  };

  static Word word_of(T* thing) { return reinterpret_cast<Word>(thing); }
  /// Of all worlds, which may run in several threads.
  struct Table {
    std::mutex lock;
    std::unordered_map<Word, Entry> entries;
  };
  static Table& table() {
    static auto& all = *new Table;
    return all;
  }

  T* thing_ = nullptr;
};

}  // namespace torvane
