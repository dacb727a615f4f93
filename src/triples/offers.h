// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer triple_commands;

}  // namespace torvane::offers
