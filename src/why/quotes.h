// How the parts of a grammar and of a sentence are quoted in a reason.
#pragma once

#include <string>

#include "parser/torvane_parser.h"
#include "why/reasons.h"

namespace torvane {

/// The words from one position to another, in quotes.
std::string quoted(const Grammar& grammar, int low, int high);
inline std::string quoted(const Grammar& grammar, const PItem& item) {
  return quoted(grammar, item._low, item._high);
}
/// Such as `N (subj), P (mod)`: the links that may fill a position.
std::string fillers(const GCate& node, int position);
/// A link as `N as subj of V`.
std::string link_text(const Link& link);

/// The reason that a condition gives which was watched: the whole of it, then the parts to blame.
WhyReason condition_reason(World& world, const std::string& whose, const Refusal& refusal,
                           const ExpPtr& condition);

/// Of a link, a rule or a compiled expression; not known unless places were kept.
WhyPlace place_of(World& world, const void* thing);

/// Where the two differ in a value that cannot be both, as `num: sg against pl`; of the attributes
/// in the set. Empty if they do not.
std::string clashes(const AttVec& a, const AttVec& b, const AttSet& atts);

}  // namespace torvane
