// The names seen so far in a text, so that a later part of a name, or its abbreviation, can be led
// back to the full form. Names are compared byte by byte.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "lex/lexicon/meaning.h"

namespace torvane {

class AntecedentList {
 public:
  /// Keeps a copy of the name and a clone of its meaning, unless the name has a meaning already. A
  /// name without a meaning (null) gives its words only.
  void add(const char* name, const Meaning* meaning, bool double_byte);
  void clear();
  /// The meaning of exactly this name, or null.
  const Meaning* find_exact(std::string_view name) const;
  /// The meaning of the name, else of the first one that it is a part of (an abbreviation of).
  const Meaning* find_matching(const char* name) const;
  const Meaning* find_abbrev(const char* name) const;
  /// Whether some name has this word.
  bool covers_word(std::string_view word) const { return words_.count(std::string(word)) > 0; }

 private:
  struct Entry {
    std::string name;
    std::unique_ptr<Meaning> meaning;
  };
  template <class Test>
  const Meaning* find_first(const char* name, Test test) const;

  std::deque<Entry> entries_;  // in the order of their coming, never moved
  std::unordered_map<std::string_view, Entry*> by_name_;
  std::unordered_set<std::string> words_;
};

namespace tags {
inline constexpr TypeTag antecedent_list{"AntecedentList*"};
}
template <>
struct ValueTraits<AntecedentList> : TagOf<AntecedentList, tags::antecedent_list> {};

/// Whether `part` can be meant where the name `full` is known: a word of it, or a shortened
/// spelling.
bool matches_name(const char* full, const char* part);
/// Whether `abbrev` takes its letters from the fronts of the words of `full`, of more than the
/// first.
bool abbreviates(const char* full, const char* abbrev);

}  // namespace torvane
