// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer endings;
extern const Offer lex_entry;
extern const Offer lexicon_commands;
extern const Offer lexicon_files;
extern const Offer meaning;

}  // namespace torvane::offers
