// What a database of triples tells about its words: the commands that print its statistics.
#pragma once

namespace torvane {

class World;

/// `search-tripledbs`, the reports over mutual information, word pairs, averages and clusters.
void register_triple_queries(World& world);

}  // namespace torvane
