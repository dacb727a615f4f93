// The queries over a database, a file each.
#pragma once

namespace torvane {

class World;

void register_search_tripledbs(World& world);  ///< with its short name `st`
void register_print_high_mutinfo(World& world);
void register_mutinfo_reports(
    World& world);  ///< `print-low-mutinfo`, `print-noise`, `print-total-mutinfo`
void register_word_pair_reports(World& world);  ///< `get-all-rels` and what is made of it
void register_entry_reports(World& world);  ///< `count-features`, `print-entries-with-few-features`
void register_make_avg_entry(World& world);
void register_name_cluster_by_features(World& world);

}  // namespace torvane
