// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer define_attribute;
extern const Offer dep_print_forms;
extern const Offer dep_walk_forms;
extern const Offer deps_text_forms;
extern const Offer node_adaptors;
extern const Offer print_flags;
extern const Offer prop_forms;
extern const Offer read_and_modify_deps;
extern const Offer trel;

}  // namespace torvane::offers
