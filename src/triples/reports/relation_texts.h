// What pages call relations: the texts of `:codes`, and the names of the others.
#pragma once

#include <string>
#include <vector>

#include "shell/irslist.h"
#include "triples/db/triple_db.h"

namespace torvane {

class RelationTexts {
 public:
  /// Takes `:codes` off a form: pairs of a relation ("-" before it for an inverse) and a text.
  RelationTexts(TripleDb& db, IRSlist& form);

  /// The text of a signed id, or its name.
  std::string text_of(int id) const;
  /// The name, with "-" for an inverse; empty for an id without name.
  std::string name_of(int id) const;

 private:
  TripleDb& db_;
  std::vector<int> ids_;
  std::vector<std::string> texts_;
};

}  // namespace torvane
