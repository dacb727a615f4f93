// Reports over pairs of words: how two are related, which triples of a list are what their words
// are most likely to be, and which look like mistakes beside a stronger relation.
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "shell/file_search.h"
#include "shell/world.h"
#include "triples/reports/offers.h"
#include "triples/reports/report_parts.h"
#include "triples/reports/triple_filter.h"

namespace torvane {
namespace {

constexpr float kWeakShare = 0.5F;  // of the strongest relation's mutual information

struct PairQuery {
  /// Takes the arguments that all these commands have; `db` is null if one is amiss.
  PairQuery(World& world, IRSlist& form)
      : out(take_output_file(world, form)),
        classes(take_wordset(world, form)),
        db(take_triple_db(world, &form)) {
    if (!out) db = nullptr;
  }
  Ref<Stream> out;
  std::unique_ptr<WordClasses> classes;
  TripleDb* db;
};

Value get_all_rels(World& world, IRSlist* form) {
  PairQuery query(world, *form);
  if (!query.db) return Value();
  RelationSet relations(world, *query.db, *form);
  const char* x = form->get_str_val();
  const char* y = form->get_str_val();
  for (const TripleRow& row : triple_filter(*query.db, x, y, relations, query.classes.get()))
    write_row(*query.out->out(), row.head, RelationName(*query.db, row.relation), row.mi,
              row.other);
  return Value();
}

std::vector<std::string> split_at_tabs(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  std::vector<std::string> fields;
  while (!line.empty()) {
    std::size_t end = std::min(line.find('\t'), line.size());
    if (end > 0) fields.emplace_back(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return fields;
}

Value filter_high_mutinfo_pairs(World& world, IRSlist* form) {
  PairQuery query(world, *form);
  if (!query.db) return Value();
  RelationSet relations(world, *query.db, *form);
  Ref<Stream> in = world.files.open(form->get_str_val());
  if (!in || !in->in()) return Value();
  for (std::string line; std::getline(*in->in(), line);) {
    std::vector<std::string> fields = split_at_tabs(line);
    if (fields.size() < 3) continue;
    auto rows = triple_filter(*query.db, fields[0].c_str(), fields[2].c_str(), relations,
                              query.classes.get());
    if (rows.empty() || rows[0].relation != query.db->feature_id(fields[1].c_str(), false))
      continue;
    std::ostream& out = *query.out->out() << fields[0];
    for (std::size_t i = 1; i < fields.size(); ++i) out << '\t' << fields[i];
    out << '\n';
  }
  return Value();
}

void print_weak_rows(PairQuery& query, const Array<TripleRow>& rows) {
  const TripleDb& db = *query.db;
  for (const TripleRow& row : rows) {
    const TripleRow& best = rows[0];
    if (row.mi < kWeakShare * best.mi && row.relation != best.relation)
      write_row(*query.out->out(), row.head, RelationName(db, row.relation), row.other, row.mi, ";",
                best.head, RelationName(db, best.relation), best.other, best.mi);
  }
}

Value print_possible_errors(World& world, IRSlist* form) {
  PairQuery query(world, *form);
  if (!query.db) return Value();
  RelationSet relations(world, *query.db, *form);
  auto is_wanted = [&](const char* word) {
    return !query.classes || !query.classes->class_of(word).empty();
  };
  each_entry(*query.db, [&](TripleDbInfo& entry) {
    if (!is_wanted(entry.key)) return;
    query.db->load_details(entry);
    std::unordered_set<const char*> seen;
    for (const RelInfo& rel : entry.rels) {
      if (!relations.has(rel.id)) continue;
      for (const WordCount& word : rel)
        if (is_wanted(word.word) && seen.insert(word.word).second)
          print_weak_rows(query,
                          triple_filter(*query.db, entry.key, word.word, relations, nullptr));
    }
    if (TripleDbInfo* in_memory = query.db->find_in_memory(entry.key)) in_memory->drop_details();
  });
  return Value();
}

constexpr Command kWordPairReportsCommands[] = {
    {"get-all-rels", get_all_rels,
     "(get-all-rels db x y) print all relationships between x and y."},
    {"filter-high-mutinfo-pairs", filter_high_mutinfo_pairs,
     "(filter-high-mutinfo-pairs db FILE\t[:wordset FILE])."},
    {"print-possible-errors", print_possible_errors, "(print-possible-errors)."},
};

}  // namespace

constinit const Offer offers::word_pair_reports{kWordPairReportsCommands};

}  // namespace torvane
