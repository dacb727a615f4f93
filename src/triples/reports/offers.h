// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer cluster_names;
extern const Offer entry_comparison;
extern const Offer entry_in_html;
extern const Offer entry_reports;
extern const Offer high_mutinfo;
extern const Offer make_avg_entry;
extern const Offer mutinfo_reports;
extern const Offer search_tripledbs;
extern const Offer word_pair_reports;

}  // namespace torvane::offers
