// `count-features` and `print-entries-with-few-features`.
#include <string>
#include <unordered_set>
#include <vector>

#include "lexp/form.h"
#include "lexp/word_list.h"
#include "shell/world.h"
#include "triples/reports/offers.h"
#include "triples/reports/report_parts.h"

namespace torvane {
namespace {

constexpr long kFeatureSlots = 200011;

Value count_features(World& world, IRSlist* form) {
  Ref<Stream> out = take_output_file(world, *form);
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  long words = 0;
  long features = 0;
  WordList unique(true, kFeatureSlots);
  StrBufs name;
  std::string feature;
  each_entry(*db, [&](TripleDbInfo& entry) {
    ++words;
    db->load_details(entry);
    for (const RelInfo& rel : entry.rels) {
      name.reset();
      std::string prefix = or_empty(db->feature_name(rel.id, name));
      for (const WordCount& word : rel) {
        ++features;
        unique.add(feature.assign(prefix).append("|").append(word.word).c_str());
      }
    }
  });
  *out->out() << "Words:\t" << words << "\nFeatures:\t" << features << "\nUnique features:\t"
              << unique.count() << '\n';
  return Value();
}

/// The keys of entries with few features that pass a condition, which is evaluated after the walk:
/// it may run commands.
std::unordered_set<std::string> keys_that_pass(TripleDb& db, float limit, const ExpPtr& condition) {
  std::vector<std::string> keys;
  each_entry(db, [&](const TripleDbInfo& entry) {
    if (entry.freq + entry.invFreq < limit) keys.emplace_back(entry.key);
  });
  std::unordered_set<std::string> passing;
  Round round;
  for (const std::string& key : keys) {
    if (passes(condition, Value::buffer_text(key.c_str()), type_id_of<const char*>()))
      passing.insert(key);
    round.next();
  }
  return passing;
}

Value print_entries_with_few_features(World& world, IRSlist* form) {
  float limit = take_float(*form, ":limit", 40);
  std::unique_ptr<IRSlist> node = form->take_keyword_node(":cond");
  Ref<Stream> out = take_output_file(world, *form);
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  ExpPtr condition = node ? LExp::get_exp(world, node.get()) : nullptr;
  std::unordered_set<std::string> keys;
  if (condition) keys = keys_that_pass(*db, limit, condition);
  each_entry(*db, [&](TripleDbInfo& entry) {
    if (entry.freq + entry.invFreq < limit && (!condition || keys.contains(entry.key)))
      db->print_entry(&entry, *out->out());
  });
  return Value();
}

constexpr Command kEntryReportsCommands[] = {
    {"count-features", count_features, "(count-features DBNAME)."},
    {"print-entries-with-few-features", print_entries_with_few_features,
     "(print-entries-with-few-features DBNAME :limit LIMIT) print the entries in which the total "
     "frequency count is less than limit."},
};

}  // namespace

constinit const Offer offers::entry_reports{kEntryReportsCommands};

}  // namespace torvane
