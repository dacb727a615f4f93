// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer case_marks;
extern const Offer grammar_commands;
extern const Offer init_attributes;
extern const Offer isolate;
extern const Offer node_name;
extern const Offer parser_commands;
extern const Offer parser_definition;
extern const Offer pitem_forms;
extern const Offer ref_entry;
extern const Offer set_head_of_lexitem;
extern const Offer word_walk_forms;

}  // namespace torvane::offers
