// The readers of lists of similar words from text.
#pragma once

#include "wordsim/sim_word_db.h"

namespace torvane {

/// Reads an entry of a text dictionary, `(word (desc VALUE) (sims WORD VALUE WORD VALUE ...))` with
/// tabs inside the list, into a record's list of one part of speech.
void read_text_entry(SimWordDb& db, const char* entry, SimRecord& record, int pos);

}  // namespace torvane
