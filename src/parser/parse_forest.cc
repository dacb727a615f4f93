#include "parser/parse_forest.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "parser/item_text.h"
#include "parser/syntax_atts.h"
#include "parser/torvane_parser.h"

namespace torvane {
namespace {

constexpr float kGuestCost = 10.0f;
constexpr float kLinkWeightShare = 0.1f;
constexpr float kUnattachedTrace = 40.0f;
constexpr std::size_t kLeastSlots = 128;

/// Costs are compared and added up, so that none may be "not a number".
float tame(float cost) {
  return std::isnan(cost) ? std::numeric_limits<float>::max() : cost;
}

int saturated(std::int64_t n) {
  return static_cast<int>(std::min<std::int64_t>(n, std::numeric_limits<int>::max()));
}

int count_trees(const Derivation& entry) {
  std::int64_t n = entry._child ? entry._child->_n_trees : 1;
  return saturated(entry.head ? n * entry.head->n_trees : n);
}

std::size_t hash_of(const PItem* item) {
  auto word = reinterpret_cast<std::uintptr_t>(item) >> 4;
  return static_cast<std::size_t>(word * 0x9E3779B97F4A7C15u >> 20);
}

}  // namespace

const Slist<Derivation*>& TNode::best() {
  if (_expanded) return _best;
  _expanded = 1;
  for (const Derivations* rest = _choices; rest && !rest->list.empty();) {
    Derivation* entry = rest->list.front();
    _best.append(entry);
    rest = entry->head;
  }
  return _best;
}

void ParseForest::print(std::ostream& out) const {
  out << "TNodes:\n";
  for (std::size_t i = 0; i < tnodes_.used(); ++i) {
    const TNode& node = tnodes_.all()[i];
    out << (node._node ? node._node->_name : "") << ": (" << node._n_trees << ") w=" << node._weight
        << '\n';
    print_item(out, *node._item, *parser_);
    out << '\n';
  }
}

void ParseForest::clear() {
  _roots.clear();
  chains_.reset();
  tnodes_.reset();
  derivations_.reset();
  ++sentence_;
}

ParseForest::Slot& ParseForest::find_slot(const PItem* first) {
  std::size_t mask = table_.size() - 1;
  std::size_t i = hash_of(first) & mask;
  while (table_[i].sentence == sentence_ && table_[i].chain->first != first) i = (i + 1) & mask;
  return table_[i];
}

void ParseForest::grow_table() {
  table_.assign(std::max(kLeastSlots, table_.size() * 2), Slot{nullptr, 0});
  for (std::size_t i = 0; i < chains_.used(); ++i) {
    auto* chain = const_cast<Chain*>(&chains_.all()[i]);
    find_slot(chain->first) = {chain, sentence_};
  }
}

ParseForest::Chain* ParseForest::chain_of(PItem* first) {
  if (chains_.used() * 2 >= table_.size()) grow_table();
  Slot& slot = find_slot(first);
  if (slot.sentence == sentence_) return slot.chain;
  Chain* chain = chains_.take();
  chain->first = chain->cursor = first;
  chain->state = State::fresh;
  chain->choices = Derivations();
  chain->node = nullptr;
  chain->sides.clear();
  slot = {chain, sentence_};
  return chain;
}

ParseForest::Chain* ParseForest::unbuilt_part(Chain& chain) {
  for (; chain.cursor; chain.cursor = chain.cursor->_next)
    for (PItem* part : {chain.cursor->_head_child, chain.cursor->_modifier})
      if (part)
        if (Chain* found = chain_of(part); found->state == State::fresh) return found;
  return nullptr;
}

ParseForest::Chain* ParseForest::expand(PItem* first) {
  Chain* wanted = chain_of(first);
  if (wanted->state != State::fresh) return wanted;
  stack_.push_back(wanted);
  while (!stack_.empty()) {
    Chain* chain = stack_.back();
    chain->state = State::building;
    if (Chain* part = unbuilt_part(*chain)) {
      stack_.push_back(part);
    } else {
      stack_.pop_back();
      build(*chain);
    }
  }
  return wanted;
}

void ParseForest::build(Chain& chain) {
  scratch_.clear();
  Derivations& choices = chain.choices;
  for (PItem* item = chain.first; item; item = item->_next) derive(*item, choices);
  std::stable_sort(scratch_.begin(), scratch_.end(),
                   [](const Derivation* a, const Derivation* b) { return a->_cost < b->_cost; });
  std::int64_t n_trees = 0;
  for (Derivation* entry : scratch_) {
    choices.list.append(entry);
    n_trees += count_trees(*entry);
  }
  choices.n_trees = saturated(n_trees);
  choices._cost = choices.own_weight + (scratch_.empty() ? 0.0f : scratch_.front()->_cost);
  chain.state = State::built;
}

Derivation* ParseForest::new_entry(PItem& item) {
  Derivation* entry = derivations_.take();
  *entry = Derivation();
  entry->_item = &item;
  scratch_.push_back(entry);
  return entry;
}

// A chain may come back to itself, by a category that is its own head: a step to a chain that is
// still being built leads nowhere and is left out.
void ParseForest::derive(PItem& item, Derivations& into) {
  PItem* head = item._head_child;
  if (!head) {
    Derivation* entry = new_entry(item);
    entry->_is_head = 1;
    entry->_cost = entry->_local_cost = tame(item._weight);
    return;
  }
  Chain* head_chain = chain_of(head);
  if (head_chain->state != State::built) return;
  const Derivations& rest = head_chain->choices;
  float added = tame(item._weight - head->_weight);

  if (item._modifier) {
    Chain* modifier = chain_of(item._modifier);
    if (modifier->state != State::built) return;
    Derivation* entry = new_entry(*item._modifier);
    entry->merged = &item;
    entry->_link = item._link;
    entry->_child = node_of_chain(*modifier);
    entry->head = &rest;
    entry->_local_cost = step_cost(item);
    entry->_cost = tame(entry->_child->_weight + rest._cost + entry->_local_cost);
  } else if (!item._link) {
    into.own_weight = tame(into.own_weight + added + rest.own_weight);
    for (Derivation* entry : rest.list) scratch_.push_back(entry);
  } else {
    Derivation* entry = new_entry(*head);
    entry->_is_head = 1;
    entry->merged = &item;
    entry->_link = item._link;
    entry->_child = node_of_chain(*head_chain);
    entry->_local_cost = added;
    entry->_cost = tame(entry->_child->_weight + added);
  }
}

TNode* ParseForest::node_of_chain(Chain& chain) {
  if (chain.node) return chain.node;
  TNode* node = tnodes_.take();
  *node = TNode();
  node->_forest = this;
  node->_item = chain.first;
  node->_node = torvane::node_of(*chain.first);
  node->_choices = &chain.choices;
  node->_weight = chain.choices._cost;
  node->_n_trees = chain.choices.n_trees;
  return chain.node = node;
}

TNode* ParseForest::get_tnode(PItem* item) {
  return node_of_chain(*expand(item));
}

float ParseForest::step_cost(const PItem& merged) {
  float cost = 0;
  if (parser_) {
    cost = parser_->_reldb
               ? dependency_cost(merged)
               : merged._weight - merged._modifier->_weight - merged._head_child->_weight;
  }
  if (const Link* link = merged._link) {
    if (link->_type && std::string_view(link->_type) == "guest") cost += kGuestCost;
    cost += kLinkWeightShare * link->_weight;
  }
  return tame(cost);
}

float ParseForest::dependency_cost(const PItem& merged) {
  const SyntaxAtts& syn = syntax_atts();
  const PItem* head = merged._head_child;
  bool preposition = syn.cat_p != 0 && value_of(*head->_atts, syn.cat) == syn.cat_p;
  if (lexitem_of(*head) || preposition)
    while (head->_head_child) head = head->_head_child;
  PItem* modifier = merged._modifier;
  const TraceChain* trace = trace_of(*merged._atts, syn.trace);
  if (!trace) return best_cost(*head, modifier, step_relation(merged));

  bool filled_by_head = list_of(*modifier->_atts, syn.move) != nullptr;
  PItem* target = filled_by_head ? const_cast<PItem*>(head) : modifier;
  float best = kUnattachedTrace;
  for (const TraceRecord& record : trace->records)
    if (auto* item = static_cast<const PItem*>(record.item))
      best = std::min(best, best_cost(*item, target, record.role));
  return best;
}

float ParseForest::best_cost(const PItem& head, PItem* modifier, const char* relation) {
  if (!modifier) return -1.0f;
  HeadSide head_side(head);
  float best = std::numeric_limits<float>::max();
  for (const ModifierSide& side : sides_of(*chain_of(modifier)))
    best = std::min(best, dep_cost(*parser_, head_side, side, relation));
  return best;
}

const std::vector<ModifierSide>& ParseForest::sides_of(Chain& chain) {
  auto& sides = chain.sides;
  if (sides.empty())
    for (const PItem* item = chain.first; item; item = item->_next) {
      ModifierSide side(*item);
      if (std::find(sides.begin(), sides.end(), side) == sides.end()) sides.push_back(side);
    }
  return sides;
}

void ParseForest::collect_roots() {
  for (const RootRule& rule : parser_->_roots)
    if (rule.node) collect(rule);
}

// The longest results first, and a result that has passed a required position before one that has
// not.
void ParseForest::collect(const RootRule& rule) {
  const GCate& node = *rule.node;
  for (int high = parser_->_lex->last_position(); high >= 0; --high)
    for (int position = node._n_positions; position >= 0; --position) {
      for (PItem* item : node.bucket(position, high))
        if (passes(rule.filter, item)) add_root(*item, rule);
      if (node.required(position)) break;
    }
}

void ParseForest::add_root(PItem& item, const RootRule& rule) {
  TNode* node = get_tnode(&item);
  if (rule.penalty)
    node->_root_penalty =
        static_cast<int>(rule.penalty->eval(Value::of(&item), p_item_type()).number());
  if (node->is_root) return;
  node->is_root = true;
  _roots.append(node);
}

}  // namespace torvane
