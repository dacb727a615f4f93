// Which node a word belongs to, and the nodes that are made at parse time for subcategorisation
// frames.
#include <cstdio>

#include "parser/grammar.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"

namespace torvane {

const char* category_node_name(const AttVec& vec) {
  const SyntaxAtts& syn = syntax_atts(vec);
  AttWord cat = value_of(vec, syn.cat);
  if (cat == 0) return "";
  if (cat == syn.cat_n) return "N";
  if (cat == syn.cat_v) return "V";
  if (cat == syn.cat_p) return "P";
  if (cat == syn.cat_a) return "A";
  if (cat == syn.cat_i) return "I";
  if (cat == syn.cat_c) return "C";
  if (cat == syn.cat_d) return "Det";
  if (cat == syn.cat_j) return "Conn";
  return "";
}

void append_node_name(const AttVec& vec, std::string& out) {
  const SyntaxAtts& syn = syntax_atts(vec);
  if (has_att(vec, syn.node)) {
    out += or_empty(text_of(vec, syn.node));
    return;
  }
  const AttVecList* args = list_of(vec, syn.args);
  int n = args ? args->length() : 0;
  bool head_final = n > 0 && is_true(vec, syn.head_final);
  if (!head_final) out += category_node_name(vec);
  for (int i = 0; i < n; ++i) {
    if (!head_final) out += '_';
    out += category_node_name(*args->at(i));
    if (head_final) out += '_';
  }
  if (head_final) out += category_node_name(vec);
}

std::string node_name_of(const AttVec& vec) {
  std::string name;
  append_node_name(vec, name);
  return name;
}

GCate* TorvaneParser::node_of_vec(const AttVec& vec) {
  name_buffer_.clear();
  append_node_name(vec, name_buffer_);
  if (name_buffer_.empty()) return nullptr;
  if (GCate* node = get_node(name_buffer_.c_str(), false)) return node;
  GCate* base = get_node(category_node_name(vec), false);
  bool has_args = has_att(vec, syntax_atts(vec).args);
  return has_args && base ? make_frame(name_buffer_.c_str(), base, vec) : base;
}

GCate* TorvaneParser::make_frame(const char* name, GCate* base, const AttVec& vec) {
  const SyntaxAtts& syn = syntax_atts(vec);
  GCate* frame = get_node(name, true);
  frame->_is_subcat = 1;
  frame->_visible = base->_visible | base->_subcat_atts;
  if (base->_head >= 0) {
    Link* link = make_link(base, frame);
    link->set_type("subcat");
    base->add_link(link, base->_head);
    frame->add_out_link(link);
    for (int att : {syn.cat, syn.lexitem})
      if (att >= 0) link->_percolate.set(att);
  }
  frame->build_frame(list_of(vec, syn.args), is_true(vec, syn.head_final));
  return frame;
}

void GCate::build_frame(const AttVecList* args, bool head_final) {
  int k = args ? args->length() : 0;
  start_positions(k + 1);
  _head = head_final ? k : 0;
  int first = head_final ? 0 : 1;
  for (int i = 0; i < k; ++i) {
    int p = i + first;
    GCate* child = _parser->get_node(category_node_name(*args->at(i)), false);
    Link* link = _parser->make_link(this, child);
    link->_no_guest = 0;
    char type[16];
    std::snprintf(type, sizeof type, "comp%d", p);
    link->set_type(type);
    link->_check_arg = i;
    _skip_adjunct |= 1u << (p & 31);
    add_link(link, p);
    link->_percolate = _parser->_percolating;
    if (child) child->add_out_link(link);
  }
}

}  // namespace torvane
