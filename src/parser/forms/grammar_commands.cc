// The commands by which a grammar file builds the network of the current parser.
#include "parser/forms/att_names.h"
#include "parser/forms/offers.h"
#include "parser/forms/positions.h"
#include "parser/grammar/contract.h"
#include "parser/parsing.h"
#include "shell/world.h"

namespace torvane {
namespace {

/// The parser that grammar commands may change now, or null.
TorvaneParser* open_grammar(World& world) {
  TorvaneParser* parser = current_parser(world);
  return parser && !refuse_while_parsing(world, "the grammar") ? parser : nullptr;
}
// Kept: homeless-grammar-command
GCate* current_category(World& world) {
  TorvaneParser* parser = open_grammar(world);
  return parser ? parser->current_category : nullptr;
}
Link* current_link(World& world) {
  TorvaneParser* parser = open_grammar(world);
  return parser ? parser->current_link : nullptr;
}

void run_commands(World& world, const IRSlist& form) {
  for (IRSlist* command : form.items)
    if (command->is_list()) world.interpreter.eval(*command);
}

/// The attributes of one argument, and of all arguments: one list, or bare names.
AttSet get_atts(const TorvaneParser& parser, const IRSlist* names) {
  return read_atts(names, parser.grammar._att_type, "GCate::get_atts");
}
AttSet get_all_atts(const TorvaneParser& parser, const IRSlist* form) {
  AttSet atts;
  for (IRSlist* names : form->items) atts |= get_atts(parser, names);
  return atts;
}

Value def_category(World& world, IRSlist* form) {
  TorvaneParser* parser = open_grammar(world);
  const char* name = parser ? form->get_str_val() : nullptr;
  if (!name) return Value();
  parser->current_category = parser->grammar.get_node(name, true);
  run_commands(world, *form);
  parser->current_category = nullptr;
  return Value();
}

Value def_modifiers(World& world, IRSlist* form) {
  TorvaneParser* parser = open_grammar(world);
  GCate* node = parser ? parser->grammar.get_node(form->get_str_val(), false) : nullptr;
  // Kept: unknown-category-is-passed
  if (!node) return Value();
  // Kept: def-modifiers-stays-open
  parser->current_category = node;
  build_positions(*parser, *node, form);
  return Value();
}

Value def_subcat(World& world, IRSlist* form) {
  TorvaneParser* parser = open_grammar(world);
  const char* name = parser ? form->get_str_val() : nullptr;
  if (!name) return Value();
  GCate* node = parser->grammar.get_node(name, true);
  GCate* parent = parser->grammar.get_node(form->get_str_val(), false);
  if (!parent) return Value();
  build_positions(*parser, *node, form);
  node->_is_subcat = true;
  world.places.keep(parser->grammar.link_subcat(*parent, *node), world.places.current);
  return Value();
}

Value def_subclass(World& world, IRSlist* form) {
  TorvaneParser* parser = open_grammar(world);
  GCate* parent = parser ? parser->grammar.get_node(form->get_str_val(), false) : nullptr;
  if (!parent) return Value();
  for (IRSlist* element : form->items) {
    const char* name = element->get_str_val();
    if (!name) continue;
    GCate* node = parser->grammar.get_node(name, true);
    Link* link = parser->grammar.make_link(parent, node);
    world.places.keep(link, element->place);
    link->set_type(contract::kSubclass);
    link->_is_subclass = true;
    parent->add_link(link, parent->n_positions());
    node->add_out_link(link);
    parser->current_category = node;
    // Kept: def-subclass-stays-open
    parser->current_link = link;
    run_commands(world, *element);
  }
  return Value();
}

Value def_conj_constraints(World& world, IRSlist* form) {
  TorvaneParser* parser = open_grammar(world);
  GCate* node = parser ? parser->grammar.get_node(form->get_str_val(), false) : nullptr;
  if (!node) return Value();
  parser->current_category = node;
  parser->current_link = node->_conj_link;
  run_commands(world, *form);
  parser->current_category = nullptr;
  parser->current_link = nullptr;
  return Value();
}

template <AttSet GCate::*atts>
Value set_category_atts(World& world, IRSlist* form) {
  if (GCate* node = current_category(world))
    node->*atts = get_all_atts(*current_parser(world), form);
  return Value();
}

Value conj_atts(World& world, IRSlist* form) {
  GCate* node = current_category(world);
  if (!node) return Value();
  TorvaneParser& parser = *current_parser(world);
  node->_conj_same = get_atts(parser, form->nth(0));
  node->_conj_consistent = get_atts(parser, form->nth(1));
  node->_conj_link = parser.grammar.make_link(node, node);
  world.places.keep(node->_conj_link, world.places.current);
  node->_conj_link->set_type(contract::kConjunct);
  return Value();
}

template <ExpPtr GCate::*cond>
Value set_category_cond(World& world, IRSlist* form) {
  if (GCate* node = current_category(world)) node->*cond = LExp::take_exp(world, *form);
  return Value();
}

template <Condition Link::*cond>
Value set_link_cond(World& world, IRSlist* form) {
  if (Link* link = current_link(world)) link->*cond = ExpPtr(LExp::take_exp(world, *form));
  return Value();
}

template <int Link::*number>
Value set_link_number(World& world, IRSlist* form) {
  if (Link* link = current_link(world)) link->*number = static_cast<int>(form->get_long_val());
  return Value();
}

Value dep_type(World& world, IRSlist* form) {
  if (Link* link = current_link(world)) link->set_type(form->get_str_val());
  return Value();
}

Value allow_guest(World& world, IRSlist*) {
  if (Link* link = current_link(world)) link->_no_guest = false;
  return Value();
}

Value dep_weight(World& world, IRSlist* form) {
  if (Link* link = current_link(world)) link->set_weight(form->get_float_val());
  return Value();
}

Value percolate(World& world, IRSlist* form) {
  if (Link* link = current_link(world))
    link->_percolate = get_all_atts(*current_parser(world), form);
  return Value();
}

Value block(World& world, IRSlist* form) {
  if (Link* link = current_link(world))
    link->_percolate &= get_all_atts(*current_parser(world), form).complement();
  return Value();
}

Value check_slash(World& world, IRSlist* form) {
  Link* link = current_link(world);
  const SyntaxAtts& syn = parsing(world).atts;
  const AttInterpreter* check = link && syn.type ? syn.type->at(syn.check) : nullptr;
  if (check && !form->empty()) link->_check |= static_cast<std::uint32_t>(check->make_val(form));
  return Value();
}

Value default_percolating_atts(World& world, IRSlist* form) {
  if (TorvaneParser* parser = open_grammar(world))
    parser->grammar._percolating = get_all_atts(*parser, form);
  return Value();
}

Value roots(World& world, IRSlist* form) {
  TorvaneParser* parser = open_grammar(world);
  if (!parser) return Value();
  parser->grammar._roots.clear();
  for (IRSlist* element : form->items) {
    GCate* node = parser->grammar.get_node(
        element->is_atom() ? element->atom : element->get_str_val(), false);
    if (!node) continue;
    ExpPtr filter = LExp::take_exp(world, *element);
    ExpPtr penalty = LExp::take_exp(world, *element);
    parser->grammar._roots.push_back({node, std::move(filter), std::move(penalty)});
  }
  return Value();
}

constexpr Command kGrammarCommands[] = {
    {"def-category", def_category,
     "(def-category CATEGORY COMMAND1 .... COMMANDn) define a category."},
    // Kept: def-modifiers-stands-alone
    {"def-modifiers", def_modifiers,
     "(def-modifiers POSITION1 .... POSITIONn) define the modifiers of a category which this "
     "def-modifiers command is inside the def-category command of."},
    {"def-subcat", def_subcat,
     "(def-subcat cat parent MODIFIER1 .... MODIFIERn) define a subcategory."},
    // Kept: def-subclass-doc
    {"def-subclass", def_subclass,
     "(def-subcat parent CATEGORY1 ... CATEGORYn) define subclasses of parent. CAGEGORYi is in the "
     "same format as the arguments of def-category command."},
    {"visible-atts", set_category_atts<&GCate::_visible>,
     "(visible-atts (att1 att2 ...)) define the attributes that are to be propagated to the parent "
     "nodes (unless they are explicitly blocked)."},
    {"subcat-atts", set_category_atts<&GCate::_subcat_atts>,
     "(subcat-atts (att1 att2 ...)) define the attributes that are percolated from subcategories."},
    {"conj-atts", conj_atts,
     "(conj-atts (att1 ... attn) (att1' ... attn')) the conjuncts must have identical values for "
     "att1 ... attn and consistent values of att1' ... attn'."},
    {"def-conj-constraints", def_conj_constraints, nullptr,
     "`(def-conj-constraints CATEGORY COMMAND ...)` commands for the link that joins conjuncts"},
    {"full-pitem-cond", set_category_cond<&GCate::_full_cond>,
     "(full-pitem-cond LExp) if a pitem satisfies this condition, it is considered to be complete "
     "and sent to parent nodes."},
    {"minimal-modifier-cond", set_category_cond<&GCate::_minimal_cond>,
     "(minimal-modifier-cond LExp) if a modifier satisfies this condition, it is consider to be "
     "minimal modifier. In other words, if something could possibly be a modifier at the position, "
     "then it must be."},
    {"modifier-cond", set_link_cond<&Link::_modifier_cond>,
     "(modifier-cond LExp) the condition that must be satisfied by a modifier."},
    {"modifiee-cond", set_link_cond<&Link::_modifiee_cond>,
     "(modifiee-cond LExp) the condition that must be satisfied by a modifiee."},
    {"merged-cond", set_link_cond<&Link::_merged_cond>,
     "(merged-cond LExp) the condition that must be satisfied by a merged item."},
    {"head-cond", set_link_cond<&Link::_head_cond>,
     "(head-cond LExp) the condition that must be satisfied by a head item for it to be projected "
     "to a higher level."},
    {"dep-type", dep_type, "(dep-type name) the name of the type of a dependency relation."},
    {"max-dist", set_link_number<&Link::_max_dist>,
     "(max-dist dist) the maximum distance between modifier and modifiee."},
    {"check-arg", set_link_number<&Link::_check_arg>,
     "(check-arg index) make sure the args attribute of the head is consistant with the attribute "
     "of the index'th modifier."},
    {"allow-guest", allow_guest, "(allow-guest) allow guest items."},
    {"dep-weight", dep_weight,
     "(dep-weight weight) assign a weight to a dependency relation (this command must be part of "
     "def-modifiers command)."},
    {"percolate", percolate, nullptr,
     "`(percolate (att ...))` the link copies exactly these attributes"},
    {"block", block, nullptr, "`(block (att ...))` the link does not copy these attributes"},
    {"check-slash", check_slash,
     "(check-slash att1 att2) att1 and att2 are values of checker attribute"},
    {"default-percolating-atts", default_percolating_atts, nullptr,
     "`(default-percolating-atts (att ...))` the attributes that links copy unless they say "
     "otherwise"},
    {"roots", roots, "(roots (CATEGORY1 COND1) (CATEGORY2 COND2) ...)"},
};

}  // namespace

constinit const Offer offers::grammar_commands{kGrammarCommands};

}  // namespace torvane
