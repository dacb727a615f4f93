// What the reports over a database share: their arguments, the walk over entries, their rows.
#pragma once

#include <memory>

#include "shell/irslist.h"
#include "shell/streams.h"
#include "triples/db/triple_print.h"
#include "triples/reports/word_classes.h"

namespace torvane {

/// The database that the first argument names, or null after its message.
TripleDb* take_triple_db(World& world, IRSlist* form);
/// A number after a keyword, which goes off the form with it.
float take_float(IRSlist& form, const char* keyword, float otherwise);
/// The file of `:output`, or standard output; null after a message if it cannot be opened.
Ref<Stream> take_output_file(World& world, IRSlist& form);
/// The classes in the file of `:wordset`; null if there are none.
std::unique_ptr<WordClasses> take_wordset(World& world, IRSlist& form);

/// Calls `visit(entry)` for every entry. With a file an entry is a temporary, its details unread.
template <class Visit>
void each_entry(TripleDb& db, Visit visit) {
  for (PLHashIterator at(db); !at.done(); at.next())
    visit(static_cast<TripleDbInfo&>(*at.current()));
}

}  // namespace torvane
