// The database of dependency triples (word, relation, word) with their counts. Each triple is
// stored under its head and, by the inverse relation, under its other word, so that a query from
// either end needs one entry. A relation's name is a key too, whose entry counts the relation.
//
// A database may lie in several stores, each of them within the limit of a store, behind a header
// that says so in front: `shards N FILE BLOCKSIZE BUCKETS COMPARE`. The stores are FILE, FILE.1 and
// so on. An entry lies with its details in the store that its key's hash tells (`shard_of`); ids
// and total are those of all, and lie in the first one. Nobody who uses the database sees more of
// that: whoever fills one writes that header and links it.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "deps/dep_statistics.h"
#include "store/plhash.h"
#include "store/str2id.h"
#include "triples/db/triple_info.h"

namespace torvane {

class World;

/// What of a text is taken in by `populate`.
struct PopulateLimits {
  float min_freq = 0.0F;
  float min_rel_freq = 1.0F;
  float min_info = 0.5F;
  float min_logl = 0.5F;
};

class TripleDb : public TPLHash<TripleDbInfo>, public DepStatistics {
 public:
  TripleDb(long bucket_count, long id_bucket_count, bool with_mutinfo);
  ~TripleDb() override;

  void pack_global(StrBufs& buf) override;
  bool unpack_global(StrBufs& buf) override;
  void unlink_file() override;
  void v_pack_entry(PLHashEntry* entry, StrBufs& buf) override;
  PLHashEntry* v_unpack_entry(StrBufs& buf) override;
  /// The layout of a search: key and counts, a row a relation, a row a word.
  void print_entry(PLHashEntry* entry, std::ostream& out) override;
  /// The second pass of population, without limits of its own.
  void populate(std::istream& in) override { populate(in, PopulateLimits()); }

  Str2Id ids;
  int clean_up_after = 0;  ///< how many uses of entries lie between two clean-ups; 0: never

  /// The entry of a word; a new one in memory if there is none. Null for a null word.
  TripleDbInfo* get_entry(const char* word);
  /// `word2` may be null.
  void add_triple(const char* word1, int relation_id, const char* word2, float count);
  /// Takes a triple out, with its inverse; `word2` that begins with a blank means every word.
  void remove_triple(const char* word1, const char* relation, const char* word2);
  /// Brings the lists of words into memory. A detail record that does not fit the entry counts as
  /// none. Every walk over `words` begins with this.
  void load_details(TripleDbInfo& entry);
  /// Null for an id that is no string's; the sign must be positive.
  const char* id_to_string(int id) const;
  /// The name of a signed id, with "-" for an inverse, closed in `buf`; null for an id without
  /// name.
  const char* feature_name(int id, StrBufs& buf) const;
  /// The signed id of a relation's name, which may begin with "-"; 0 if unknown and not `create`.
  int feature_id(const char* name, bool create);

  /// The first pass of population: the rows of a relation file.
  void populate_relations(std::istream& in, const PopulateLimits& limits);
  /// The second pass: detail rows, for the words whose entries are in memory.
  void populate(std::istream& in, const PopulateLimits& limits);
  /// False, with a message, if a stream failed.
  bool dump(std::ostream& rel_stream, std::ostream& detail_stream);
  /// Drops what was not used lately. Only for moments when no entry is in use.
  void CleanUp();
  void dump_and_clear(World& world);
  void set_tmp_file_prefix(const char* prefix) { tmp_file_prefix_ = or_empty(prefix); }
  /// Adds every triple of another database.
  void merge_triples(TripleDb& source);

  // Statistics.

  /// Mutual information, discounted for rare events; f is the count of a pair, f1 and f2 of its
  /// sides.
  float mutinfo(float f, float f1, float f2) const;
  /// Sums `rel_info` over an entry into its `info`.
  void recompute_info(TripleDbInfo& entry);
  float dependency_probability(const char* word1, const char* relation, const char* word2) override;
  /// The counts must not change between calls.
  float association(const char* head, const char* relation, const char* modifier) override;

 private:
  void move_to_ids(TripleDbInfo& entry, const Str2Id& old);
  bool pack_details(TripleDbInfo& entry);
  bool unpack_details(TripleDbInfo& entry, const char* bytes, std::size_t length,
                      bool with_mutinfo);
  void dump_entry(TripleDbInfo& entry, std::ostream& rel_stream, std::ostream& detail_stream);
  void remove_word(TripleDbInfo& entry, RelInfo& rel, int index);
  void remove_one_way(const char* word1, int relation_id, const char* word2);

  /// What was asked about; may drop what was not used lately.
  void note_use(std::initializer_list<TripleDbInfo*> entries);
  void find_categories();

  int serial_ = 0;               // counts the uses of entries
  std::string tmp_file_prefix_;  // of dumps; empty if none was set
  int dump_number_ = 0;
  bool save_mutinfo_;  // with the counts in the store
  int populations_ = 0;
  // For associations, from the first one on: by relation its number of a head's category (0: none),
  // and by that how many modifiers all heads of the category have.
  std::vector<std::uint16_t> category_of_;
  std::vector<double> modifiers_;
  StrBufs details_{128000};  // of the entry that is read or written; kept, since there are many
};

/// Of a word under a relation; computed from the counts, and kept in `word.mi`.
float word_mutinfo(WordCount& word, const RelInfo& rel, TripleDb& db);
float log_likelihood(const WordCount& word, const RelInfo& rel, TripleDb& db);
/// The relation's `info`, or the sum of absolute mutual information over its words.
float rel_info(RelInfo& rel, TripleDbInfo& entry, TripleDb& db);

namespace tags {
inline constexpr TypeTag triple_db{"TripleDb", &plhash};
}
template <>
struct ValueTraits<TripleDb> {
  using Base = PLHash;
  static const TypeTag& tag() { return tags::triple_db; }
};

}  // namespace torvane
