#include "parser/torvane_parser.h"

#include <algorithm>
#include <limits>

#include "parser/parsing.h"

namespace torvane {
namespace {

constexpr int kPoolReserve = 2000;
constexpr std::pair<int, int> kNoLimits{-1, std::numeric_limits<int>::max()};

}  // namespace

TorvaneParser* current_parser(World& world) {
  return parsing(world).current;
}

TorvaneParser::TorvaneParser(World& world, const char* name, int hashtable_size)
    : _world(world), _nodes(hashtable_size), _name(or_empty(name)) {
  _pool.reserve(kPoolReserve);
  set_empty_category("EC", "ECR");
  // Kept: last-parser-is-current
  parsing(world).current = this;
}

TorvaneParser::~TorvaneParser() {
  Parsing& ours = parsing(_world);
  if (ours.current == this) ours.current = nullptr;
}

GCate* TorvaneParser::get_node(const char* name, bool create) {
  if (auto* entry = _nodes.find(name)) return entry->value;
  if (!create || !name) return nullptr;
  own_nodes_.push_back(std::make_unique<GCate>(this, name));
  return _nodes.insert(name, own_nodes_.back().get())->value;
}

Link* TorvaneParser::make_link(GCate* parent, GCate* child) {
  own_links_.push_back(std::make_unique<Link>(parent, child));
  return own_links_.back().get();
}

void TorvaneParser::set_empty_category(const char* name, const char* relation) {
  own_nodes_.push_back(std::make_unique<GCate>(this, name));
  _empty_node = own_nodes_.back().get();
  _empty_link = make_link(_empty_node, _empty_node);
  _empty_link->set_type(relation);
}

PItem* TorvaneParser::new_item() {
  bool reused = _pool_free > 0;
  // Kept: items-run-out-silently
  if (static_cast<int>(_pool.size()) - _pool_free >= kPoolLimit) return nullptr;
  if (!reused) _pool.push_back(std::make_unique<PItem>());
  PItem* item = reused ? _pool[--_pool_free].get() : _pool.back().get();
  Ref<AttVec> atts = std::move(item->_atts);
  *item = PItem();
  // A vector that a variable still holds stays with it.
  if (atts && !atts->shared() && atts->interpreters == _att_type) {
    atts->clear_all();
  } else {
    atts = make_ref<AttVec>(_att_type);
  }
  if (atts->era.get() != eras_.now()) atts->era = Ref<Era>(eras_.now());
  item->_atts = std::move(atts);
  item->order = ++items_made_;
  return item;
}

std::pair<int, int>& TorvaneParser::span_limits(int word) {
  std::size_t index = static_cast<std::size_t>(std::max(word, 0));
  if (index >= _spans.size()) _spans.resize(index + 1, kNoLimits);
  limited_words_ = std::max(limited_words_, index + 1);
  return _spans[index];
}

bool TorvaneParser::span_allowed(int low, int high) const {
  auto limits = [&](int word) {
    std::size_t index = static_cast<std::size_t>(word);
    return index < limited_words_ ? _spans[index] : kNoLimits;
  };
  return limits(low).second >= high && limits(high).first <= low;
}

void TorvaneParser::reset() {
  if (refuse_while_parsing(_world, "reset-parser", _lex)) return;
  std::fill_n(_spans.begin(), limited_words_, kNoLimits);
  limited_words_ = 0;
  for (GCate* node : touched_nodes_) node->reset_sentence();
  for (Link* link : touched_links_) link->reset_sentence();
  touched_nodes_.clear();
  touched_links_.clear();
  forget_items();
  items_made_ = 0;
  case_marks.reset();
  oblique_case_marks.reset();
  if (parsing(_world).debug_weight && _cost_cache) _cost_cache->clear();
  if (_lex) _lex->reset();
}

// Items that an expression may still have, as they were.
struct TorvaneParser::Forgotten {
  TorvaneParser& parser;
  std::vector<std::unique_ptr<PItem>> items;

  ~Forgotten() { parser.recycle(items); }
};

void TorvaneParser::forget_items() {
  if (lifetimes().expression_waits()) {
    auto used = _pool.begin() + _pool_free;
    std::unique_ptr<Forgotten> forgotten(new Forgotten{*this, {}});
    forgotten->items.assign(std::move_iterator(used), std::move_iterator(_pool.end()));
    _pool.erase(used, _pool.end());
    retire(std::move(forgotten), eras_.birth());
  }
  _pool_free = static_cast<int>(_pool.size());
  eras_.renew();
}

void TorvaneParser::recycle(std::vector<std::unique_ptr<PItem>>& items) {
  for (std::unique_ptr<PItem>& item : items) {
    _pool.push_back(std::move(item));
    _pool.back().swap(_pool[static_cast<std::size_t>(_pool_free++)]);
  }
}

void TorvaneParser::forget_result() {
  if (!_deps) return;
  if (_deps->shared() || lifetimes().expression_waits()) {
    // What is on its way through that expression may belong to it.
    std::uint64_t birth = _deps->eras.birth();
    _deps->eras.renew();
    lifetimes().retire(birth, tags::deps.release, Value::of(_deps.leak()).word());
  } else {
    _deps->clear();
  }
}

}  // namespace torvane
