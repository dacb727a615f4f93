// Reports over mutual information: what is lower than by chance, relations that are mostly noise,
// and how much each word has in all.
#include "shell/world.h"
#include "triples/reports/offers.h"
#include "triples/reports/relation_set.h"
#include "triples/reports/report_parts.h"

namespace torvane {
namespace {

constexpr float kNoise = 0.3F;  // words counted less

void print_low(TripleDb& db, const TripleDbInfo& entry, RelInfo& rel, float max,
               std::ostream& out) {
  RelationName name(db, rel.id);
  if (!name || !db.find(name.name)) return;
  float mutinfo = relation_mutinfo(entry, rel, db);
  if (!(mutinfo <= max)) return;
  write_row(out, entry.key, name, " ", rel.freq, mutinfo);
  for (WordCount& word : rel) {
    if (!db.find(word.word)) continue;
    mutinfo = known_mutinfo(word, rel, db);
    // Kept: low-report-lists-high-words
    if (mutinfo >= max) write_row(out, entry.key, name, word.word, word.freq, mutinfo);
  }
}

Value print_low_mutinfo(World& world, IRSlist* form) {
  float max = take_float(*form, ":max", -1);
  Ref<Stream> out = take_output_file(world, *form);
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  each_entry(*db, [&](TripleDbInfo& entry) {
    db->load_details(entry);
    for (RelInfo& rel : entry.rels) print_low(*db, entry, rel, max, *out->out());
  });
  return Value();
}

bool is_noise(const RelInfo& rel, float threshold) {
  float small = 0;
  float all = 0;
  for (const WordCount& word : rel) {
    if (word.freq < kNoise) small += word.freq;
    all += word.freq;
  }
  return (all != 0 ? small / all : 0) > threshold;
}

Value print_noise(World& world, IRSlist* form) {
  Ref<Stream> out = take_output_file(world, *form);
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  // Kept: percent-is-a-fraction
  float threshold = form->empty() ? 0.4F : form->get_float_val();
  each_entry(*db, [&](TripleDbInfo& entry) {
    db->load_details(entry);
    for (RelInfo& rel : entry.rels) {
      RelationName name(*db, rel.id);
      if (!name || !is_noise(rel, threshold)) continue;
      write_row(*out->out(), entry.key, name, " ", rel.freq);
      for (const WordCount& word : rel)
        write_row(*out->out(), entry.key, name, word.word, word.freq);
    }
  });
  return Value();
}

Value print_total_mutinfo(World& world, IRSlist* form) {
  Ref<Stream> out = take_output_file(world, *form);
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  RelationSet features(world, *db, *form);
  each_entry(*db, [&](TripleDbInfo& entry) {
    float sum = features.is_everything() ? entry.info : 0;
    if (!features.is_everything())
      for (RelInfo& rel : entry.rels)
        if (features.has(rel.id)) sum += rel_info(rel, entry, *db);
    write_row(*out->out(), entry.key, sum);
  });
  return Value();
}

constexpr Command kMutinfoReportsCommands[] = {
    {"print-low-mutinfo", print_low_mutinfo, "(print-low-mutinfo <DBNAME> [:max MAX-MUTINFO])\n"},
    {"print-noise", print_noise, "(print-noise <DBNAME> [PERCENT])\n"},
    {"print-total-mutinfo", print_total_mutinfo, "(print-total-mutinfo DBNAME)"},
};

}  // namespace

constinit const Offer offers::mutinfo_reports{kMutinfoReportsCommands};

}  // namespace torvane
