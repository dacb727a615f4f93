#include "engine/registrations.h"

#include "att/att_interpreter.h"
#include "deps/dep_forms.h"
#include "deps/val_types.h"
#include "lex/chart/item_forms.h"
#include "lex/chart/lex_analyzer.h"
#include "lex/lexicon/lexicon.h"
#include "lex/lexicon/meaning.h"
#include "lex/patterns/match_accessors.h"
#include "lex/patterns/patterns.h"
#include "lex/rules/antecedent_list.h"
#include "lex/rules/lexical_rules.h"
#include "lex/rules/llrule.h"
#include "lex/rules/rule_actions.h"
#include "lexp/offers.h"
#include "lexp/sentence_boundary.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"
#include "shell/offers.h"
#include "treerules/tree_modifier.h"
#include "triples/triple_commands.h"
#include "wordsim/sim_word_db.h"

namespace torvane {

namespace {

void register_types(World& world) {
  register_value_types(world);
  register_attribute_types(world);
}

void register_analyser(World& world) {
  register_lex_analyzer_commands(world);
  register_lexical_rule_commands(world);
}

void register_item_predicates(World& world) {
  register_match_accessors(world);
  register_item_forms(world);
}

constexpr Registration kRegistrations[] = {
    {nullptr, "attribute types and the value types of properties", register_types},
    {&offers::tokenizer_commands},
    {&offers::object_factory},
    {nullptr, "the lexicon", register_lexicon_commands},
    {nullptr, "the lexical analyser", register_analyser},
    {nullptr, "lexical patterns", register_patterns},
    {&offers::control_forms},
    {&offers::variable_forms},
    {&offers::exec_commands},
    {&offers::stream_forms},
    {&offers::functions},
    {&offers::eval},
    {&offers::foreach},
    {&offers::macro},
    {nullptr, "rule actions and antecedent lists", register_rule_actions},
    {nullptr, "attribute predicates", register_attribute_forms},
    {nullptr, "lexical item predicates", register_item_predicates},
    {&offers::reg_forms},
    {&offers::word_forms},
    {&offers::string_forms},
    {&offers::print_forms},
    {&offers::integer_forms},
    {&offers::str_sim},
    {&offers::word_list},
    {&offers::constants},
    {nullptr, "tree rules", register_tree_rules},
    {nullptr, "dependency tree expressions", register_deps_forms},
    {nullptr, "sentence boundaries", register_sentence_boundary_forms},
    {nullptr, "left and right context rules", register_llrule_commands},
    {nullptr, "attributes", register_attribute_commands},
    {nullptr, "the parser", register_parser_commands},
    {nullptr, "initial attributes", register_init_attributes},
    {nullptr, "the sentence separator", register_sentence_separator},
    {nullptr, "antecedent list expressions", register_antecedent_forms},
    {nullptr, "the attribute vector meaning", register_avmeaning_proto},
    {nullptr, "triple databases", register_triple_commands},
    {nullptr, "similar words", register_similar_words},
};

}  // namespace

std::span<const Registration> registrations() {
  return kRegistrations;
}

}  // namespace torvane
