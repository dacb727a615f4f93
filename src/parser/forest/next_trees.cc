#include "parser/forest/next_trees.h"

#include <algorithm>

#include "support/depth.h"

namespace torvane {
namespace {

thread_local DepthLimit ranking_depth{"The derivation is too deep to be ranked"};

/// A place beyond the last one is nowhere.
template <class Ranking>
float added_cost(const Ranking* ranking, std::size_t place) {
  if (!ranking || place >= ranking->ways.size()) return 0;
  return ranking->ways[place].cost - ranking->ways[0].cost;
}

std::vector<TNode*> row_of(const Slist<TNode*>& roots) {
  std::vector<TNode*> row;
  for (TNode* root : roots) row.push_back(root);
  return row;
}

}  // namespace

// The roots that were not chosen come behind those that were, so that of equals the chosen one is
// the first.
NextTrees::NextTrees(ParseForest& forest, const Grammar& grammar, const Chart& chart) {
  const std::vector<TNode*> chosen = row_of(forest._roots);
  forest.collect_roots(grammar, chart);
  const std::vector<TNode*> all = row_of(forest._roots);
  for (const TNode* root : chosen) {
    Step step;
    step.rest = all_;
    step.part = &results_over(root->_item->_low, root->_item->_high, all);
    for (Ranking* side : {step.rest, step.part})
      if (side && reach(*side, 0)) step.cost += side->ways[0].cost;
    all_ = &new_ranking(nullptr);
    add_step(*all_, step);
  }
  if (all_) reach(*all_, 0);
}

NextTrees::Ranking& NextTrees::results_over(int low, int high, const std::vector<TNode*>& all) {
  Ranking& ranking = new_ranking(nullptr);
  for (TNode* root : all) {
    if (root->_item->_low != low || root->_item->_high != high) continue;
    Step step;
    step.cost = static_cast<float>(root->_root_penalty) + root->_weight;
    step.root = root;
    step.part = &ranking_of(*root->_choices, *root->_item);
    add_step(ranking, step);
  }
  return ranking;
}

NextTrees::Ranking& NextTrees::ranking_of(const Derivations& choices, const PItem& first) {
  Ranking*& known = by_choices_[&choices];
  if (known) return *known;
  Ranking& ranking = new_ranking(&choices);
  known = &ranking;
  Step step;
  if (&choices != &first.chain->choices) {
    step.cost = choices.best ? choices.best->_cost : 0;
    add_step(ranking, step);
    return ranking;
  }
  for (step.item = &first; step.item; step.item = step.item->_next) {
    const Derivation* best = step.item->chain->own.best;
    if (!best) continue;
    step.cost = best->_cost;
    add_step(ranking, step);
  }
  return ranking;
}

void NextTrees::add_step(Ranking& ranking, const Step& step) {
  ranking.steps.push_back(step);
  ranking.waiting.push_back({step.cost, ranking.steps.size() - 1, 0, 0});
  std::push_heap(ranking.waiting.begin(), ranking.waiting.end(), Dearer());
}

// As the forest took the item apart; an item that only passes its head on has no entry of its own.
void NextTrees::find_parts(Step& step) {
  if (!step.item || step.entry || step.rest) return;
  const PItem& item = *step.item;
  const Derivation* best = item.chain->own.best;
  const PItem* head = item._head_child;
  if (!head) {
    step.entry = best;
  } else if (item._modifier) {
    step.entry = best;
    step.rest = &ranking_of(*best->head, *head);
    step.part = &ranking_of(*best->_child->_choices, *item._modifier);
  } else if (item._link) {
    step.entry = best;
    step.part = &ranking_of(*best->_child->_choices, *head);
  } else {
    const Derivations& passed = head->chain->choices;
    step.rest = &ranking_of(passed.best == best ? passed : item.chain->own, *head);
  }
  for (Ranking* side : {step.rest, step.part})
    if (side) reach(*side, 0);
}

/// Finds the ways up to a place; false if there are fewer.
bool NextTrees::reach(Ranking& ranking, std::size_t place) {
  while (ranking.ways.size() <= place) {
    if (!ranking.ways.empty()) {
      DepthGuard guard(ranking_depth);
      if (!guard) return false;
      await_after(ranking, Way(ranking.ways.back()));
    }
    if (ranking.waiting.empty()) return false;
    std::pop_heap(ranking.waiting.begin(), ranking.waiting.end(), Dearer());
    ranking.ways.push_back(ranking.waiting.back());
    ranking.waiting.pop_back();
  }
  return true;
}

// Every pair of places is reached by one way alone.
void NextTrees::await_after(Ranking& ranking, const Way& way) {
  find_parts(ranking.steps[way.step]);
  const Step& step = ranking.steps[way.step];
  if (step.rest && reach(*step.rest, way.rest + 1))
    await(ranking, way.step, way.rest + 1, way.part);
  if (way.rest == 0 && step.part && reach(*step.part, way.part + 1))
    await(ranking, way.step, 0, way.part + 1);
}

void NextTrees::await(Ranking& ranking, std::size_t step, std::size_t rest, std::size_t part) {
  const Step& made = ranking.steps[step];
  const float added = added_cost(made.rest, rest) + added_cost(made.part, part);
  ranking.waiting.push_back({made.cost + added, step, rest, part});
  std::push_heap(ranking.waiting.begin(), ranking.waiting.end(), Dearer());
}

bool NextTrees::next() {
  if (!all_ || !reach(*all_, ++place_)) return false;
  const Way* way = &all_->ways[place_];
  cost_ = way->cost;
  std::vector<TNode*> roots;
  for (Ranking* row = all_; row;) {
    const Step& step = row->steps[way->step];
    const Way& result = step.part->ways[way->part];
    const Step& of_result = step.part->steps[result.step];
    roots.push_back(node_of(*of_result.root, *of_result.part, result.part));
    row = step.rest;
    if (row) way = &row->ways[way->rest];
  }
  roots_.clear();
  for (auto root = roots.rbegin(); root != roots.rend(); ++root) roots_.append(*root);
  return true;
}

TNode* NextTrees::node_of(TNode& best, Ranking& ranking, std::size_t place) {
  DepthGuard guard(ranking_depth);
  if (place == 0 || !guard) return &best;
  TNode& node = nodes_.emplace_back();
  node._item = best._item;
  node._choices = best._choices;
  node._weight = best._weight + added_cost(&ranking, place);
  node._root_penalty = best._root_penalty;
  node._n_trees = best._n_trees;
  node._expanded = 1;
  write(&ranking, place, node._best);
  return &node;
}

void NextTrees::write(Ranking* ranking, std::size_t place, Slist<Derivation*>& out) {
  while (ranking && place > 0) {
    const Way& way = ranking->ways[place];
    Step& step = ranking->steps[way.step];
    find_parts(step);
    if (step.entry) {
      Derivation& entry = entries_.emplace_back(*step.entry);
      if (step.part) entry._child = node_of(*entry._child, *step.part, way.part);
      out.append(&entry);
    }
    ranking = step.rest;
    place = way.rest;
  }
  if (!ranking) return;
  for (const Derivations* rest = ranking->choices; rest && rest->best; rest = rest->best->head)
    out.append(rest->best);
}

}  // namespace torvane
