// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer abbreviations;
extern const Offer antecedent_forms;
extern const Offer component_actions;
extern const Offer compound_look_up;
extern const Offer deleting_actions;
extern const Offer flag_actions;
extern const Offer item_setters;
extern const Offer lexical_rules;
extern const Offer llrule;
extern const Offer making_actions;
extern const Offer searching_actions;

}  // namespace torvane::offers
