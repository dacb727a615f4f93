#include "triples/triple_queries.h"

#include <utility>

#include "triples/query_commands.h"

namespace torvane {

void register_triple_queries() {
  static bool done = false;
  if (std::exchange(done, true)) return;
  register_search_tripledbs();
  register_print_high_mutinfo();
  register_mutinfo_reports();
  register_make_avg_entry();
  register_word_pair_reports();
  register_entry_reports();
  register_name_cluster_by_features();
}

}  // namespace torvane
