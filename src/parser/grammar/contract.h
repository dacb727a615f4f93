// The contract with grammars: all that the parser itself knows of a language, by name. What a
// grammar writes under these names has the effect that stands beside them; every other name in it
// means nothing to the parser.
#pragma once

#include <cstring>

#include "parser/grammar/syntax_atts.h"

namespace torvane::contract {

/// The attribute type that is searched for the attributes below.
inline constexpr char kAttType[] = "syn";

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
    {"cat", &SyntaxAtts::cat, Use::number},
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
    {"slash", &SyntaxAtts::slash, Use::number},
    // The words that a displaced constituent belongs to.
    {"trace", &SyntaxAtts::trace, Use::trace},
};

/// The value of `slash` of which there may be one in a clause.
inline constexpr char kWh[] = "wh";

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

/// The node whose complete items may stand between a head and its modifier (`:skip-adjunct`).
inline constexpr char kAdjunctNode[] = "Adjunct";
/// The node and the relation of gaps, unless the parser is given others.
inline constexpr char kEmptyCategory[] = "EC";
inline constexpr char kEmptyRelation[] = "ECR";

// Relations that the network's own links have. A link that a grammar gives one of the first two
// names is taken for such a link.
inline constexpr char kGuest[] = "guest";    ///< an adjunct between head and modifier; costs more
inline constexpr char kSubcat[] = "subcat";  ///< from a frame; stays when positions are replaced
inline constexpr char kSubclass[] = "subclass";
inline constexpr char kConjunct[] = "conj";
/// Begins the relation to an argument. The argument's own role, if it has one, is put in its place.
inline constexpr char kComplement[] = "comp";
/// The relation of components of a lexical item that name none, and of its other words.
inline constexpr char kLexicalPart[] = "lex-dep";
inline constexpr char kLexicalWord[] = "lex-mod";

/// The root form of what has no word.
inline constexpr char kNoWord[] = "~";
/// The kind of a lexical entry's meaning that lists the weights of its categories.
inline constexpr char kFrequencies[] = "freq";
/// The property of a trace in the result that names what it stands for.
inline constexpr char kAntecedent[] = "ante";

/// In dependency costs, categories that count as another one.
struct Renaming {
  const char* category;
  const char* counts_as;
};
inline constexpr Renaming kCostCategories[] = {
    {"NN", "N"},  // nouns before nouns
    {"I", "V"},   // a clause, by its verb
};
/// The same of modifiers alone.
inline constexpr Renaming kCostModifiers[] = {{"Appo", "N"}, {"PRO", "N"}, {"P", "N"}};
/// The root form of numbers; as a modifier it counts as a noun.
inline constexpr char kNumber[] = "_NUM";
inline constexpr char kNoun[] = "N";
/// Heads of this category cost by distance alone.
inline constexpr char kByDistanceAlone[] = "Prep";
/// Under a preposition, this relation is the one to the preposition's clause: it is counted with
/// the preposition, and under this category where the lexical item names none.
inline constexpr char kSubject[] = "subj";
inline constexpr char kClause[] = "C";

inline constexpr char kComma[] = ",";

}  // namespace torvane::contract

namespace torvane {

inline bool is_comma(const char* word) {
  return word && std::strcmp(word, contract::kComma) == 0;
}

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
