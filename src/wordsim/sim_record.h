// The similar words of one word: a list of pairs for each part of speech, and the groups over a
// list that are the senses of the word.
#pragma once

#include <cstdint>
#include <vector>

#include "support/array.h"
#include "support/bit_set.h"
#include "support/slist.h"

namespace torvane {

inline constexpr int kPartsOfSpeech = 3;
inline constexpr const char* kPartOfSpeechNames[kPartsOfSpeech] = {"N", "V", "A"};

/// The index of a part of speech by the first letter of its name ('_' is a noun too); -1 for any
/// other text and for null.
int pos_index(const char* text);
/// The same for the keys of a source file, which are the whole names and nothing else.
int exact_pos_index(const char* text);

struct SimPair {
  int word;  ///< an id
  float sim;
};

struct SimRecord {
  explicit SimRecord(int word_id) : word(word_id) {}
  SimRecord(const SimRecord&) = delete;
  SimRecord& operator=(const SimRecord&) = delete;
  ~SimRecord();

  int word;  ///< the word's id
  float desc[kPartsOfSpeech] = {};
  float sum[kPartsOfSpeech] = {};  ///< of all similarities read for the list
  Array<SimPair> sims[kPartsOfSpeech];
  Slist<LBitSet*> groups[kPartsOfSpeech];  ///< sets of positions in `sims`, owned

  /// The similarity of a word; 0 if it is not in the list. A `pos` that is none: the largest of
  /// all.
  float find_sim(int id, int pos) const;
  void add_group(int pos, LBitSet group) { groups[pos].append(new LBitSet(std::move(group))); }
};

/// Puts pairs into a list, each after the last pair that is at least as similar. The outcome is
/// that of inserting one after the other; the order is made once, at the end, so that the work does
/// not grow with the square of a list. A list that did not descend before, as a dictionary may give
/// it, keeps the order of what it had.
class SimInserter {
 public:
  /// Starts on a record's list.
  void open(SimRecord& record, int pos);
  /// The pair is dropped (false) if its word is among those after the last more similar one.
  bool insert_sim(int id, float sim);
  /// Gives the list back to the record. The groups keep their words.
  void close();

 private:
  struct Placed {
    SimPair pair;
    int place;  ///< before the order was made
    /// The most similar of this pair and all after it. A new pair belongs after the last rank
    /// that is not below it, and ranks descend whatever the similarities do.
    float rank;
  };
  struct Least {
    std::uint32_t list = 0;  ///< which list the number belongs to
    float rank = 0;
  };
  bool note(int id, float rank);

  SimRecord* record_ = nullptr;
  int pos_ = 0;
  std::vector<Placed> pairs_;
  std::vector<Least> least_;  // by id: the lowest rank of a word in the list
  std::uint32_t list_ = 0;
};

}  // namespace torvane
