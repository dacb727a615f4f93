#include "parser/cover.h"

#include <algorithm>
#include <tuple>

namespace torvane {

std::vector<CoverWord>& Cover::start(int word_slots) {
  words_.assign(static_cast<std::size_t>(std::max(word_slots, 0)), CoverWord());
  offers_.clear();
  return words_;
}

void Cover::offer(TNode* node, int low, int high, float cost) {
  if (low >= 1 && low <= high && high < static_cast<int>(words_.size()))
    offers_.push_back({node, low, high, cost, offers_.size()});
}

void Cover::keep_best_offers() {
  auto key = [](const Offer& o) { return std::tie(o.low, o.high, o.cost, o.number); };
  std::sort(offers_.begin(), offers_.end(),
            [&](const Offer& a, const Offer& b) { return key(a) < key(b); });
  auto same_span = [](const Offer& a, const Offer& b) {
    return a.low == b.low && a.high == b.high;
  };
  offers_.erase(std::unique(offers_.begin(), offers_.end(), same_span), offers_.end());
}

// Punctuation at the end that no tree reaches is not covered.
int Cover::end_of_cover() const {
  int largest = -1;
  for (const Offer& offer : offers_) largest = std::max(largest, offer.high);
  int end = static_cast<int>(words_.size());
  while (largest + 1 < end && words_[static_cast<std::size_t>(end) - 1].starts_punctuation) --end;
  return end;
}

float Cover::join_cost(int last) const {
  auto i = static_cast<std::size_t>(last);
  bool cheap = words_[i].is_punctuation || words_[i + 1].is_punctuation;
  return cheap ? kJoinAtPunctuation : kJoin;
}

const std::vector<TNode*>& Cover::choose() {
  chosen_.clear();
  keep_best_offers();
  int end = end_of_cover();
  if (end > kMostTableWords) {
    choose_by_chain(end);
  } else if (end >= 2) {
    choose_by_table(end);
  }
  return chosen_;
}

void Cover::choose_by_table(int end) {
  cells_.assign(cell_count(end), Cell());
  for (const Offer& offer : offers_)
    if (offer.high < end) cells_[cell_index(offer.low, offer.high)] = {offer.node, offer.cost, 0};
  // A tree over one word costs what the word costs alone.
  for (int i = 0; i < end; ++i)
    // Kept: one-word-tree-costs-word
    cells_[cell_index(i, i)].cost = words_[static_cast<std::size_t>(i)].cost;
  for (int length = 1; length <= end - 2; ++length)
    for (int low = 1; low + length < end; ++low) fill_cell(low, low + length);

  spans_.assign(1, {1, end - 1});
  while (!spans_.empty()) {
    auto [low, high] = spans_.back();
    spans_.pop_back();
    const Cell& cell = cells_[cell_index(low, high)];
    if (cell.node) {
      chosen_.push_back(cell.node);
    } else if (cell.split > 0) {
      spans_.push_back({cell.split + 1, high});
      spans_.push_back({low, cell.split});
    }
  }
}

// A tree is not compared with a split: a cell that has one keeps it.
void Cover::fill_cell(int low, int high) {
  Cell& cell = cells_[cell_index(low, high)];
  // Kept: tree-beats-split
  if (cell.node) return;
  for (int k = low; k < high; ++k) {
    float cost =
        cells_[cell_index(low, k)].cost + cells_[cell_index(k + 1, high)].cost + join_cost(k);
    if (cell.split == 0 || cost < cell.cost) {
      cell.cost = cost;
      cell.split = k;
    }
  }
}

// From right to left: what remains from each word on is a tree, or the best first part and the
// rest.
void Cover::choose_by_chain(int end) {
  cells_.assign(static_cast<std::size_t>(end) + 1, Cell());
  std::size_t next_offer = offers_.size();
  for (int low = end - 1; low >= 1; --low)
    cells_[static_cast<std::size_t>(low)] = chain_cell(low, end, next_offer);
  for (int low = 1; low < end; low = cells_[static_cast<std::size_t>(low)].split + 1)
    if (TNode* node = cells_[static_cast<std::size_t>(low)].node) chosen_.push_back(node);
}

Cover::Cell Cover::chain_cell(int low, int end, std::size_t& next_offer) const {
  Cell cell;
  auto try_part = [&](TNode* node, int high, float cost) {
    if (high + 1 < end) cost += cells_[static_cast<std::size_t>(high) + 1].cost + join_cost(high);
    if (cell.split == 0 || cost < cell.cost) cell = {node, cost, high};
  };
  std::size_t behind = next_offer;
  while (next_offer > 0 && offers_[next_offer - 1].low >= low) --next_offer;
  TNode* word_tree = nullptr;
  if (next_offer < behind && offers_[next_offer].low == low && offers_[next_offer].high == low)
    word_tree = offers_[next_offer].node;
  try_part(word_tree, low, words_[static_cast<std::size_t>(low)].cost);
  for (std::size_t i = next_offer; i < behind; ++i) {
    const Offer& offer = offers_[i];
    if (offer.low != low || offer.high == low || offer.high >= end) continue;
    if (offer.high == end - 1) return {offer.node, offer.cost, offer.high};
    try_part(offer.node, offer.high, offer.cost);
  }
  return cell;
}

}  // namespace torvane
