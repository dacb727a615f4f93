#include "lex/rules/antecedent_list.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "att/contract.h"
#include "shell/tokenizer.h"
#include "support/text.h"

namespace torvane {

namespace {

constexpr const char* kBlanks = " \t\n\r";

bool is_skippable(std::string_view word) {
  return std::binary_search(std::begin(contract::kSmallWords), std::end(contract::kSmallWords),
                            word);
}

bool stands_at_word_start(const char* full, const char* part) {
  for (const char* at = std::strstr(full, part); at; at = std::strstr(at + 1, part))
    if (at == full || at[-1] == ' ') return true;
  return false;
}

}  // namespace

bool matches_name(const char* full, const char* part) {
  std::size_t length = std::strlen(part);
  if (length < 2 || (length == 2 && part[1] == '.')) return byte_compare(full, part) == 0;
  if (stands_at_word_start(full, part)) return true;
  for (;; ++full) {
    while (*part == '.') ++part;
    if (!*part || !*full) break;
    if (*full == *part) {
      ++part;
    } else if (is_upper(*part) || !(is_lower(*full) || *full == ' ')) {
      return false;
    }
  }
  return !*part;
}

bool abbreviates(const char* full, const char* abbrev) {
  full += std::strspn(full, kBlanks);
  for (int index = 0; *full; ++index) {
    std::size_t length = std::strcspn(full, kBlanks);
    std::size_t taken = 0;
    while (taken < length && *abbrev && *abbrev == full[taken]) {
      ++taken;
      ++abbrev;
    }
    if (!*abbrev) return index > 0;
    if (taken == 0 && !is_skippable({full, length})) return false;
    full += length;
    full += std::strspn(full, kBlanks);
  }
  return false;
}

void AntecedentList::add(const char* name, const Meaning* meaning, bool double_byte) {
  if (!name || find_exact(name)) return;
  std::unique_ptr<Meaning> kept = meaning ? meaning->clone() : nullptr;
  if (auto known = by_name_.find(name); known != by_name_.end()) {
    known->second->meaning = std::move(kept);
    return;
  }
  entries_.push_back({name, std::move(kept)});
  by_name_.emplace(entries_.back().name, &entries_.back());
  Tokenizer tokenizer(kBlanks, "", "", "", '\\', ';', 4096, 512, double_byte);
  tokenizer.set_string_input(name, -1);
  while (const char* word = tokenizer.next_significant_token()) words_.insert(word);
}

void AntecedentList::clear() {
  by_name_.clear();
  words_.clear();
  entries_.clear();
}

const Meaning* AntecedentList::find_exact(std::string_view name) const {
  auto at = by_name_.find(name);
  return at == by_name_.end() ? nullptr : at->second->meaning.get();
}

template <class Test>
const Meaning* AntecedentList::find_first(const char* name, Test test) const {
  if (!name) return nullptr;
  // Kept: name-abbreviates-itself
  if (const Meaning* exact = find_exact(name)) return exact;
  for (const Entry& entry : entries_)
    if (test(entry.name.c_str(), name)) return entry.meaning.get();
  return nullptr;
}

const Meaning* AntecedentList::find_matching(const char* name) const {
  return find_first(name, matches_name);
}

const Meaning* AntecedentList::find_abbrev(const char* name) const {
  return find_first(name, abbreviates);
}

}  // namespace torvane
