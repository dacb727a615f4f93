// A set of words, with or without regard to case, sized for lists of a million. A start-up file
// makes one inside a form, or as a named object that several forms share.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "shell/irslist.h"
#include "support/str_bufs.h"
#include "support/value.h"

namespace torvane {

class WordList {
 public:
  /// `expected` is the number of words to make room for.
  explicit WordList(bool case_sensitive, long expected = 0);

  /// Adds a copy of a word that is not there yet.
  void add(const char* word);
  /// The stored copy of a word, or null.
  const char* find(std::string_view word) const;
  /// True if a stored word ends `text`.
  bool holds_suffix_of(std::string_view text) const;
  int count() const { return count_; }

  /// Adds words from the rest of a form: an atom names a file with a word on each line, a list
  /// gives its atoms.
  void add_items(World& world, const IRSlist& items);

 private:
  struct Slot {
    std::uint32_t hash;
    std::uint32_t length;
    const char* word;  // null: free
  };

  bool equal(const Slot& slot, std::uint32_t hash, std::string_view word) const;
  // The slot of a word, or the free one where it belongs.
  Slot& place(std::uint32_t hash, std::string_view word);
  void resize(std::size_t slots);
  void add_file(World& world, const char* name);

  bool case_sensitive_;
  int count_ = 0;
  std::size_t longest_ = 0;
  int shift_ = 0;
  std::vector<Slot> slots_;  // a power of two, never full
  StrBufs texts_{4096};
};

namespace tags {
extern const TypeTag word_list;
}
template <>
struct ValueTraits<WordList> : TagOf<WordList, tags::word_list> {};

/// The type under which a named word list stands.
inline constexpr const char* kWordListType = "THashTableWithOrd<const char*, const char*>";

}  // namespace torvane
