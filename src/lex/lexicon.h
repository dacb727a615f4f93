// The map from a word or phrase to its meanings: a cache in memory in front of any number of disk
// dictionaries, with a negative cache and clock-based eviction. Endings reduce an inflected form.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "lex/dict_on_disk.h"
#include "lex/endings.h"
#include "lex/meaning.h"
#include "support/slist.h"

namespace torvane {

/// A phrase that is found from its head word: so many words to the left and right of it, and its key.
struct PhraseRec {
  std::uint8_t left;
  std::uint8_t right;
  std::string key;
};

struct LexEntry {
  Word reserved = 0;
  std::string key;
  std::int32_t stamp = 0;            ///< logical time of last use
  Slist<Meaning*> meanings;          ///< owned
  Slist<PhraseRec*> phrases;         ///< owned, in order
  bool made_for_phrase = false;      ///< made to hold a phrase, the disk was not asked yet
  LexEntry() = default;
  LexEntry(const LexEntry&) = delete;
  LexEntry& operator=(const LexEntry&) = delete;
  ~LexEntry();
};

namespace tags {
inline constexpr TypeTag lex_entry{"LexEntry*", nullptr, Life::transient};
inline constexpr TypeTag lexicon{"Lexicon*"};
}  // namespace tags
template <>
struct ValueTraits<LexEntry> : TagOf<LexEntry, tags::lex_entry> {};

/// An entry, and the ending that led to it (null: none was taken off).
struct EntryReading {
  LexEntry* entry;
  const Ending* ending;
};

/// What the heading of an entry says.
struct Heading {
  std::string key;
  std::string first;      ///< the first atom: the head of a phrase
  int left = 0;
  int right = 0;
  bool is_phrase = false;  ///< more than one atom
};

class LexiconTable;  // the entries by key

class Lexicon {
 public:
  explicit Lexicon(int size);
  virtual LexEntry* load_from_disk(const char* key);
  virtual void load(std::istream& in, int no_dup);
  virtual void load_unique(std::istream& in);
  virtual std::unique_ptr<LexEntry> new_entry(const char* key);
  virtual LexEntry* add_if_absent(IRSlist* form);
  virtual LexEntry* read_entry(IRSlist* form, int no_dup);
  virtual void print_keys(std::ostream& out);
  virtual void print_sorted(std::ostream& out);
  virtual void print_all(std::ostream& out);
  virtual void print_entry(std::ostream& out, const LexEntry* entry);
  /// Takes the meaning; false (and dropped) if it is rejected as a duplicate.
  virtual bool add_meaning(std::unique_ptr<Meaning> meaning, LexEntry* entry);
  virtual ~Lexicon();

  /// The entry, valid until the next look-up may evict it; null if there is none.
  LexEntry* get_entry(const char* word);
  /// Appends a reading for each ending whose reduced form has an entry.
  void get_entries(const char* word, std::vector<EntryReading>& out);
  /// The key of the first entry so found, or `word` itself.
  const char* get_root(const char* word);
  LexEntry* make_entry(const char* key, bool search_disk);
  void clear();
  bool has_endings() const { return ending_table != nullptr; }

  std::unique_ptr<LexiconTable> entries;
  bool check_meanings = false;
  std::int32_t clock = 0;
  std::int32_t clock_limit = 1000000;
  std::vector<std::unique_ptr<DictOnDisk>> dictionaries;
  std::unique_ptr<EndingTable> ending_table;  ///< may be null
};

template <>
struct ValueTraits<Lexicon> : TagOf<Lexicon, tags::lexicon> {};

/// Takes the run of leading atoms off an entry form.
Heading parse_heading(const IRSlist& form);

void register_lexicon_commands();

}  // namespace torvane
