// What constants of the expression language give as values, such as a compiled expression: a thing
// that cannot count its holders by itself, and lives as long as a constant has it or a holder of
// the value counts it.
#pragma once

#include <memory>
#include <unordered_map>
#include <utility>

#include "support/value.h"

namespace torvane {

template <class T>
class SharedConstant {
 public:
  SharedConstant() = default;
  explicit SharedConstant(std::unique_ptr<T> thing) : thing_(thing.get()) {
    if (thing_) table().emplace(word_of(thing_), Entry{1, std::move(thing)});
  }
  SharedConstant(const SharedConstant& other) : thing_(other.thing_) {
    if (thing_) retain(word_of(thing_));
  }
  SharedConstant& operator=(SharedConstant other) noexcept {
    std::swap(thing_, other.thing_);
    return *this;
  }
  ~SharedConstant() {
    if (thing_) release(word_of(thing_));
  }

  T* get() const { return thing_; }

  /// For the tag of the values.
  static void retain(Word word) { ++table().find(word)->second.holders; }
  static void release(Word word) {
    auto place = table().find(word);
    // What goes may have constants of its own in the table.
    if (--place->second.holders == 0) auto last = table().extract(place);
  }

 private:
  struct Entry {
    int holders;
    std::unique_ptr<T> thing;
  };

  static Word word_of(T* thing) { return reinterpret_cast<Word>(thing); }
  static std::unordered_map<Word, Entry>& table() {
    static auto& entries = *new std::unordered_map<Word, Entry>;
    return entries;
  }

  T* thing_ = nullptr;
};

}  // namespace torvane
