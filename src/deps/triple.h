// The triples in which forms write what they store: three parts, each a constant or an expression.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lexp/lexp.h"

namespace torvane {

/// An atom stands for itself; a list is an expression.
class TriplePart {
 public:
  TriplePart() = default;
  TriplePart(World& world, IRSlist* item);
  /// The text of a constant; null for an expression and for a part that is not there.
  const char* constant() const { return constant_ ? constant_->c_str() : nullptr; }
  Value eval(Value input, int type) const;

 private:
  std::optional<std::string> constant_;
  ExpPtr exp_;
  friend struct Triple;
};

struct Triple {
  Triple(World& world, IRSlist* form);
  /// A number as it stands, an expression's in thousandths; 1 without the part.
  float weight(Value input, int type) const;

  TriplePart first, second, third;
};

/// All lists of a form; atoms among them are passed over.
std::vector<Triple> read_triples(World& world, IRSlist* args);

}  // namespace torvane
