#include "parser/grammar/g_cate.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "parser/grammar/contract.h"
#include "parser/grammar/grammar.h"

namespace torvane {
namespace {

constexpr float kGuestWeight = 30.0f;

bool outlives_positions(const Link& link) {
  return link._is_subclass || link.kind() == LinkKind::subcat;
}

}  // namespace

GCate::GCate(Grammar& grammar, const char* name, int number)
    : _grammar(grammar),
      _number(number),
      first_column_(grammar.new_columns(2)),
      columns_(2),
      positions_(2),
      _guest_link(grammar.make_link(this, this)),
      _name(name),
      _short_name(_name.substr(0, _name.find('_'))) {
  out_links_.reserve(10);
  _guest_link->set_type(contract::kGuest);
  // Kept: guest-weight-not-added
  _guest_link->set_weight(kGuestWeight);
}

bool GCate::requires_between(int from, int to) const {
  for (int i = std::max(from, 0); i < to; ++i)
    if (required(i)) return true;
  return false;
}

std::vector<Link*> GCate::start_positions(int n) {
  std::vector<Link*> kept;
  for (const auto& row : positions_)
    for (Link* link : row) {
      if (outlives_positions(*link)) {
        kept.push_back(link);
      } else if (link->_child) {
        link->_child->remove_out_link(link);
      }
    }
  n_positions_ = n;
  if (n + 1 > columns_) {
    columns_ = n + 1;
    first_column_ = _grammar.new_columns(columns_);
  }
  positions_.assign(n + 1, {});
  head_ = -1;
  repeat_ = required_ = minimal_ = skip_adjunct_ = 0;
  skip_conds_.clear();
  return kept;
}

void GCate::keep_links(const std::vector<Link*>& links) {
  for (Link* link : links) {
    int position = link->_is_subclass ? n_positions_ : head_;
    if (position < 0) {
      link->_child->remove_out_link(link);
    } else {
      put_link(link, position);
    }
  }
}

void GCate::mark(int position, PositionMark mark) {
  switch (mark) {
    case PositionMark::repeat:
      return set_bit(repeat_, position);
    case PositionMark::optional:
      return clear_bit(required_, position);
    case PositionMark::minimal:
      return set_bit(minimal_, position);
    case PositionMark::skip_adjunct:
      return set_bit(skip_adjunct_, position);
  }
}

void GCate::build_frame(const AttVecList* args, bool head_final) {
  int k = args ? args->length() : 0;
  start_positions(k + 1);
  head_ = head_final ? k : 0;
  int first = head_final ? 0 : 1;
  for (int i = 0; i < k; ++i) {
    int p = i + first;
    GCate* child = _grammar.get_node(category_node_name(*args->at(i)), false);
    Link* link = _grammar.make_link(this, child);
    link->_no_guest = false;
    char type[16];
    std::snprintf(type, sizeof type, "%s%d", contract::kComplement, p);
    link->set_type(type);
    link->_check_arg = i;
    mark(p, PositionMark::skip_adjunct);
    add_link(link, p);
    link->_percolate = _grammar._percolating;
    if (child) child->add_out_link(link);
  }
}

void GCate::put_link(Link* link, int position) {
  link->place(position, link->column() < 0 ? _grammar.new_columns(1) : link->column());
  positions_[position].push_back(link);
}

void GCate::add_link(Link* link, int position) {
  if (position < 0 || position > n_positions_) return;
  put_link(link, position);
  // Kept: head-link-percolates-all
  if (position == head_ && link->_child) link->_percolate = link->_child->_visible;
}

void GCate::add_out_link(Link* link) {
  auto place = std::upper_bound(out_links_.begin(), out_links_.end(), link->weight(),
                                [](float weight, const Link* l) { return weight < l->weight(); });
  if (_grammar.frames_by_name && link->_parent->_is_subcat)
    place = std::find_if(out_links_.begin(), place, [&](const Link* l) {
      return l->weight() == link->weight() && l->_parent->_is_subcat &&
             l->_parent->_name > link->_parent->_name;
    });
  out_links_.insert(place, link);
}

void GCate::remove_out_link(Link* link) {
  std::erase(out_links_, link);
}

void GCate::reinsert_out_link(Link* link) {
  if (std::erase(out_links_, link) > 0) add_out_link(link);
}

}  // namespace torvane
