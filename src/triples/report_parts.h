// What the reports over a database share: their arguments, the walk over entries, their rows.
#pragma once

#include <memory>
#include <ostream>

#include "shell/streams.h"
#include "triples/triple_commands.h"
#include "triples/word_classes.h"

namespace torvane {

/// A number behind a keyword, which goes off the form with it.
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

/// A relation as reports write it: its name, with "-" before it for an inverse.
struct RelationName {
  RelationName(const TripleDb& db, int signed_id);
  /// False for an id that is no relation's; such a relation is not shown.
  explicit operator bool() const { return name != nullptr; }
  friend std::ostream& operator<<(std::ostream& out, const RelationName& relation) {
    return out << (relation.inverse ? "-" : "") << relation.name;
  }
  const char* name;
  bool inverse;
};

/// A line of fields with a tab between each two.
template <class First, class... Rest>
void write_row(std::ostream& out, const First& first, const Rest&... rest) {
  out << first;
  ((out << '\t' << rest), ...);
  out << '\n';
}

}  // namespace torvane
