// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer atom_patterns;
extern const Offer match_accessors;
extern const Offer multi_patterns;
extern const Offer pattern;
extern const Offer repeat_patterns;

}  // namespace torvane::offers
