#include "parser/grammar.h"

#include <algorithm>
#include <cstring>

#include "parser/torvane_parser.h"
#include "support/text.h"

namespace torvane {
namespace {

constexpr int kWaitingCells = 200;
constexpr int kWaitingMargin = 10;

std::string up_to_underscore(const std::string& name) {
  return name.substr(0, name.find('_'));
}

}  // namespace

void Link::set_type(const char* type) {
  _type = intern_string(type);
  if (!type) return;
  std::string child = _child ? _child->_short_name : "";
  if (child == "COMP") child = "C";
  if (child == "NN") child = "N";
  _key = _parent->_short_name + ":" + type + ":" + child;
}

void Link::park(PItem* item) {
  int high = item->_high;
  if (high < 0) return;
  if (static_cast<std::size_t>(high) >= _waiting.size())
    _waiting.resize(std::max(kWaitingCells, high + kWaitingMargin));
  if (parked_at_.empty()) _parent->_parser->touch(this);
  if (_waiting[high].empty()) parked_at_.push_back(item->_high);
  _waiting[high].append(item);
}

void Link::reset_sentence() {
  for (int high : parked_at_) _waiting[high].clear();
  parked_at_.clear();
}

GCate::GCate(TorvaneParser* parser, const char* name)
    : _parser(parser), _name(name), _short_name(up_to_underscore(_name)), _positions(2) {
  _out_links.reserve(10);
  _guest_link = parser->make_link(this, this);
  _guest_link->set_type("guest");
  // Kept: guest-weight-not-added
  _guest_link->_weight = 30.0f;
}

void GCate::add_link(Link* link, int position) {
  if (position < 0 || position > _n_positions) return;
  link->_position = static_cast<std::int16_t>(position);
  _positions[position].push_back(link);
  // Kept: head-link-percolates-all
  if (position == _head && link->_child) link->_percolate = link->_child->_visible;
}

void GCate::add_out_link(Link* link) {
  auto place = std::upper_bound(_out_links.begin(), _out_links.end(), link->_weight,
                                [](float weight, const Link* l) { return weight < l->_weight; });
  _out_links.insert(place, link);
}

void GCate::remove_out_link(Link* link) {
  std::erase(_out_links, link);
}

void GCate::reinsert_out_link(Link* link) {
  if (std::erase(_out_links, link) > 0) add_out_link(link);
}

Slist<PItem*>* GCate::get_bucket(int position, int word_index) {
  if (word_index < 0 || position < 0 || position > _n_positions) return nullptr;
  if (static_cast<std::size_t>(word_index) >= _items.size()) _items.resize(word_index + 1);
  auto& row = _items[word_index];
  if (row.empty()) row.resize(_n_positions + 1);
  Slist<PItem*>& cell = row[position];
  if (cell.empty()) {
    if (used_cells_.empty()) _parser->touch(this);
    used_cells_.push_back({word_index, position});
  }
  return &cell;
}

bool GCate::any_required(int from, int to) const {
  for (int i = std::max(from, 0); i < to; ++i)
    if (required(i)) return true;
  return false;
}

void GCate::reset_sentence() {
  for (CellIndex cell : used_cells_) _items[cell.word][cell.position].clear();
  used_cells_.clear();
  _ends.reset();
  _ready.clear();
}

}  // namespace torvane
