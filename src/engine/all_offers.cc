#include "engine/all_offers.h"

#include "att/offers.h"
#include "deps/offers.h"
#include "lex/chart/offers.h"
#include "lex/lexicon/offers.h"
#include "lex/patterns/offers.h"
#include "lex/rules/offers.h"
#include "lexp/offers.h"
#include "parser/forms/offers.h"
#include "shell/offers.h"
#include "store/commands/offers.h"
#include "treerules/offers.h"
#include "triples/offers.h"
#include "triples/reports/offers.h"
#include "wordsim/offers.h"

namespace torvane {

namespace {

constexpr const Offer* kAllOffers[] = {
    &offers::define_attribute,
    &offers::scalar_atts,
    &offers::text_atts,
    &offers::disjunction_atts,
    &offers::nested_atts,
    &offers::list_atts,
    &offers::trace_att,
    &offers::tokenizer_commands,
    &offers::object_factory,
    &offers::meaning,
    &offers::lex_entry,
    &offers::endings,
    &offers::lexicon_commands,
    &offers::lexicon_files,
    &offers::lex_analyzer_commands,
    &offers::lexical_rules,
    &offers::pattern,
    &offers::atom_patterns,
    &offers::multi_patterns,
    &offers::repeat_patterns,
    &offers::control_forms,
    &offers::variable_forms,
    &offers::exec_commands,
    &offers::stream_forms,
    &offers::functions,
    &offers::eval,
    &offers::foreach,
    &offers::macro,
    &offers::item_setters,
    &offers::deleting_actions,
    &offers::searching_actions,
    &offers::flag_actions,
    &offers::component_actions,
    &offers::making_actions,
    &offers::compound_look_up,
    &offers::abbreviations,
    &offers::antecedent_forms,
    &offers::att_forms,
    &offers::att_constants,
    &offers::att_value_forms,
    &offers::att_pair_forms,
    &offers::avlist_forms,
    &offers::match_accessors,
    &offers::item_forms,
    &offers::reg_forms,
    &offers::word_forms,
    &offers::string_forms,
    &offers::print_forms,
    &offers::integer_forms,
    &offers::str_sim,
    &offers::word_list,
    &offers::constants,
    &offers::tree_modifier,
    &offers::tree_patterns,
    &offers::tree_conditions,
    &offers::tree_edits,
    &offers::node_selectors,
    &offers::node_edits,
    &offers::match_forms,
    &offers::node_adaptors,
    &offers::dep_walk_forms,
    &offers::prop_forms,
    &offers::trel,
    &offers::read_and_modify_deps,
    &offers::deps_text_forms,
    &offers::dep_print_forms,
    &offers::print_flags,
    &offers::sentence_boundary,
    &offers::llrule,
    &offers::att_commands,
    &offers::aliases,
    &offers::grammar_commands,
    &offers::parser_commands,
    &offers::parser_definition,
    &offers::pitem_forms,
    &offers::word_walk_forms,
    &offers::node_name,
    &offers::set_head_of_lexitem,
    &offers::case_marks,
    &offers::isolate,
    &offers::ref_entry,
    &offers::init_attributes,
    &offers::store_commands,
    &offers::triple_commands,
    &offers::search_tripledbs,
    &offers::high_mutinfo,
    &offers::mutinfo_reports,
    &offers::make_avg_entry,
    &offers::word_pair_reports,
    &offers::entry_reports,
    &offers::cluster_names,
    &offers::entry_in_html,
    &offers::entry_comparison,
    &offers::sim_commands,
    &offers::word_sim,
};

}  // namespace

std::span<const Offer* const> all_offers() {
  return kAllOffers;
}

}  // namespace torvane
