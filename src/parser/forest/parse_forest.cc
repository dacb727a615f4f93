#include "parser/forest/parse_forest.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>

#include "parser/forest/cover.h"
#include "parser/grammar/syntax_atts.h"
#include "support/text.h"

namespace torvane {
namespace {

constexpr float kGuestCost = 10.0f;
constexpr float kLinkWeightShare = 0.1f;
constexpr float kUnattachedTrace = 40.0f;

/// Costs are compared and added up, so that none may be "not a number".
float tame(float cost) {
  return std::isnan(cost) ? std::numeric_limits<float>::max() : cost;
}

// No two sentences of any forest have the same number, so that an item knows whether what it leads
// to is of this one.
std::uint64_t next_sentence() {
  static std::atomic<std::uint64_t> last{0};
  return ++last;
}

int saturated(std::int64_t n) {
  return static_cast<int>(std::min<std::int64_t>(n, std::numeric_limits<int>::max()));
}

int count_trees(const Derivation& entry) {
  std::int64_t n = entry._child ? entry._child->_n_trees : 1;
  return saturated(entry.head ? n * entry.head->n_trees : n);
}

}  // namespace

Derivations join(const Derivations& first, const Derivations& rest) {
  Derivations both;
  bool is_better = first.best && (!rest.best || first.best->_cost <= rest.best->_cost);
  both.best = is_better ? first.best : rest.best;
  both.own_weight = tame(rest.own_weight + first.own_weight);
  both._cost = tame(both.own_weight + (both.best ? both.best->_cost : 0));
  both.n_trees = saturated(std::int64_t{rest.n_trees} + first.n_trees);
  return both;
}

const Slist<Derivation*>& TNode::best() {
  if (_expanded) return _best;
  _expanded = 1;
  for (const Derivations* rest = _choices; rest && rest->best; rest = rest->best->head)
    _best.append(rest->best);
  return _best;
}

ParseForest::ParseForest(DepCosts* costs) : costs_(costs), sentence_(next_sentence()) {}

void ParseForest::clear() {
  _roots.clear();
  chains_.reset();
  tnodes_.reset();
  derivations_.reset();
  views_.reset();
  sides_used_ = 0;
  head_ = nullptr;
  if (costs_) costs_->forget_pairs();
  sentence_ = next_sentence();
}

ParseForest::Chain* ParseForest::chain_of(PItem* first) {
  if (first->forest == sentence_) return first->chain;
  Chain* chain = chains_.take();
  *chain = Chain();
  chain->first = chain->cursor = first;
  first->forest = sentence_;
  return first->chain = chain;
}

// Where the alternatives run into a chain that is built, the rest is known.
ParseForest::Chain* ParseForest::unbuilt_part(Chain& chain) {
  for (; chain.cursor; chain.cursor = chain.cursor->_next) {
    Chain* alternative = chain_of(chain.cursor);
    if (alternative->state == Chain::State::built) return nullptr;
    alternative->state = Chain::State::building;
    for (PItem* part : {chain.cursor->_head_child, chain.cursor->_modifier})
      if (part)
        if (Chain* found = chain_of(part); found->state != Chain::State::built) return found;
  }
  return nullptr;
}

ParseForest::Chain* ParseForest::expand(PItem* first) {
  Chain* wanted = chain_of(first);
  if (wanted->state == Chain::State::built) return wanted;
  stack_.push_back(wanted);
  while (!stack_.empty()) {
    Chain* chain = stack_.back();
    Chain* part = unbuilt_part(*chain);
    if (!part) {
      stack_.pop_back();
      build(*chain);
    } else if (part->state == Chain::State::fresh) {
      stack_.push_back(part);
    } else {
      stack_.clear();
      build_circles(*wanted);
    }
  }
  return wanted;
}

// From the last alternative to the first, so that every chain that begins further down is built on
// the way.
void ParseForest::build(Chain& chain) {
  alternatives_.clear();
  Derivations choices;
  for (PItem* item = chain.first; item; item = item->_next) {
    Chain* alternative = chain_of(item);
    if (alternative->state == Chain::State::built) {
      choices = alternative->choices;
      break;
    }
    alternatives_.push_back(alternative);
  }
  for (auto it = alternatives_.rbegin(); it != alternatives_.rend(); ++it) {
    Chain& alternative = **it;
    derive(alternative, part_of(alternative.first->_head_child),
           part_of(alternative.first->_modifier));
    alternative.choices = choices = join(alternative.own, choices);
    alternative.state = Chain::State::built;
  }
}

ParseForest::Part ParseForest::part_of(PItem* item) {
  if (!item) return {};
  Chain* chain = chain_of(item);
  return {chain, &chain->choices};
}

Derivation* ParseForest::new_entry(PItem& item) {
  Derivation* entry = derivations_.take();
  *entry = Derivation();
  entry->_item = &item;
  return entry;
}

/// Takes the first item of a chain apart.
void ParseForest::derive(Chain& chain, Part head, Part modifier) {
  PItem& item = *chain.first;
  chain.word = head.chain ? head.chain->word : &item;
  float added = head.chain ? tame(item._weight - head.chain->first->_weight) : 0;
  Derivation* entry = nullptr;
  if (!head.chain) {
    entry = new_entry(item);
    entry->_is_head = 1;
    entry->_cost = entry->_local_cost = tame(item._weight);
  } else if (modifier.chain) {
    entry = new_entry(*modifier.chain->first);
    entry->merged = &item;
    entry->_link = item._link;
    entry->_child = tnode_of(modifier);
    entry->head = head.choices;
    entry->_local_cost = step_cost(item, *head.chain);
    entry->_cost = tame(entry->_child->_weight + head.choices->_cost + entry->_local_cost);
  } else if (item._link) {
    entry = new_entry(*head.chain->first);
    entry->_is_head = 1;
    entry->merged = &item;
    entry->_link = item._link;
    entry->_child = tnode_of(head);
    entry->_local_cost = added;
    entry->_cost = tame(entry->_child->_weight + added);
  }
  if (entry) {
    chain.own.best = entry;
    chain.own.n_trees = count_trees(*entry);
  } else {
    chain.own = *head.choices;
    chain.own.own_weight = tame(added + head.choices->own_weight);
  }
}

TNode* ParseForest::new_node(Part part) {
  TNode* node = tnodes_.take();
  *node = TNode();
  node->_item = part.chain->first;
  node->_choices = part.choices;
  node->_weight = part.choices->_cost;
  node->_n_trees = part.choices->n_trees;
  return node;
}

TNode* ParseForest::tnode_of(Part part) {
  if (part.choices != &part.chain->choices) return new_node(part);
  if (!part.chain->node) part.chain->node = new_node(part);
  return part.chain->node;
}

TNode* ParseForest::get_tnode(PItem* item) {
  Chain* chain = expand(item);
  return tnode_of({chain, &chain->choices});
}

float ParseForest::step_cost(const PItem& merged, const Chain& head) {
  float cost = 0;
  if (costs_) {
    if (costs_->_reldb) cost = dependency_cost(merged, head);
    if (costs_->keeps_weights())
      cost += merged._weight - merged._modifier->_weight - merged._head_child->_weight;
  }
  if (const Link* link = merged._link) {
    if (link->kind() == LinkKind::guest) cost += kGuestCost;
    cost += kLinkWeightShare * link->weight();
  }
  return tame(cost);
}

float ParseForest::dependency_cost(const PItem& merged, const Chain& head_chain) {
  const SyntaxAtts& syn = syntax_atts(*merged._atts);
  const PItem* head = merged._head_child;
  if (lexitem_of(*head) || is_preposition(*head->_atts)) head = head_chain.word;
  PItem* modifier = merged._modifier;
  const TraceChain* trace = trace_of(*merged._atts, syn.trace);
  if (!trace) return best_cost(*head, modifier, step_relation(merged));

  bool filled_by_head = list_of(*modifier->_atts, syn.move) != nullptr;
  PItem* target = filled_by_head ? const_cast<PItem*>(head) : modifier;
  float best = costs_->keeps_weights() ? 0 : kUnattachedTrace;
  for (const TraceRecord& record : trace->records)
    if (auto* item = static_cast<const PItem*>(record.item))
      best = std::min(best, best_cost(*item, target, record.role));
  return best;
}

float ParseForest::best_cost(const PItem& head, PItem* modifier, Name relation) {
  if (!modifier) return -1.0f;
  if (&head != head_) {
    head_ = &head;
    head_side_.emplace(head);
  }
  float best = std::numeric_limits<float>::max();
  for (const ModifierSide& side : sides_of(*chain_of(modifier)))
    best = std::min(best, costs_->dep_cost(*head_side_, side, relation.c_str()));
  return best;
}

const std::vector<ModifierSide>& ParseForest::sides_of(Chain& chain) {
  if (chain.sides >= 0) return sides_[static_cast<std::size_t>(chain.sides)];
  chain.sides = static_cast<int>(sides_used_);
  if (sides_used_ == sides_.size()) sides_.emplace_back();
  std::vector<ModifierSide>& sides = sides_[sides_used_++];
  sides.clear();
  for (const PItem* item = chain.first; item; item = item->_next) {
    ModifierSide side(*item);
    if (std::find(sides.begin(), sides.end(), side) == sides.end()) sides.push_back(side);
  }
  return sides;
}

void ParseForest::collect_roots(const Grammar& grammar, const Chart& chart) {
  results_.clear();
  for (const RootRule& rule : grammar._roots) collect(rule, chart, grammar._lex->last_position());
  const int whole = last_of_whole(*grammar._lex);
  auto spans = [&](const Result& r) { return r.item->_low == 1 && r.item->_high == whole; };
  const bool all = costs_ && costs_->look_ups_show();
  const bool only_whole = !all && std::any_of(results_.begin(), results_.end(), spans);
  for (const Result& result : results_)
    if (!only_whole || spans(result)) add_root(result);
}

/// Where a result has to end that spans the sentence.
int ParseForest::last_of_whole(const LexAnalyzer& lex) const {
  const int words = lex.word_count();
  int last = -1;
  for (const Result& result : results_)
    if (Cover::takes(result.item->_low, result.item->_high, words))
      last = std::max<int>(last, result.item->_high);
  auto starts_punctuation = [&](int i) { return is_punct(or_empty(lex.word(i))[0]); };
  return Cover::end_of_cover(words, last, starts_punctuation) - 1;
}

// The longest results first, and a result that has passed a required position before one that has
// not.
void ParseForest::collect(const RootRule& rule, const Chart& chart, int last) {
  const GCate& node = *rule.node;
  for (int high = last; high >= 0; --high)
    for (int position = node.n_positions(); position >= 0; --position) {
      for (PItem* item : chart.bucket(node, position, high)) {
        if (!passes(rule.filter, item)) continue;
        Result result{item, 0, static_cast<bool>(rule.penalty)};
        if (rule.penalty)
          result.penalty =
              static_cast<int>(rule.penalty->eval(Value::of(item), p_item_type()).number());
        results_.push_back(result);
      }
      if (node.required(position)) break;
    }
}

void ParseForest::add_root(const Result& result) {
  TNode* node = get_tnode(result.item);
  if (result.has_penalty) node->_root_penalty = result.penalty;
  if (node->is_root) return;
  node->is_root = true;
  _roots.append(node);
}

}  // namespace torvane
