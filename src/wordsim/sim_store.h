// The packed form of a record in a store: the word, and for each part of speech its list and
// groups.
#pragma once

#include "support/str_bufs.h"
#include "wordsim/sim_record.h"

namespace torvane {

/// Adds a record with its key to `out`.
void pack_record(const SimRecord& record, const char* word, StrBufs& out);
/// Reads what follows the key. Of each list the first `most` pairs are kept; `ids` is one above the
/// highest id there is. False if the bytes are damaged.
bool unpack_record(const char* bytes, const char* end, int ids, int most, SimRecord& record);

}  // namespace torvane
