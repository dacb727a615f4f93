#include "triples/reports/triple_queries.h"

#include "triples/reports/query_commands.h"

namespace torvane {

void register_triple_queries(World& world) {
  register_search_tripledbs(world);
  register_print_high_mutinfo(world);
  register_mutinfo_reports(world);
  register_make_avg_entry(world);
  register_word_pair_reports(world);
  register_entry_reports(world);
  register_name_cluster_by_features(world);
}

}  // namespace torvane
