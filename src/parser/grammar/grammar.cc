#include "parser/grammar/grammar.h"

#include <utility>

#include "parser/grammar/contract.h"

namespace torvane {

Grammar::Grammar(int hashtable_size) : _nodes(hashtable_size) {
  set_empty_category(contract::kEmptyCategory, contract::kEmptyRelation);
}

int Grammar::new_columns(int n) {
  return std::exchange(columns_, columns_ + n);
}

GCate* Grammar::new_node(const char* name) {
  own_nodes_.push_back(std::make_unique<GCate>(*this, name, node_count()));
  return own_nodes_.back().get();
}

GCate* Grammar::get_node(const char* name, bool create) {
  if (auto* entry = _nodes.find(name)) return entry->value;
  if (!create || !name) return nullptr;
  GCate* node = new_node(name);
  _nodes.insert(name, node);
  if (!adjunct_) adjunct_ = get_node(contract::kAdjunctNode, false);
  return node;
}

Link* Grammar::make_link(GCate* parent, GCate* child) {
  own_links_.push_back(std::make_unique<Link>(parent, child));
  return own_links_.back().get();
}

Link* Grammar::link_subcat(GCate& parent, GCate& child) {
  if (parent.head() < 0) return nullptr;
  Link* link = make_link(&parent, &child);
  link->set_type(contract::kSubcat);
  parent.add_link(link, parent.head());
  child.add_out_link(link);
  return link;
}

void Grammar::set_empty_category(const char* name, const char* relation) {
  _empty_node = new_node(name);
  _empty_link = make_link(_empty_node, _empty_node);
  _empty_link->set_type(relation);
}

}  // namespace torvane
