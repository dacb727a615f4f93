// What a database of triples tells about its words: the commands that print its statistics.
#pragma once

#include <ostream>

namespace torvane {

class TripleDb;
struct TripleDbInfo;
struct RelInfo;

/// The key with its counts, a row a relation, a row a word. Of the relations only the one named: a
/// name without "-" stands for both directions, one with "-" for the inverse; null for all.
void print_triple_entry(TripleDb& db, TripleDbInfo& entry, std::ostream& out,
                        const char* relation = nullptr);

/// The mutual information of a relation at a word.
float relation_mutinfo(TripleDb& db, const TripleDbInfo& entry, const RelInfo& rel);

void register_triple_queries();
void register_triple_reports();

}  // namespace torvane
