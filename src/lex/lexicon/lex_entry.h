// An entry of the lexicon: the meanings of one key, and the phrases that are found from it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

#include "lex/lexicon/meaning.h"
#include "shell/world.h"
#include "support/hash.h"
#include "support/pool.h"
#include "support/slist.h"

namespace torvane {

class World;

/// Keys of the lexicon have no case.
struct FoldHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view key) const { return string_hash(key); }
};
struct FoldEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

/// What the heading of an entry says. Its first atom is the head, by which a phrase is found; atoms
/// up to a comma are the words to the head's right, those after it the words to its left.
struct Heading {
  std::string key;
  std::string first;  ///< the head
  int left = 0;       ///< how many words stand left of the head, as the analyser cuts them
  int right = 0;
  bool is_phrase = false;  ///< more than one atom

  /// False, reported, if the words are too many for a phrase.
  bool check_length() const;
};

/// Reads the run of leading atoms of a form.
Heading parse_heading(const IRSlist& form);

/// A phrase that is found from its head: so many words to the left and right of it, and its key.
struct PhraseRec {
  std::uint8_t left;
  std::uint8_t right;
  std::string key;
};

struct LexEntry : Pooled<LexEntry> {
  LexEntry() = default;
  LexEntry(const LexEntry&) = delete;
  LexEntry& operator=(const LexEntry&) = delete;
  ~LexEntry();

  /// Adds the phrase unless one of that key is there, or it is too long.
  void add_phrase(const Heading& heading);
  void add_meaning(std::unique_ptr<Meaning> meaning) { meanings_.append(meaning.release()); }
  const Slist<Meaning*>& meanings() const { return meanings_; }
  /// In order of definition.
  const Slist<PhraseRec*>& phrases() const { return phrases_; }

  std::string key;
  std::int32_t stamp = 0;  ///< logical time of last use
  std::uint64_t birth = lifetimes().now();
  bool is_kept = false;          ///< never evicted
  bool made_for_phrase = false;  ///< made to hold a phrase: the disk was not asked for it yet

  /// One of its meanings as a value.
  Value meaning_value(const Meaning* meaning) const {
    if (!eras_) eras_ = std::make_unique<Eras>();
    return eras_->now()->of(meaning);
  }

 private:
  bool has_phrase(const std::string& phrase_key);

  Slist<Meaning*> meanings_;            // owned
  Slist<PhraseRec*> phrases_;           // owned
  mutable std::unique_ptr<Eras> eras_;  // of the meanings' values
  // The keys of the phrases, once they are many.
  std::unique_ptr<std::unordered_set<std::string_view, FoldHash, FoldEqual>> phrase_keys_;
  int phrase_count_ = 0;
};

namespace tags {
inline constexpr TypeTag lex_entry{"LexEntry*", nullptr, Life::transient};
}
template <>
struct ValueTraits<LexEntry> : TagOf<LexEntry, tags::lex_entry> {};

/// Makes a meaning of each sub-list after the heading and passes it to `add`. The phrase headings
/// of a list `(phrases (HEADING) ...)` go to `entry`.
template <class Add>
void read_meanings(World& world, const IRSlist& form, LexEntry& entry, Add add);

/// The entry that is being read, while a `read_meanings` runs: where `phrases` adds to.
class CurrentEntry {
 public:
  CurrentEntry(World& world, LexEntry* entry);
  ~CurrentEntry();
  CurrentEntry(const CurrentEntry&) = delete;
  CurrentEntry& operator=(const CurrentEntry&) = delete;

 private:
  LexEntry*& current_;
  LexEntry* outer_;
};

template <class Add>
void read_meanings(World& world, const IRSlist& form, LexEntry& entry, Add add) {
  CurrentEntry reading(world, &entry);
  for (IRSlist* item : form.items) {
    if (item->is_atom()) continue;
    if (item->place) world.places.current = item->place;
    if (std::unique_ptr<Meaning> meaning = make_meaning(world, item)) add(std::move(meaning));
  }
}

}  // namespace torvane
