// The map from a word or phrase to its meanings: a cache in memory in front of any number of disk
// dictionaries, with a negative cache and clock-based eviction. Endings reduce an inflected form.
#pragma once

#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "lex/lexicon/endings.h"
#include "lex/lexicon/lex_entry.h"

namespace torvane {

class DictOnDisk;
class World;

/// An entry, and the ending that led to it (null: none was taken off).
struct EntryReading {
  LexEntry* entry;
  const Ending* ending;
};

class Lexicon {
 public:
  Lexicon(World& its_world, int size);
  Lexicon(const Lexicon&) = delete;
  Lexicon& operator=(const Lexicon&) = delete;

  /// Reads what every dictionary has under the key; the entry read last, or null.
  LexEntry* load_from_disk(const char* key);
  /// Reads all entries of a stream, which stands at a place.
  void load(std::istream& in, bool no_dup, Place first_line = {});
  // Part of the interface; nothing in the engine calls it yet.
  void load_unique(std::istream& in);
  std::unique_ptr<LexEntry> new_entry(const char* key);
  LexEntry* add_if_absent(IRSlist* form);
  /// Adds the form's entry, or its meanings to the entry of that key; with `no_dup` such an entry
  /// is reported and stays as it is. The entry; null if the form has no key.
  LexEntry* read_entry(IRSlist* form, bool no_dup);
  void print_keys(std::ostream& out);
  /// By key, in the order of lexicon files.
  void print_sorted(std::ostream& out);
  void print_all(std::ostream& out);
  void print_entry(std::ostream& out, const LexEntry* entry);
  /// Takes the meaning; false (and dropped) if it is rejected as a duplicate.
  bool add_meaning(std::unique_ptr<Meaning> meaning, LexEntry* entry);
  ~Lexicon();

  /// The entry, or null. Without a Pin it is valid until the next look-up, which may evict it.
  LexEntry* get_entry(const char* word);
  /// Appends a reading for each ending whose reduced form has an entry. The caller holds a Pin.
  void get_entries(const char* word, std::vector<EntryReading>& out);
  /// The key of the first entry so found (valid until the next look-up), or `word` itself.
  const char* get_root(const char* word);
  LexEntry* make_entry(const char* key, bool search_disk);
  /// From here on what is in memory now stays there: a grammar's own words cannot be read again,
  /// and what is found must not depend on how much was looked up before.
  void keep_entries();
  /// Drops all entries, and which words were not found.
  void clear();

  World& world() const { return world_; }

  /// While one is held, an entry that is evicted or cleared stays in memory: expressions that run
  /// between two uses of an entry may look words up, or clear the lexicon.
  class Pin {
   public:
    explicit Pin(Lexicon& lexicon) : lexicon_(lexicon) { ++lexicon_.pins_; }
    ~Pin() {
      --lexicon_.pins_;
      lexicon_.end_dropped();
    }
    Pin(const Pin&) = delete;
    Pin& operator=(const Pin&) = delete;

   private:
    Lexicon& lexicon_;
  };

  /// A dictionary that is asked after those that are there.
  void add_dictionary(std::unique_ptr<DictOnDisk> dictionary);
  void set_endings(std::unique_ptr<EndingTable> table) { ending_table_ = std::move(table); }
  std::size_t entry_count() const { return entries_.size(); }
  /// Whether words are also looked for on disk.
  bool has_dictionaries() const { return !dictionaries_.empty(); }
  /// Calls `visit(entry)` for each entry in memory, in no order.
  template <class Visit>
  void for_each(Visit visit) const {
    for (const auto& [key, entry] : entries_) visit(*entry);
  }

  bool check_meanings = false;  ///< a meaning that the entry has already is rejected
  /// Beyond so many uses the entries that were not used lately are dropped.
  std::int32_t clock_limit = 1000000;

 private:
  LexEntry* find(std::string_view key) const;
  LexEntry* insert(std::unique_ptr<LexEntry> entry);
  void evict();
  void end_dropped();
  std::vector<const LexEntry*> sorted_entries() const;
  /// Calls `visit(reading)` for each reading until it gives false.
  template <class Visit>
  void each_reading(const char* word, Visit visit);

  World& world_;
  std::unordered_map<std::string_view, std::unique_ptr<LexEntry>, FoldHash, FoldEqual> entries_;
  std::unordered_set<std::string, FoldHash, FoldEqual> not_found_;
  std::int32_t clock_ = 0;  // counts the uses of entries
  std::vector<std::unique_ptr<DictOnDisk>> dictionaries_;
  std::unique_ptr<EndingTable> ending_table_;  // may be null
  int pins_ = 0;
  std::vector<std::unique_ptr<LexEntry>> dropped_;
  std::unique_ptr<IRSlistReader> disk_reader_;
};

namespace tags {
inline constexpr TypeTag lexicon{"Lexicon*"};
}
template <>
struct ValueTraits<Lexicon> : TagOf<Lexicon, tags::lexicon> {};

}  // namespace torvane
