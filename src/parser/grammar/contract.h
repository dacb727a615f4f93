// The part of the contract with grammars that is about attributes: those with a role in the parser,
// each with its handle.
#pragma once

#include "att/contract.h"
#include "parser/grammar/syntax_atts.h"

namespace torvane::contract {

/// What the parser does with a value decides which classes of attribute it can work with.
enum class Use { truth, number, text, entity, list, trace };

/// An attribute with a role in the parser.
struct Role {
  const char* name;
  int SyntaxAtts::*index;
  Use use;
};
inline constexpr Role kRoles[] = {
    // Vectors of the arguments that a word takes; its frame node has a position for each.
    {"args", &SyntaxAtts::args, Use::list},
    // False: a noun phrase that needs case.
    {"cm", &SyntaxAtts::cm, Use::truth},
    // The category letter, one of kCategories.
    {kCategoryAtt, &SyntaxAtts::cat, Use::number},
    // The form that stands for a word without a lexical item, in dependency costs.
    {"cform", &SyntaxAtts::cform, Use::text},
    // Which displaced constituents a modifier may fill: a mask over the values of `slash`.
    {"check", &SyntaxAtts::check, Use::number},
    // True: the head keeps its own displaced constituents apart from its modifier's.
    {"control", &SyntaxAtts::control, Use::truth},
    // False: a head that asks for no case.
    {"govern", &SyntaxAtts::govern, Use::truth},
    // False: an adjunct that may not stand between a head and its modifier.
    {"guest", &SyntaxAtts::guest, Use::truth},
    // True: the head stands behind its arguments.
    {"head_final", &SyntaxAtts::head_final, Use::truth},
    // Set on a coordination once its last conjunct is in.
    {"last_conj", &SyntaxAtts::last_conj, Use::number},
    // The lexical item of the head word.
    {"lexitem", &SyntaxAtts::lexitem, Use::entity},
    // The displaced constituents that are still to be filled; in an argument, true asks for one.
    {"move", &SyntaxAtts::move, Use::list},
    // The name of the node that a word belongs to, instead of the one made from its frame.
    {"node", &SyntaxAtts::node, Use::text},
    // True: an argument that may be missing.
    {"opt", &SyntaxAtts::opt, Use::truth},
    // The text of a preposition.
    {"pform", &SyntaxAtts::pform, Use::text},
    // Looked up with the others; nothing reads it.
    {"rare", &SyntaxAtts::rare, Use::truth},
    // On a sense that refers to another one: `ref-entry` fills it in.
    {"ref", &SyntaxAtts::ref, Use::text},
    // The relation that an argument gets in the result.
    {"role", &SyntaxAtts::role, Use::text},
    // What kind of constituent is displaced.
    {kDisplacedAtt, &SyntaxAtts::slash, Use::number},
    // The words that a displaced constituent belongs to.
    {"trace", &SyntaxAtts::trace, Use::trace},
};

/// A value of `cat`, and the node of words (and the part of a frame's name) that it stands for.
struct Category {
  const char* letter;
  AttWord SyntaxAtts::*value;
  const char* node;
};
inline constexpr Category kCategories[] = {
    {"a", &SyntaxAtts::cat_a, "A"},    {"c", &SyntaxAtts::cat_c, "C"},
    {"d", &SyntaxAtts::cat_d, "Det"},  {"i", &SyntaxAtts::cat_i, "I"},
    {"j", &SyntaxAtts::cat_j, "Conn"}, {"n", &SyntaxAtts::cat_n, "N"},
    {"p", &SyntaxAtts::cat_p, "P"},    {"v", &SyntaxAtts::cat_v, "V"},
};

}  // namespace torvane::contract

namespace torvane {

/// The category letter's node name: "n" gives "N", "d" gives "Det"; "" for any other.
inline const char* category_node_name(const AttVec& vec) {
  const SyntaxAtts& syn = syntax_atts(vec);
  AttWord cat = value_of(vec, syn.cat);
  if (cat == 0) return "";
  for (const contract::Category& category : contract::kCategories)
    if (cat == syn.*category.value) return category.node;
  return "";
}

}  // namespace torvane
