// The commands on triple databases: making, filling, merging and dumping them.
#include <algorithm>
#include <climits>
#include <utility>

#include "deps/trees.h"
#include "shell/file_search.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "triples/db/populate.h"
#include "triples/offers.h"
#include "triples/reports/report_parts.h"

namespace torvane {

namespace {

constexpr long kBuckets = 59999;
constexpr long kIdBuckets = 200011;

long take_long(IRSlist* form, const char* keyword, long otherwise) {
  long value = otherwise;
  if (const char* text = form->take_keyword_str(keyword)) scan_long(text, value);
  return value;
}

Value make_tripledb(World& world, IRSlist* form) {
  long id_buckets = take_long(form, ":id-table-size", kIdBuckets);
  long clean_up_after = take_long(form, ":clean-up-after", 0);
  const char* prefix = form->take_keyword_str(":tmp-file-prefix");
  bool save_mutinfo = form->take_flag(":save-mutinfo");
  const char* name = form->get_str_val();
  if (!name) return Value();
  long buckets = form->empty() ? kBuckets : form->get_long_val();
  auto db = std::make_unique<TripleDb>(buckets, id_buckets, save_mutinfo);
  db->clean_up_after = static_cast<int>(std::clamp<long>(clean_up_after, 0, INT_MAX));
  db->set_tmp_file_prefix(prefix);
  TripleDb* made = world.own_object(name, std::move(db), "TripleDb/PLHash");
  if (made) trees(world).databases.emplace_back(Value::of(made), made);
  return Value::of(made);
}

Value merge_tripledbs(World& world, IRSlist* form) {
  TripleDb* target = take_triple_db(world, form);
  TripleDb* source = target ? take_triple_db(world, form) : nullptr;
  if (source) target->merge_triples(*source);
  return Value();
}

Value populate_tripledb(World& world, IRSlist* form) {
  PopulateLimits limits;
  limits.min_freq = take_float(*form, ":min-freq", limits.min_freq);
  limits.min_rel_freq = take_float(*form, ":min-rel-freq", limits.min_rel_freq);
  limits.min_info = take_float(*form, ":min-info", limits.min_info);
  limits.min_logl = take_float(*form, ":min-logl", limits.min_logl);
  TripleDb* db = take_triple_db(world, form);
  if (!db) return Value();
  Ref<Stream> relations = world.files.open(form->get_str_val());
  if (!relations) return Value();
  const bool with_details = !form->empty();
  Ref<Stream> details = with_details ? world.files.open(form->get_str_val()) : Ref<Stream>();
  if (with_details && !details) return Value();
  db->populate_relations(*relations->in(), limits);
  if (details)
    db->populate(*details->in(), limits);
  else
    db->sync();
  return Value();
}

Value dump_tripledb(World& world, IRSlist* form) {
  TripleDb* db = take_triple_db(world, form);
  if (!db) return Value();
  Ref<Stream> relations = world.make_ostream(form->empty() ? nullptr : form->get_str_val());
  Ref<Stream> details =
      relations ? world.make_ostream(form->empty() ? nullptr : form->get_str_val()) : relations;
  if (details) db->dump(*relations->out(), *details->out());
  return Value();
}

Value dump_and_clear(World& world, IRSlist* form) {
  if (TripleDb* db = take_triple_db(world, form)) db->dump_and_clear(world);
  return Value();
}

Value set_tmp_file_prefix(World& world, IRSlist* form) {
  if (TripleDb* db = take_triple_db(world, form)) db->set_tmp_file_prefix(form->get_str_val());
  return Value();
}

Value del_tripledb_entry(World& world, IRSlist* form) {
  TripleDb* db = take_triple_db(world, form);
  Ref<Stream> in = db ? world.files.open(form->get_str_val()) : Ref<Stream>();
  if (!in) return Value();
  TripleRowReader row(*in->in());
  while (row.next(3)) db->remove_triple(row.word(), row.relation(), row.other());
  db->sync();
  return Value();
}

Value print_keys(World& world, IRSlist* form) {
  TripleDb* db = take_triple_db(world, form);
  if (!db) return Value();
  for (PLHashIterator walk(*db); !walk.done(); walk.next()) {
    const auto& entry = *static_cast<TripleDbInfo*>(walk.current());
    world.out() << entry.key << '\t' << entry.freq << '\t' << entry.invFreq << '\t' << entry.info
                << '\n';
  }
  return Value();
}

constexpr Command kTripleCommands[] = {
    {"make-tripledb", make_tripledb,
     "(make-tripledb <dbname> <size>) creates a TripleDb object named <dbname>\n"},
    {"merge-tripledbs", merge_tripledbs, "(merge-tripledbs <DEST> <SRC>) merge SRC into DEST\n"},
    {"populate-tripledb", populate_tripledb,
     "(populate-tripledb <DBNAME> <RELATION> [<DETAILS>])\n"},
    // Kept: dump-takes-two-files
    {"dump-tripledb", dump_tripledb, "(dump-tripledb <DBNAME> <FILE>)\n"},
    {"tripledb-dump-and-clear", dump_and_clear, "(tripledb-dump-and-clear DBNAME)."},
    {"set-tripledb-tmp-file-prefix", set_tmp_file_prefix,
     "(set-tripledb-tmp-file-prefix DBNAME TMPFILEPREFIX)."},
    {"del-tripledb-entry", del_tripledb_entry, "(del-tripledb-entry <DBNAME> FILENAME)\n"},
    {"print-keys", print_keys, "(print-keys <DBNAME>)\n"},
};

}  // namespace

constinit const Offer offers::triple_commands{kTripleCommands};

}  // namespace torvane
