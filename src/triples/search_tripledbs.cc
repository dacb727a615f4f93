// `search-tripledbs`: the entries of words, in the layout in which every entry prints.
#include <cstdlib>
#include <memory>

#include "shell/exec.h"
#include "shell/world.h"
#include "support/messages.h"
#include "triples/mutual_info.h"
#include "triples/query_commands.h"
#include "triples/report_parts.h"
#include "triples/triple_queries.h"

namespace torvane {
namespace {

void print_relation(TripleDb& db, const TripleDbInfo& entry, RelInfo& rel, const RelationName& name,
                    std::ostream& out) {
  write_row(out, name, rel.freq, relation_mutinfo(entry, rel, db));
  for (WordCount& word : rel)
    write_row(out << "\t\t", word.word, word.freq, known_mutinfo(word, rel, db));
}

Value search_tripledbs(World& world, IRSlist* form) {
  Ref<Stream> out = take_output_file(world, *form);
  std::unique_ptr<IRSlist> relation = form->take_keyword_node(":rel");
  TripleDb* db = take_triple_db(world, form);
  if (!db || !out) return Value();
  while (std::unique_ptr<IRSlist> key = form->pop_front())
    if (TripleDbInfo* entry = db->find(key->atom))
      print_triple_entry(*db, *entry, *out->out(), relation ? relation->atom : nullptr);
  return Value();
}

// Kept: search-tripledb-doc
constexpr const char* kDoc = "(search-tripledb <DBNAME> [:rel relation] key1 key2)\n";
constexpr Command kCommands[] = {
    {"search-tripledbs", search_tripledbs, kDoc},
    {"st", search_tripledbs, kDoc},
};

}  // namespace

void print_triple_entry(TripleDb& db, TripleDbInfo& entry, std::ostream& out,
                        const char* relation) {
  write_row(out, or_empty(entry.key), entry.freq, entry.invFreq);
  db.load_details(entry);
  int wanted = relation ? db.feature_id(relation, false) : 0;
  for (RelInfo& rel : entry.rels) {
    RelationName name(db, rel.id);
    if (!name) {
      messages() << "Relation: " << rel.id << " is not found\n";
      continue;
    }
    bool matches = !relation || rel.id == wanted || (wanted > 0 && std::abs(rel.id) == wanted);
    if (matches) print_relation(db, entry, rel, name, out);
  }
}

void register_search_tripledbs(World& world) {
  world.interpreter.define(kCommands);
}

}  // namespace torvane
