// The record of a word in the triple database: the relations it takes part in, and for each the
// words at the other end with their counts.
#pragma once

#include <cstdint>
#include <memory>

#include "store/plhash.h"
#include "support/array.h"

namespace torvane {

class TripleDb;

/// The order of words in lists and dumps: by upper-cased characters; at the end of the shorter text
/// by the difference of the raw bytes.
int compare_words(const char* a, const char* b);

struct WordCount {
  static constexpr float kUnknown = -10000000.0F;

  const char* word = nullptr;  ///< in the database's table of ids
  float freq = 0;
  float mi = kUnknown;
};

struct RelInfo {
  RelInfo() = default;
  explicit RelInfo(int rel_id) : id(rel_id) {}

  int id = 0;  ///< below 0: the inverse of the relation
  float freq = 0;
  /// Ascending by `compare_words`; null until needed, which means an empty list.
  std::unique_ptr<Array<WordCount>> words;
  float info = 0;

  /// Null, and in `index` the place where the word belongs, if it is absent.
  WordCount* find_word(const char* word, int& index) const;
  WordCount* find_word(const char* word) const {
    int index;
    return find_word(word, index);
  }
  /// The list, made if there is none.
  Array<WordCount>& word_list();
  int word_count() const { return words ? words->count() : 0; }
  WordCount* begin() const { return words ? words->begin() : nullptr; }
  WordCount* end() const { return words ? words->end() : nullptr; }
};

struct ClassCount {
  int id = 0;
  float count = 0;
};

/// One word's entry. Its key is the string in the database's table of ids.
struct TripleDbInfo : PLHashEntry {
  explicit TripleDbInfo(const char* interned_key) { key = interned_key; }

  float freq = 0;
  float invFreq = 0;
  float info = 0;  ///< sum of absolute mutual information
  int last_used = 0;
  /// Above 0: loaded, or nothing to load; below 0: the details are at -detail_pos on disk; 0: no
  /// detail record.
  std::int32_t detail_pos = 0;
  Array<RelInfo> rels;  ///< ascending by id: inverse relations first
  Array<ClassCount> classes;
  int population = 0;  ///< the one that filled the entry last; 0: none

  /// Null, and in `index` the place where the relation belongs, if it is absent.
  RelInfo* find_rel(int id, int& index);
  RelInfo* find_rel(int id) {
    int index;
    return find_rel(id, index);
  }
  /// Counts a word (0: none) under a relation. The details must be loaded.
  void add_feature(int id, int word_id, float count, TripleDb& db);
  /// Frees the lists of words if they can be read back from the disk.
  void drop_details();
};

}  // namespace torvane
