#include "wordsim/sim_source.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "shell/irslist.h"
#include "store/qhash.h"
#include "support/text.h"

namespace torvane {
namespace {

constexpr std::size_t kMostBytes = 255;  // of a word or a number

/// The items of a dictionary's entry, whose brackets mean little: words and numbers are found by
/// their first characters.
class EntryText {
 public:
  explicit EntryText(const char* text) : p_(text) {}

  /// Behind the next opening bracket; false if there is none.
  bool enter() {
    p_ = std::strchr(p_, '(');
    if (p_) ++p_;
    return p_ != nullptr;
  }
  /// Steps over four characters, if they are these.
  bool skip(const char* four) {
    bool here = std::strncmp(p_, four, 4) == 0;
    if (here) p_ += 4;
    return here;
  }
  bool next_word(std::string& word) {
    while (*p_ && !starts_word(*p_)) ++p_;
    if (!*p_) return false;
    bool quoted = *p_ == '"';
    if (quoted) ++p_;
    std::size_t length = std::strcspn(p_, quoted ? "\"" : "\t\n");
    word.assign(p_, std::min(length, kMostBytes));
    p_ += length;
    if (quoted && *p_) ++p_;
    return true;
  }
  /// 0 if none follows.
  float next_number() {
    while (*p_ && !in_number(*p_)) ++p_;
    const char* start = p_;
    while (in_number(*p_)) ++p_;
    std::string digits(start, std::min(static_cast<std::size_t>(p_ - start), kMostBytes));
    return static_cast<float>(std::atof(digits.c_str()));
  }

 private:
  static bool starts_word(char c) {
    return is_alnum(c) || c == '"' || c == '_' || c == '-' || is_high(c);
  }
  static bool in_number(char c) { return is_digit(c) || c == '.'; }

  const char* p_;
};

}  // namespace

void read_text_entry(SimWordDb& db, const char* entry, SimRecord& record, int pos) {
  EntryText text(entry);
  if (!text.enter() || !text.enter()) return;
  if (text.skip("desc")) {
    record.desc[pos] = text.next_number();
    if (!text.enter()) return;
  }
  text.skip("sims");
  std::string word;
  while (text.next_word(word)) {
    const float sim = text.next_number();
    record.sum[pos] += sim;
    record.sims[pos].append({db.get_id(word.c_str(), true), sim});
    if (db.max_syns > 0 && record.sims[pos].count() >= db.max_syns) return;
    // Kept: last-below-min-sim-stays
    if (db.min_sim > 0 && sim < db.min_sim) return;
  }
}

namespace {

using SimPlaces = std::unordered_map<int, int>;  // from a word to its first place in a list

/// Alternating words and similarities. Lists among them are read in the same way, however deep.
void read_pairs(SimWordDb& db, std::unique_ptr<IRSlist> list, SimRecord& record, int pos,
                SimInserter& inserter) {
  inserter.open(record, pos);
  std::vector<std::unique_ptr<IRSlist>> open;
  open.push_back(std::move(list));
  while (!open.empty()) {
    std::unique_ptr<IRSlist> item = open.back()->pop_front();
    if (!item) {
      open.pop_back();
    } else if (item->is_list()) {
      open.push_back(std::move(item));
    } else {
      float sim = open.back()->get_float_val();
      if (inserter.insert_sim(db.get_id(item->atom, true), sim)) record.sum[pos] += sim;
    }
  }
  inserter.close();
}

/// The first of each two items is a word; its place in the list joins the set.
LBitSet read_group(const IRSlist& group, SimWordDb& db, const SimPlaces& places, int size) {
  LBitSet set(size + 1);
  bool is_word = false;
  for (const IRSlist* item : group.items) {
    is_word = !is_word;
    auto place = places.find(is_word ? db.get_id(item->atom, false) : 0);
    if (place != places.end()) set.set(place->second);
  }
  return set;
}

/// The groups after a list of pairs.
void read_groups(const IRSlist& rest, SimWordDb& db, SimRecord& record, int pos) {
  if (rest.empty()) return;
  SimPlaces places;
  const Array<SimPair>& sims = record.sims[pos];
  for (int i = 0; i < sims.count(); ++i) places.emplace(sims[i].word, i);
  for (const IRSlist* group : rest.items)
    if (group->is_list()) record.add_group(pos, read_group(*group, db, places, sims.count()));
}

}  // namespace

void SimWordDb::read_entry(IRSlist& entry, SimInserter& inserter) {
  const char* word = entry.get_str_val();
  if (!word) return;
  SimRecord& record = *get_record(get_id(word, true));
  while (std::unique_ptr<IRSlist> list = entry.pop_front()) {
    int pos = list->empty() ? -1 : exact_pos_index(list->get_str_val());
    if (pos < 0) continue;
    record.desc[pos] = list->get_float_val();
    std::unique_ptr<IRSlist> pairs = list->pop_front();
    if (!pairs || pairs->is_atom()) continue;
    read_pairs(*this, std::move(pairs), record, pos, inserter);
    read_groups(*list, *this, record, pos);
  }
}

void SimWordDb::read_source(Stream* stream, bool double_byte) {
  whole_lists_ = file && !file->read_only();
  SimInserter inserter;
  IRSlistReader reader(double_byte);
  for (IRSlist* entry = reader.start_stream(stream); entry; entry = reader.next())
    if (!entry->empty()) read_entry(*entry, inserter);
  whole_lists_ = false;
}

}  // namespace torvane
