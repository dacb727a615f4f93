#include "triples/reports/triple_filter.h"

namespace torvane {
namespace {

std::span<const char* const> members(const char* const& word, const WordClasses* classes) {
  std::span<const char* const> found;
  if (classes) found = classes->class_of(word);
  return found.empty() ? std::span(&word, 1) : found;
}

}  // namespace

Array<TripleRow> triple_filter(TripleDb& db, const char* word1, const char* word2,
                               const RelationSet& relations, const WordClasses* classes) {
  Array<TripleRow> rows;
  if (!word1 || !word2 || !db.find(word1)) return rows;
  for (const char* head : members(word1, classes)) {
    TripleDbInfo* entry = db.find(head);
    if (!entry) continue;
    db.load_details(*entry);
    for (const RelInfo& rel : entry->rels) {
      if (!relations.has(rel.id)) continue;
      for (const char* other : members(word2, classes))
        if (WordCount* word = rel.find_word(other))
          rows.append({entry->key, word->word, known_mutinfo(*word, rel, db), rel.id});
    }
  }
  rows.sort(
      [](const TripleRow& a, const TripleRow& b) { return int{a.mi < b.mi} - int{a.mi > b.mi}; });
  return rows;
}

}  // namespace torvane
