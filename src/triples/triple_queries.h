// What a database of triples tells about its words: the commands that print its statistics.
#pragma once

#include <ostream>

#include "triples/triple_db.h"

namespace torvane {

class World;

/// The key with its counts, a row a relation, a row a word. Of the relations only the one named,
/// which without "-" means both directions, with "-" the inverse; null for all.
void print_triple_entry(TripleDb& db, TripleDbInfo& entry, std::ostream& out,
                        const char* relation = nullptr);

/// `search-tripledbs`, the reports over mutual information, word pairs, averages and clusters.
void register_triple_queries(World& world);

}  // namespace torvane
