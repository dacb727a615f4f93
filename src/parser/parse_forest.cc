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
  for (const Derivations* rest = _choices; rest && rest->best; rest = rest->best->head)
    _best.append(rest->best);
  return _best;
}

void TNode::print(std::ostream& out, int level) const {
  out << std::string(static_cast<std::size_t>(2 * level), ' ') << (_node ? _node->_name : "")
      << ": (" << _n_trees << ") w=" << _weight << '\n';
  print_item(out, *_item, _forest->parser());
  out << '\n';
}

void ParseForest::print(std::ostream& out) const {
  out << "TNodes:\n";
  for (std::size_t i = 0; i < tnodes_.used(); ++i) tnodes_.all()[i].print(out, 0);
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
  std::vector<ModifierSide> sides = std::move(chain->sides);
  sides.clear();
  *chain = Chain();
  chain->sides = std::move(sides);
  chain->first = chain->cursor = first;
  slot = {chain, sentence_};
  return chain;
}

// Where the alternatives run into a chain that is built, the rest is known.
ParseForest::Chain* ParseForest::unbuilt_part(Chain& chain) {
  for (; chain.cursor; chain.cursor = chain.cursor->_next) {
    Chain* alternative = chain_of(chain.cursor);
    if (alternative->state == State::built) return nullptr;
    if (alternative->derived) continue;
    for (PItem* part : {chain.cursor->_head_child, chain.cursor->_modifier})
      if (part)
        if (Chain* found = chain_of(part); found->state == State::fresh) return found;
  }
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

// From the last alternative to the first, so that every chain that begins further down is built on
// the way. An alternative that consists of a chain still being built, as with a category that is
// its own head, leads back to itself: it is left out here, and the chains before it wait for their
// own turn.
void ParseForest::build(Chain& chain) {
  alternatives_.clear();
  Derivations choices;
  for (PItem* item = chain.first; item; item = item->_next) {
    Chain* alternative = chain_of(item);
    if (alternative->state == State::built) {
      choices = alternative->choices;
      break;
    }
    alternatives_.push_back(alternative);
  }
  bool complete = true;
  for (auto it = alternatives_.rbegin(); it != alternatives_.rend(); ++it) {
    Chain& alternative = **it;
    if (derive(alternative)) {
      add_choices(alternative, choices);
    } else {
      complete = false;
    }
    if (&alternative != &chain && (!complete || alternative.state == State::building)) continue;
    alternative.choices = choices;
    alternative.state = State::built;
  }
}

void ParseForest::add_choices(const Chain& from, Derivations& choices) {
  Derivation* best = from.entry ? from.entry : from.same_as->best;
  int n_trees = from.entry ? count_trees(*best) : from.same_as->n_trees;
  choices.own_weight = tame(choices.own_weight + from.own_weight);
  choices.n_trees = saturated(std::int64_t{choices.n_trees} + n_trees);
  if (best && (!choices.best || best->_cost <= choices.best->_cost)) choices.best = best;
  choices._cost = tame(choices.own_weight + (choices.best ? choices.best->_cost : 0));
}

Derivation* ParseForest::new_entry(Chain& chain, PItem& item) {
  Derivation* entry = derivations_.take();
  *entry = Derivation();
  entry->_item = &item;
  return chain.entry = entry;
}

/// Takes the first item of a chain apart; false while its parts are not built.
bool ParseForest::derive(Chain& chain) {
  if (chain.derived) return true;
  PItem& item = *chain.first;
  if (item._head_child) {
    Chain* head = chain_of(item._head_child);
    Chain* modifier = item._modifier ? chain_of(item._modifier) : nullptr;
    if (head->state != State::built || (modifier && modifier->state != State::built)) return false;
    take_apart(chain, *head, modifier);
  } else {
    Derivation* entry = new_entry(chain, item);
    entry->_is_head = 1;
    entry->_cost = entry->_local_cost = tame(item._weight);
  }
  return chain.derived = true;
}

void ParseForest::take_apart(Chain& chain, Chain& head, Chain* modifier) {
  PItem& item = *chain.first;
  float added = tame(item._weight - head.first->_weight);
  if (modifier) {
    Derivation* entry = new_entry(chain, *modifier->first);
    entry->merged = &item;
    entry->_link = item._link;
    entry->_child = node_of_chain(*modifier);
    entry->head = &head.choices;
    entry->_local_cost = step_cost(item);
    entry->_cost = tame(entry->_child->_weight + head.choices._cost + entry->_local_cost);
  } else if (item._link) {
    Derivation* entry = new_entry(chain, *head.first);
    entry->_is_head = 1;
    entry->merged = &item;
    entry->_link = item._link;
    entry->_child = node_of_chain(head);
    entry->_local_cost = added;
    entry->_cost = tame(entry->_child->_weight + added);
  } else {
    chain.same_as = &head.choices;
    chain.own_weight = tame(added + head.choices.own_weight);
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
  const SyntaxAtts& syn = syntax_atts(*merged._atts);
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
