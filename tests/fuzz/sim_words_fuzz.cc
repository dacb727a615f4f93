// Lists of similar words of any bytes: as a source, as an entry of a dictionary and as a packed
// record. What comes in prints, packs, and comes back the same.
#include <climits>

#include "fuzz_input.h"
#include "wordsim/group_scores.h"
#include "wordsim/sim_print.h"
#include "wordsim/sim_source.h"
#include "wordsim/sim_store.h"

namespace torvane {
namespace {

std::string printed(const SimWordDb& db, const SimRecord& record) {
  std::ostringstream out;
  print_similar_words(db, record, out);
  print_similar_words_in_html(db, record, {"", {"a", "b"}}, out);
  return out.str();
}

void check(SimWordDb& db, const SimRecord& record) {
  StrBufs packed;
  pack_record(record, "w", packed);
  SimRecord back(record.word);
  const char* bytes = packed.object() + 2;
  if (!unpack_record(bytes, packed.object() + packed.object_size(), db.count(), INT_MAX, back))
    std::abort();
  printed(db, back);
  for (int pos = 0; pos < kPartsOfSpeech; ++pos)
    if (back.sims[pos].count() != record.sims[pos].count()) std::abort();
}

}  // namespace

void read_input(const std::string& text) {
  world();
  SimWordDb db(0, static_cast<int>(text.size() % 5), 0.1F);
  Ref<Stream> stream = Stream::from_text(text.data(), text.size());
  db.read_source(stream.get(), false);
  SimRecord from_entry(db.get_id("w", true));
  for (int pos = 0; pos < kPartsOfSpeech; ++pos) read_text_entry(db, text.c_str(), from_entry, pos);
  SimRecord unpacked(1);
  if (unpack_record(text.data(), text.data() + text.size(), db.count(), db.max_syns, unpacked))
    check(db, unpacked);
  check(db, from_entry);
  Slist<char*> words;
  StrBufs strings;
  for (int id = 1; id < db.count() && id < 20; ++id) {
    words.append(strings.copy(db.get_string(id)));
    if (const SimRecord* record = db.get_record(id)) check(db, *record);
  }
  for (int pos = 0; pos < kPartsOfSpeech; ++pos) group_scores(db, nullptr, pos, words);
}

}  // namespace torvane
