// How what a database of triples holds is written: in rows, relations by name.
#pragma once

#include <ostream>

#include "triples/db/triple_db.h"

namespace torvane {

/// The key with its counts, a row a relation, a row a word. Of the relations only the one named,
/// which without "-" means both directions, with "-" the inverse; null for all.
void print_triple_entry(TripleDb& db, TripleDbInfo& entry, std::ostream& out,
                        const char* relation = nullptr);

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
