// Which node a word belongs to, and the nodes that are made for subcategorisation frames.
#include "parser/grammar/contract.h"
#include "parser/grammar/grammar.h"

namespace torvane {
namespace {

void append_node_name(const AttVec& vec, std::string& out) {
  const SyntaxAtts& syn = syntax_atts(vec);
  if (has_att(vec, syn.node)) {
    out += or_empty(text_of(vec, syn.node).c_str());
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

}  // namespace

std::string node_name_of(const AttVec& vec) {
  std::string name;
  append_node_name(vec, name);
  return name;
}

GCate* Grammar::node_of_vec(const AttVec& vec) {
  name_buffer_.clear();
  append_node_name(vec, name_buffer_);
  if (name_buffer_.empty()) return nullptr;
  if (GCate* node = get_node(name_buffer_.c_str(), false)) return node;
  GCate* base = get_node(category_node_name(vec), false);
  bool has_args = has_att(vec, syntax_atts(vec).args);
  return has_args && base ? make_frame(name_buffer_.c_str(), *base, vec) : base;
}

GCate* Grammar::make_frame(const char* name, GCate& base, const AttVec& vec) {
  const SyntaxAtts& syn = syntax_atts(vec);
  GCate* frame = get_node(name, true);
  frame->_is_subcat = true;
  frame->_visible = base._visible | base._subcat_atts;
  if (Link* link = link_subcat(base, *frame))
    for (int att : {syn.cat, syn.lexitem})
      if (att >= 0) link->_percolate.set(att);
  frame->build_frame(list_of(vec, syn.args), is_true(vec, syn.head_final));
  return frame;
}

}  // namespace torvane
