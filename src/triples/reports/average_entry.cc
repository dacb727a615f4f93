#include "triples/reports/average_entry.h"

#include <cstdlib>
#include <limits>
#include <string_view>

namespace torvane {
namespace {

struct Row {
  const char* word = nullptr;
  float freq = 0;
  float mi = 0;
  float weight = 0;  // of the member
};

struct Cursor {
  TripleDbInfo* entry;
  float weight;
  int at = 0;
  bool done() const { return at >= entry->rels.count(); }
  RelInfo& rel() const { return entry->rels[at]; }
};

bool fits_pos(TripleDb& db, int id, const char* pos) {
  if (!pos) return true;
  std::string_view name = or_empty(db.id_to_string(std::abs(id)));
  std::string_view part = pos;
  return id < 0 ? name.size() > part.size() && name.ends_with(part) : name.starts_with(part);
}

std::vector<Cursor> make_cursors(TripleDb& db, const std::vector<TripleDbInfo*>& members) {
  float total = 0;
  for (const TripleDbInfo* member : members) total += member->freq + member->invFreq;
  std::vector<Cursor> cursors;
  for (TripleDbInfo* member : members) {
    db.load_details(*member);
    cursors.push_back({member, total != 0 ? (member->freq + member->invFreq) / total : 0});
  }
  return cursors;
}

/// Moves every cursor past the smallest relation, whose rows it collects if the rules admit it.
/// False when there is none left.
bool next_relation(TripleDb& db, std::vector<Cursor>& cursors, const AverageRules& rules, int& id,
                   Array<Row>& rows) {
  bool found = false;
  for (const Cursor& cursor : cursors) {
    if (cursor.done() || (found && cursor.rel().id >= id)) continue;
    found = true;
    id = cursor.rel().id;
  }
  bool wanted = found && rules.relations.has(id) && fits_pos(db, id, rules.pos);
  rows.clear();
  for (Cursor& cursor : cursors) {
    if (cursor.done() || cursor.rel().id != id) continue;
    if (wanted)
      for (WordCount& word : cursor.rel())
        rows.append({word.word, word.freq, known_mutinfo(word, cursor.rel(), db), cursor.weight});
    ++cursor.at;
  }
  return found;
}

/// The feature that the rows from `at` on are about; moves `at` past them.
SharedFeature take_run(const Array<Row>& rows, int& at, int id, int member_count,
                       const AverageRules& rules) {
  SharedFeature feature{id, rows[at].word, 0, false};
  float mi_sum = 0;
  int members = 0;
  for (; at < rows.count() && compare_words(rows[at].word, feature.word) == 0; ++at, ++members) {
    mi_sum += rows[at].mi * rows[at].weight;
    feature.freq += rows[at].freq * rows[at].weight;
  }
  // Kept: one-member-shares-nothing
  float share = static_cast<float>(members - 1) / static_cast<float>(member_count);
  feature.passes = mi_sum > rules.mi_threshold && share > rules.spread;
  return feature;
}

}  // namespace

std::vector<SharedFeature> shared_features(TripleDb& db, const std::vector<TripleDbInfo*>& members,
                                           const AverageRules& rules) {
  std::vector<SharedFeature> features;
  std::vector<Cursor> cursors = make_cursors(db, members);
  Array<Row> rows;
  for (int id = 0; next_relation(db, cursors, rules, id, rows);) {
    rows.sort([](const Row& a, const Row& b) { return compare_words(a.word, b.word); });
    for (int at = 0; at < rows.count();)
      features.push_back(take_run(rows, at, id, static_cast<int>(members.size()), rules));
  }
  return features;
}

std::unique_ptr<TripleDbInfo> make_average(TripleDb& db, const char* name,
                                           const std::vector<SharedFeature>& features) {
  const char* key = db.id_to_string(db.ids.get_id(name, true));
  if (!key) return nullptr;
  auto entry = std::make_unique<TripleDbInfo>(key);
  for (const SharedFeature& feature : features)
    if (feature.passes)
      entry->add_feature(feature.relation, db.ids.get_id(feature.word, false), feature.freq, db);
  db.recompute_info(*entry);
  return entry;
}

}  // namespace torvane
