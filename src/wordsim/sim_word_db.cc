#include "wordsim/sim_word_db.h"

#include "lex/lexicon/dict_on_disk.h"
#include "store/qhash.h"
#include "wordsim/sim_source.h"

namespace torvane {

SimWordDb::SimWordDb(int size, int most_syns, float least_sim)
    : Str2Id(size), max_syns(most_syns), min_sim(least_sim) {}
SimWordDb::~SimWordDb() = default;

SimRecord& SimWordDb::keep(std::unique_ptr<SimRecord> record) {
  int id = record->word;
  while (records.count() <= id) records.append(nullptr);
  return *(records[id] = std::move(record));
}

SimRecord* SimWordDb::get_record(int id) {
  if (id < 1 || id >= count()) return nullptr;
  if (id < records.count() && records[id]) return records[id].get();
  return load(get_string(id), true);
}

SimRecord* SimWordDb::find_record(const char* word) {
  int id = get_id(word, false);
  return id ? get_record(id) : load(word, false);
}

SimRecord* SimWordDb::load(const char* word, bool create) {
  if (!word) return nullptr;
  SimRecord* record = file ? load_from_file(word) : load_from_dicts(word);
  return record || !create ? record : &keep(std::make_unique<SimRecord>(get_id(word, true)));
}

SimRecord* SimWordDb::load_from_dicts(const char* word) {
  SimRecord* record = nullptr;
  for (int pos = 0; pos < kPartsOfSpeech; ++pos) {
    const char* entry = dicts[pos] ? dicts[pos]->get_entry(word) : nullptr;
    if (!entry) continue;
    if (!record) record = &keep(std::make_unique<SimRecord>(get_id(word, true)));
    read_text_entry(*this, entry, *record, pos);
  }
  return record;
}

float SimWordDb::get_sim(const char* word1, const char* word2, int pos) {
  const SimRecord* r1 = find_record(word1);
  int id2 = get_id(word2, false);
  if (!r1 || !id2) return 0;
  float sim = r1->find_sim(id2, pos);
  // Kept: sim-one-way-first
  if (sim > 0) return sim;
  const SimRecord* r2 = get_record(id2);
  return r2 ? r2->find_sim(r1->word, pos) : 0;
}

}  // namespace torvane
