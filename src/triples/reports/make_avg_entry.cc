// `make-avg-entry`: prints the centroid of several words, and keeps it under a name of its own.
#include <algorithm>

#include "lexp/form.h"
#include "shell/world.h"
#include "triples/reports/average_entry.h"
#include "triples/reports/offers.h"
#include "triples/reports/report_parts.h"

namespace torvane {
namespace {

constexpr const char* kUnnamed = "__merged";

std::vector<TripleDbInfo*> find_members(World& world, TripleDb& db, const IRSlist* words) {
  std::vector<TripleDbInfo*> members;
  StrBufs buf;
  Slist<char*> list;
  if (words) get_string_list(world, *words, buf, list);
  for (const char* word : list)
    if (TripleDbInfo* entry = db.find(word)) members.push_back(entry);
  return members;
}

/// True if a condition, where there is one, passes a word of the features. It may run commands, so
/// the words are copied first.
bool is_satisfied(const ExpPtr& condition, const std::vector<SharedFeature>& features) {
  if (!condition) return true;
  std::vector<std::string> words;
  words.reserve(features.size());
  for (const SharedFeature& feature : features) words.emplace_back(feature.word);
  return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
    return passes(condition, Value::buffer_text(word.c_str()), type_id_of<const char*>());
  });
}

/// Puts the entry where one of its key stands, on disk too.
void put_in_place(TripleDb& db, std::unique_ptr<TripleDbInfo> entry) {
  if (TripleDbInfo* old = db.find(entry->key)) {
    entry->pos = old->pos;
    entry->mark_changed();
    entry->detail_pos = std::abs(old->detail_pos);
    db.unlink(old);
    db.delete_entry(old);
  }
  LHashTable::Slot slot;
  db.LHashTable::find_in_memory(entry->key, slot);
  db.link(slot, entry.release());
}

Value make_avg_entry(World& world, IRSlist* form) {
  std::unique_ptr<IRSlist> words = form->take_keyword_node(":words");
  std::unique_ptr<IRSlist> require = form->take_keyword_node(":require");
  const char* name = form->take_keyword_str(":name");
  std::string key = name ? name : kUnnamed;
  const char* pos = form->take_keyword_str(":pos");
  // Kept: recursive-does-nothing
  form->take_keyword_node(":recursive");  // these two change nothing
  form->take_keyword_node(":print-centroid");
  float mi_threshold = take_float(*form, ":mi-threshold", 0.5F);
  float spread = take_float(*form, ":spread", 0.05F);
  Ref<Stream> out = take_output_file(world, *form);
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  RelationSet relations(world, *db, *form);
  ExpPtr condition = require ? LExp::get_exp(world, require.get()) : nullptr;
  AverageRules rules{relations, pos, mi_threshold, spread};

  auto features = [&] {
    return shared_features(*db, find_members(world, *db, words.get()), rules);
  };
  if (condition && !is_satisfied(condition, features())) return Value();
  std::unique_ptr<TripleDbInfo> entry = make_average(*db, key.c_str(), features());
  if (!entry) return Value();
  db->print_entry(entry.get(), *out->out());
  if (!same_word(key.c_str(), kUnnamed)) put_in_place(*db, std::move(entry));
  return Value();
}

constexpr Command kMakeAvgEntryCommands[] = {
    {"make-avg-entry", make_avg_entry,
     "(make-avg-entry <DBNAME> :words (WORD WORD ...) :mi-threshold MUTINFO :name NAME :pos POS "
     ":spread spread)\n"},
};

}  // namespace

constinit const Offer offers::make_avg_entry{kMakeAvgEntryCommands};

}  // namespace torvane
