// Pages on the entries of a database of triples, for people to read.
#pragma once

namespace torvane {

class World;

/// `print-tripledb-entry-in-html` and `cmp-tripledb-entries`
void register_triple_reports(World& world);

}  // namespace torvane
