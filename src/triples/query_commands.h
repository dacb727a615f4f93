// The queries over a database, a file each.
#pragma once

namespace torvane {

void register_search_tripledbs();  ///< with its short name `st`
void register_print_high_mutinfo();
void register_mutinfo_reports();    ///< `print-low-mutinfo`, `print-noise`, `print-total-mutinfo`
void register_word_pair_reports();  ///< `get-all-rels` and what is made of it
void register_entry_reports();      ///< `count-features`, `print-entries-with-few-features`
void register_make_avg_entry();
void register_name_cluster_by_features();

}  // namespace torvane
