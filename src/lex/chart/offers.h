// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer item_forms;
extern const Offer lex_analyzer_commands;

}  // namespace torvane::offers
