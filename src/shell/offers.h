// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer macro;
extern const Offer object_factory;
extern const Offer shell_commands;  ///< every `Exec` has these
extern const Offer tokenizer_commands;

}  // namespace torvane::offers
