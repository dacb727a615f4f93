// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer aliases;
extern const Offer att_commands;
extern const Offer att_constants;
extern const Offer att_forms;
extern const Offer att_pair_forms;
extern const Offer att_value_forms;
extern const Offer avlist_forms;
extern const Offer disjunction_atts;
extern const Offer list_atts;
extern const Offer nested_atts;
extern const Offer scalar_atts;
extern const Offer text_atts;
extern const Offer trace_att;

}  // namespace torvane::offers
