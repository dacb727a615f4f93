// The database of similar words: for each word a record, loaded when it is first asked for and kept
// from then on. Records come from text dictionaries, one a part of speech, from a source file, or
// from a store on disk.
#pragma once

#include <memory>

#include "shell/irslist.h"
#include "shell/streams.h"
#include "store/str2id.h"
#include "support/value.h"
#include "wordsim/sim_record.h"

namespace torvane {

class DictOnDisk;
class QHash;

class SimWordDb : public Str2Id {
 public:
  /// `size` is that of the id table.
  SimWordDb(int size, int most_syns, float least_sim);
  ~SimWordDb();

  /// The record of an id, loaded or made empty; null for an id out of range.
  SimRecord* get_record(int id);
  /// The record of a word: of its id if it has one, else loaded; null if there is none.
  SimRecord* find_record(const char* word);
  /// Reads the record of a word that has none yet from the store, or else the dictionaries. One
  /// that is nowhere is made empty if `create`, else null.
  SimRecord* load(const char* word, bool create);
  /// The similarity of the second word in the first one's list, else of the first in the second's;
  /// 0 if neither has it. A `pos` that is none: the largest over all parts of speech.
  float get_sim(const char* word1, const char* word2, int pos);

  /// Takes a store as the source of records, with its id table. False if the file has content that
  /// is none of a store of similar words; it is dropped then.
  bool attach_file(std::unique_ptr<QHash> store);
  /// Writes the id table and all loaded records to the store and syncs it.
  void save();
  /// Reads a source file. Its pairs join what is known of a word.
  void read_source(Stream* stream, bool double_byte);

  Array<std::unique_ptr<SimRecord>> records;  ///< by id, null where nothing was loaded
  std::unique_ptr<DictOnDisk> dicts[kPartsOfSpeech];
  std::unique_ptr<QHash> file;
  int max_syns;   ///< most pairs kept of a list in a store; and in a dictionary, if above 0
  float min_sim;  ///< a dictionary's list is read to the first pair below it; 0: all

 private:
  SimRecord& keep(std::unique_ptr<SimRecord> record);
  SimRecord* load_from_dicts(const char* word);
  SimRecord* load_from_file(const char* word);
  void read_entry(IRSlist& entry, SimInserter& inserter);

  // What is about to be written back must not lose the end of its lists.
  bool whole_lists_ = false;
};

namespace tags {
inline constexpr TypeTag sim_word_db{"SimWordDb"};
}
template <>
struct ValueTraits<SimWordDb> : TagOf<SimWordDb, tags::sim_word_db> {};

}  // namespace torvane
