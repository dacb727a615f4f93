#include "triples/db/triple_print.h"

#include <cstdlib>

#include "support/messages.h"
#include "triples/db/mutual_info.h"

namespace torvane {

RelationName::RelationName(const TripleDb& db, int signed_id)
    : name(db.id_to_string(std::abs(signed_id))), inverse(signed_id < 0) {}

namespace {

void print_relation(TripleDb& db, const TripleDbInfo& entry, RelInfo& rel, const RelationName& name,
                    std::ostream& out) {
  write_row(out, name, rel.freq, relation_mutinfo(entry, rel, db));
  for (WordCount& word : rel)
    write_row(out << "\t\t", word.word, word.freq, known_mutinfo(word, rel, db));
}

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

}  // namespace torvane
