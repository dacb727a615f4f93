// What the files of this folder add to the configuration language: each name is that of its file.
#pragma once

#include "shell/offer.h"

namespace torvane::offers {

extern const Offer constants;
extern const Offer control_forms;
extern const Offer eval;
extern const Offer exec_commands;
extern const Offer foreach;
extern const Offer functions;
extern const Offer integer_forms;
extern const Offer print_forms;
extern const Offer reg_forms;
extern const Offer sentence_boundary;
extern const Offer str_sim;
extern const Offer stream_forms;
extern const Offer string_forms;
extern const Offer variable_forms;
extern const Offer word_forms;
extern const Offer word_list;

}  // namespace torvane::offers
