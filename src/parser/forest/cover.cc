#include "parser/forest/cover.h"

#include <algorithm>
#include <tuple>

#include "parser/forest/long_cover.h"

namespace torvane {
namespace {

constexpr float kJoin = 35.0f;
constexpr float kJoinAtPunctuation = 10.0f;

}  // namespace

std::vector<CoverWord>& Cover::start(int word_slots) {
  words_.assign(static_cast<std::size_t>(std::max(word_slots, 0)), CoverWord());
  offers_.clear();
  return words_;
}

void Cover::offer(TNode* node, int low, int high, float cost) {
  if (takes(low, high, static_cast<int>(words_.size())))
    offers_.push_back({node, low, high, cost, offers_.size()});
}

void Cover::keep_best_offers() {
  auto key = [](const CoverOffer& o) { return std::tie(o.low, o.high, o.cost, o.number); };
  std::sort(offers_.begin(), offers_.end(),
            [&](const CoverOffer& a, const CoverOffer& b) { return key(a) < key(b); });
  auto same_span = [](const CoverOffer& a, const CoverOffer& b) {
    return a.low == b.low && a.high == b.high;
  };
  offers_.erase(std::unique(offers_.begin(), offers_.end(), same_span), offers_.end());
}

int Cover::end_of_offers() const {
  int largest = -1;
  for (const CoverOffer& offer : offers_) largest = std::max(largest, offer.high);
  return end_of_cover(static_cast<int>(words_.size()), largest, [&](int i) {
    return words_[static_cast<std::size_t>(i)].starts_punctuation;
  });
}

float Cover::join_cost(const CoverWord& left, const CoverWord& right) {
  return left.is_punctuation || right.is_punctuation ? kJoinAtPunctuation : kJoin;
}

const std::vector<TNode*>& Cover::choose() {
  chosen_.clear();
  keep_best_offers();
  const int end = end_of_offers();
  auto spans = [&](const CoverOffer& offer) { return offer.low == 1 && offer.high == end - 1; };
  if (auto whole = std::find_if(offers_.begin(), offers_.end(), spans); whole != offers_.end()) {
    chosen_.push_back(whole->node);  // a tree is not compared with a split
  } else if (end > most_table_words_) {
    chosen_ = LongCover(words_, offers_, end).choose();
  } else if (end >= 2) {
    choose_by_table(end);
  }
  return chosen_;
}

void Cover::choose_by_table(int end) {
  cells_.assign(cell_count(end), Cell());
  for (const CoverOffer& offer : offers_)
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
    auto last = static_cast<std::size_t>(k);
    float cost = cells_[cell_index(low, k)].cost + cells_[cell_index(k + 1, high)].cost +
                 join_cost(words_[last], words_[last + 1]);
    if (cell.split == 0 || cost < cell.cost) {
      cell.cost = cost;
      cell.split = k;
    }
  }
}

}  // namespace torvane
