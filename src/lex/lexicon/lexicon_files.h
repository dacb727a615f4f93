// Batch commands on lexicon text files, which go through them entry by entry as text: files too
// large to be read as forms.
#pragma once

#include <string>
#include <string_view>

#include "shell/irslist.h"
#include "shell/streams.h"

namespace torvane {

/// The stream that a form's next argument names: standard input or output if there is none, null
/// after a message if it is a list or cannot be opened.
Ref<Stream> take_input(World& world, IRSlist* form);
Ref<Stream> take_output(World& world, IRSlist* form);

/// What two entries are compared by: the text of the heading, its words separated by one blank.
std::string item_key(std::string_view item);

}  // namespace torvane
