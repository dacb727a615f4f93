#include "why/priced_tree.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "parser/grammar/syntax_atts.h"
#include "support/depth.h"
#include "support/text.h"

namespace torvane {
namespace {

thread_local DepthLimit price_depth{"The derivation is too deep to be explained"};

constexpr int kNoWord = -1;  // of an empty item

int word_of(const PItem& item) {
  return item._high < item._low ? kNoWord : head_position(item);
}

float own_weight(const PItem& first) {
  return first.chain->choices.own_weight;
}

std::string relation_of(const PItem& merged) {
  const Link* link = merged._link;
  if (!link) return {};
  if (link->kind() == LinkKind::complement) {
    const AttVec& head = *merged._head_child->_atts;
    const AttVec* arg = argument_of(head, syntax_atts(head).args, link->position() - 1);
    if (Name role = arg ? text_of(*arg, syntax_atts(*arg).role) : Name()) return role.c_str();
  }
  return or_empty(link->type().c_str());
}

void add_cost(std::vector<std::pair<int, float>>& words, int word, float cost) {
  if (cost == 0) return;
  const auto known =
      std::find_if(words.begin(), words.end(), [&](const auto& one) { return one.first == word; });
  if (known == words.end()) {
    words.emplace_back(word, cost);
  } else {
    known->second += cost;
  }
}

}  // namespace

const PricedRow* PricedTree::row_of(int word) const {
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&](const PricedRow& r) { return r.word == word; });
  return row == rows.end() ? nullptr : &*row;
}

const GCate* PricedTree::reading_of(int word) const {
  for (const auto& [one, node] : readings)
    if (one == word) return node;
  return nullptr;
}

void PricedTree::append(PricedTree&& other) {
  std::move(other.rows.begin(), other.rows.end(), std::back_inserter(rows));
  readings.insert(readings.end(), other.readings.begin(), other.readings.end());
  for (const auto& [word, cost] : other.words) add_cost(words, word, cost);
  total += other.total;
}

void TreePricer::add(Options& options, const Option& option) {
  for (Option& known : options)
    if (known.word == option.word) {
      if (option.cost < known.cost) known = option;
      return;
    }
  options.push_back(option);
}

// A chain that leads back to itself has no options on the way.
const TreePricer::Options& TreePricer::options(const PItem& first) {
  const auto [place, is_new] = known_.try_emplace(&first);
  if (!is_new) return place->second;
  DepthGuard guard(price_depth);
  if (!guard) return place->second;
  Options found;
  for (const PItem* item = &first; item; item = item->_next) add_options(*item, found);
  return known_[&first] = std::move(found);
}

/// As the forest takes the item apart.
void TreePricer::add_options(const PItem& item, Options& found) {
  const Derivation* own = item.chain->own.best;
  const PItem* head = item._head_child;
  if (!own) return;
  if (!head) {
    add(found, {word_of(item), own->_cost, &item, 0, 0});
    return;
  }
  const Options& heads = options(*head);
  if (!item._modifier) {
    const float added = item._link ? own_weight(*head) + own->_local_cost : 0;
    for (std::size_t h = 0; h < heads.size(); ++h)
      add(found, {heads[h].word, heads[h].cost + added, &item, h, 0});
    return;
  }
  const Options& parts = options(*item._modifier);
  const float both = own_weight(*head) + own_weight(*item._modifier) + own->_local_cost;
  for (std::size_t h = 0; h < heads.size(); ++h)
    for (std::size_t p = 0; p < parts.size(); ++p)
      if (parts[p].word == kNoWord || heads[h].word == kNoWord ||
          allows_(parts[p].word, heads[h].word, item._link))
        add(found, {heads[h].word, heads[h].cost + parts[p].cost + both, &item, h, p});
}

std::optional<PricedTree> TreePricer::price(const TNode& root) {
  const PItem& first = *root._item;
  const Options& all = options(first);
  const Option* best = nullptr;
  for (const Option& option : all)
    if (allows_(option.word, 0, nullptr) && (!best || option.cost < best->cost)) best = &option;
  if (!best) return {};
  PricedTree tree;
  const auto penalty = static_cast<float>(root._root_penalty);
  tree.total = penalty + own_weight(first) + best->cost;
  tree.rows.push_back({best->word, 0, nullptr, "root", penalty});
  add_cost(tree.words, best->word, own_weight(first));
  write(first, static_cast<std::size_t>(best - all.data()), tree);
  return tree;
}

std::optional<PricedTree> TreePricer::price(const std::vector<TNode*>& roots, int low, int high) {
  std::optional<PricedTree> best;
  for (const TNode* root : roots) {
    if (root->_item->_low != low || root->_item->_high != high) continue;
    std::optional<PricedTree> tree = price(*root);
    if (tree && (!best || tree->total < best->total)) best = std::move(tree);
  }
  return best;
}

void TreePricer::write(const PItem& first, std::size_t number, PricedTree& out) {
  DepthGuard guard(price_depth);
  if (!guard) return;
  const Option option = options(first)[number];
  const PItem& item = *option.item;
  const Derivation& own = *item.chain->own.best;
  const PItem* head = item._head_child;
  if (!head) {
    out.readings.emplace_back(option.word, item._node);
    add_cost(out.words, option.word, own._cost);
    return;
  }
  if (item._modifier) {
    const int part = options(*item._modifier)[option.part].word;
    const float cost = own._local_cost;
    if (part == kNoWord) {
      add_cost(out.words, option.word, cost);
    } else {
      out.rows.push_back({part, option.word, item._link, relation_of(item), cost});
    }
    add_cost(out.words, part == kNoWord ? option.word : part, own_weight(*item._modifier));
    write(*item._modifier, option.part, out);
    add_cost(out.words, option.word, own_weight(*head));
  } else if (item._link) {
    add_cost(out.words, option.word, own_weight(*head) + own._local_cost);
  }
  write(*head, option.head, out);
}

}  // namespace torvane
