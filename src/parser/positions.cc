// The row of positions of a node, as a grammar file writes it.
#include <cstring>

#include "parser/grammar.h"
#include "parser/torvane_parser.h"
#include "shell/exec.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {
namespace {

constexpr int kMostPositions = 32000;  // a link keeps its position in 16 bits

bool outlives_positions(const Link& link) {
  return link._is_subclass || (link._type && std::strcmp(link._type, "subcat") == 0);
}

void set_bit(std::uint32_t& mask, int position) {
  // Kept: positions-wrap-at-32
  mask |= 1u << (position & 31);
}
void clear_bit(std::uint32_t& mask, int position) {
  mask &= ~(1u << (position & 31));
}

}  // namespace

std::vector<Link*> GCate::start_positions(int n) {
  std::vector<Link*> kept;
  for (const auto& row : _positions)
    for (Link* link : row) {
      if (outlives_positions(*link)) {
        kept.push_back(link);
      } else if (link->_child) {
        link->_child->remove_out_link(link);
      }
    }
  reset_sentence();
  _items.clear();
  _n_positions = n;
  _positions.assign(n + 1, {});
  _head = -1;
  _repeat = _required = _minimal = _skip_adjunct = 0;
  _skip_conds.clear();
  return kept;
}

void GCate::build_positions(IRSlist* positions) {
  int n = positions->length();
  if (n > kMostPositions) {
    messages() << "def-modifiers: " << _name << " has too many positions\n";
    return;
  }
  std::vector<Link*> kept = start_positions(n);
  for (int i = 0; i < n; ++i) set_bit(_required, i);
  int i = 0;
  for (IRSlist* form : positions->items) read_position(form, i++);
  for (Link* link : kept) {
    int position = link->_is_subclass ? _n_positions : _head;
    if (position < 0) {
      link->_child->remove_out_link(link);
      continue;
    }
    link->_position = static_cast<std::int16_t>(position);
    _positions[position].push_back(link);
  }
}

void GCate::read_position(IRSlist* form, int position) {
  auto skip_word = form->take_keyword_node(":skip-word");
  _skip_conds.push_back(skip_word ? LExp::get_exp(_parser->_world, skip_word.get()) : nullptr);
  // Kept: unknown-mark-is-dropped
  while (!form->empty() && form->nth(0)->is_atom()) {
    const char* marker = form->get_str_val();
    if (std::strcmp(marker, "*") == 0) {
      set_bit(_repeat, position);
      clear_bit(_required, position);
    } else if (std::strcmp(marker, "?") == 0) {
      clear_bit(_required, position);
    } else if (std::strcmp(marker, "+") == 0) {
      set_bit(_repeat, position);
    } else if (same_word(marker, ":head")) {
      _head = position;
    } else if (same_word(marker, ":minimal")) {
      set_bit(_minimal, position);
    } else if (same_word(marker, ":skip-adjunct")) {
      set_bit(_skip_adjunct, position);
    }
  }
  for (IRSlist* element : form->items) read_link(element, position);
}

void GCate::read_link(IRSlist* form, int position) {
  const char* name = form->is_atom() ? form->atom : form->get_str_val();
  GCate* child = form->is_atom() ? nullptr : _parser->get_node(name, false);
  if (!child) {
    messages() << "Node: " << or_empty(name) << " is not defined\n";
    return;
  }
  Link* link = _parser->make_link(this, child);
  link->_percolate = child->_visible & _parser->_percolating;
  add_link(link, position);
  if (bit(_skip_adjunct, position)) link->_no_guest = 0;
  child->add_out_link(link);
  _parser->current_link = link;
  for (IRSlist* command : form->items) _parser->_world.interpreter.eval(*command);
  _parser->current_link = nullptr;
}

}  // namespace torvane
