// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer match_forms;
extern const Offer node_edits;
extern const Offer node_selectors;
extern const Offer tree_conditions;
extern const Offer tree_edits;
extern const Offer tree_modifier;
extern const Offer tree_patterns;

}  // namespace torvane::offers
