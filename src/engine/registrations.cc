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
#include "lexp/lexp.h"
#include "lexp/sentence_boundary.h"
#include "parser/forms/parser_commands.h"
#include "shell/exec.h"
#include "shell/object_factory.h"
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
    {"attribute types and the value types of properties", register_types},
    {"tokenizers", register_tokenizer_commands},
    {"the object factory", register_object_factory_commands},
    {"the lexicon", register_lexicon_commands},
    {"the lexical analyser", register_analyser},
    {"lexical patterns", register_patterns},
    {"core forms", register_core_forms},
    {"rule actions and antecedent lists", register_rule_actions},
    {"attribute predicates", register_attribute_forms},
    {"lexical item predicates", register_item_predicates},
    {"string functions and word lists", register_string_forms},
    {"integer and regular expression functions", register_integer_forms},
    {"constants", register_constant_forms},
    {"tree rules", register_tree_rules},
    {"dependency tree expressions", register_deps_forms},
    {"sentence boundaries", register_sentence_boundary_forms},
    {"left and right context rules", register_llrule_commands},
    {"attributes", register_attribute_commands},
    {"the parser", register_parser_commands},
    {"initial attributes", register_init_attributes},
    {"the sentence separator", register_sentence_separator},
    {"antecedent list expressions", register_antecedent_forms},
    {"the attribute vector meaning", register_avmeaning_proto},
    {"triple databases", register_triple_commands},
    {"similar words", register_similar_words},
};

}  // namespace

std::span<const Registration> registrations() {
  return kRegistrations;
}

}  // namespace torvane
