// What it costs to put one word under another by a relation: how far apart they stand, and how
// seldom a database of counts has seen the two together.
#pragma once

#include <string>
#include <string_view>

#include "parser/p_item.h"

namespace torvane {

class TorvaneParser;

/// How probable a distance (in words, at least 1) is for a relation, from the table "dist.txt".
double distance_probability(World& world, const char* relation, int distance);

/// A head as costs see it.
struct HeadSide {
  explicit HeadSide(const PItem& item);
  std::string_view word;
  std::string_view category;
  int position;
  bool preposition;
  const char* pform;  ///< of a preposition, may be null
  const char* name;   ///< the relation string of its lexical item, may be null
};

/// A modifier as costs see it. Alternatives that are equal here cost the same.
struct ModifierSide {
  explicit ModifierSide(const PItem& item);
  std::string_view word;
  std::string_view category;
  int position;
  friend bool operator==(const ModifierSide&, const ModifierSide&) = default;
};

float dep_cost(TorvaneParser& parser, const HeadSide& head, const ModifierSide& modifier,
               const char* relation);
inline float dep_cost(TorvaneParser& parser, const PItem& head, const PItem& modifier,
                      const char* relation) {
  return dep_cost(parser, HeadSide(head), ModifierSide(modifier), relation);
}

/// The relation of a merged item's modifier to its head.
const char* step_relation(const PItem& merged);

}  // namespace torvane
