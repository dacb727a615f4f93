// The contract with grammars: all that the engine itself knows of a language, by name. What a
// grammar writes under these names has the effect that stands beside them; every other name in it
// means nothing to the engine. (The attributes with a role in the parser stand beside their
// handles, in parser/grammar/contract.h.)
#pragma once

#include <cstring>
#include <string_view>

namespace torvane::contract {

// Words as they are written.

inline constexpr char kComma[] = ",";
/// Cuts a compound. The analyser makes a word of its own of it, as of an apostrophe.
inline constexpr char kHyphen = '-';
inline constexpr char kApostrophe = '\'';
/// A word that begins so, and goes on, counts as one though it has no letter in front.
inline constexpr char kWordMarks[] = "$#'";
/// Before a doubled consonant stands one of these.
inline constexpr char kVowels[] = "aeiou";
/// What a name may pass over when it is abbreviated, sorted.
inline constexpr std::string_view kSmallWords[] = {"about", "among", "as", "at",   "but", "by",
                                                   "for",   "from",  "in", "into", "of",  "off",
                                                   "on",    "out",   "to", "up",   "with"};

/// The roles of the components of a name with its abbreviation.
inline constexpr char kAbbreviation[] = "abbrev";
inline constexpr char kSpelledOut[] = "spellout";

// Attributes.

/// The attribute type that is searched for the attributes with a role in the parser.
inline constexpr char kAttType[] = "syn";
/// The attribute of the category letter.
inline constexpr char kCategoryAtt[] = "cat";
/// The attribute of a displaced constituent's kind, and the kind of which there may be one in a
/// clause.
inline constexpr char kDisplacedAtt[] = "slash";
inline constexpr char kWh[] = "wh";

// Nodes and relations of the network.

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

// The result.

/// The root form of what has no word.
inline constexpr char kNoWord[] = "~";
/// Begins the label of a node without a word.
inline constexpr char kEmptyLabel = 'E';
/// Printed for a node without a category.
inline constexpr char kNoCategory[] = "U";
/// The property of a trace in the result that names what it stands for.
inline constexpr char kAntecedent[] = "ante";

// Costs.

/// The kind of a lexical entry's meaning that lists the weights of its categories.
inline constexpr char kFrequencies[] = "freq";
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

}  // namespace torvane::contract

namespace torvane {

inline bool is_comma(const char* word) {
  return word && std::strcmp(word, contract::kComma) == 0;
}

/// Cut off from the word that it stands in.
inline bool is_cut_off(char c) {
  return c == contract::kApostrophe || c == contract::kHyphen;
}

}  // namespace torvane
