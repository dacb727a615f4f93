#include "parser/forms/positions.h"

#include <cstring>

#include "shell/exec.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {
namespace {

constexpr int kMostPositions = 32000;  // a link keeps its position in 16 bits

void read_mark(GCate& node, int position, const char* mark) {
  // Kept: unknown-mark-is-dropped
  if (std::strcmp(mark, "*") == 0) {
    node.mark(position, PositionMark::repeat);
    node.mark(position, PositionMark::optional);
  } else if (std::strcmp(mark, "?") == 0) {
    node.mark(position, PositionMark::optional);
  } else if (std::strcmp(mark, "+") == 0) {
    node.mark(position, PositionMark::repeat);
  } else if (same_word(mark, ":head")) {
    node.set_head(position);
  } else if (same_word(mark, ":minimal")) {
    node.mark(position, PositionMark::minimal);
  } else if (same_word(mark, ":skip-adjunct")) {
    node.mark(position, PositionMark::skip_adjunct);
  }
}

void read_link(TorvaneParser& parser, GCate& node, int position, IRSlist* form) {
  PlaceScope here(parser._world.places, form->place);
  const char* name = form->is_atom() ? form->atom : form->get_str_val();
  GCate* child = form->is_atom() ? nullptr : parser.grammar.get_node(name, false);
  if (!child) {
    messages() << "Node: " << or_empty(name) << " is not defined\n";
    return;
  }
  Link* link = parser.grammar.make_link(&node, child);
  parser._world.places.keep(link, form->place);
  link->_percolate = child->_visible & parser.grammar._percolating;
  node.add_link(link, position);
  if (node.skips_adjunct(position)) link->_no_guest = false;
  child->add_out_link(link);
  parser.current_link = link;
  for (IRSlist* command : form->items) parser._world.interpreter.eval(*command);
  parser.current_link = nullptr;
}

void read_position(TorvaneParser& parser, GCate& node, int position, IRSlist* form) {
  PlaceScope here(parser._world.places, form->place);
  auto skip_word = form->take_keyword_node(":skip-word");
  node.add_skip_cond(skip_word ? LExp::get_exp(parser._world, skip_word.get()) : nullptr);
  while (!form->empty() && form->nth(0)->is_atom()) read_mark(node, position, form->get_str_val());
  for (IRSlist* element : form->items) read_link(parser, node, position, element);
}

}  // namespace

void build_positions(TorvaneParser& parser, GCate& node, IRSlist* positions) {
  int n = positions->length();
  if (n > kMostPositions) {
    messages() << "def-modifiers: " << node._name << " has too many positions\n";
    return;
  }
  parser.chart.clear(node);
  std::vector<Link*> kept = node.start_positions(n);
  for (int i = 0; i < n; ++i) node.require(i);
  int i = 0;
  for (IRSlist* form : positions->items) read_position(parser, node, i++, form);
  node.keep_links(kept);
}

}  // namespace torvane
