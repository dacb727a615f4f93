#include "parser/forest/long_cover.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace torvane {
namespace {

constexpr double kNone = std::numeric_limits<double>::infinity();
/// Sums of the same costs in another order may differ by so much.
constexpr double kNoise = 1e-3;

}  // namespace

LongCover::LongCover(const std::vector<CoverWord>& words, const std::vector<CoverOffer>& offers,
                     int end)
    : words_(words), n_(end - 1), starting_(end + 1), ending_(end + 1), word_trees_(end + 1) {
  int widest = 1;
  for (const CoverOffer& offer : offers) {
    if (offer.high > n_) continue;
    if (offer.low == offer.high) {
      word_trees_[offer.low] = offer.node;
      continue;
    }
    starting_[offer.low].push_back(&offer);
    ending_[offer.high].push_back(&offer);
    widest = std::max(widest, offer.high - offer.low + 1);
  }
  width_ = std::min(widest, std::max(kMostCells / end, 1));
  cells_.resize(static_cast<std::size_t>(end) * static_cast<std::size_t>(width_));
  for (int low = 1; low <= n_; ++low) {
    cell(low, low) = {words[low].cost, kPiece};
    for (const CoverOffer* tree : starting_[low])
      if (is_held(low, tree->high)) cell(low, tree->high) = {tree->cost, kPiece};
  }
  trees_to_.resize(words.size());
  for (int high = 2; high <= n_; ++high) {
    for (const CoverOffer* tree : ending_[high]) trees_to_[tree->low] = high;
    for (int low = high - 1; low >= 1 && is_held(low, high); --low)
      if (cell(low, high).left == kUnknown) split(low, high);
  }
  rest_ = costs_to(n_, false);
}

const CoverOffer* LongCover::tree_over(int low, int high) const {
  const auto& trees = starting_[low];
  auto tree = std::lower_bound(trees.begin(), trees.end(), high,
                               [](const CoverOffer* t, int wanted) { return t->high < wanted; });
  return tree != trees.end() && (*tree)->high == high ? *tree : nullptr;
}

// A left part that is split itself could as well give its first part to this split, unless what
// then remains has a tree over it. So the first of the best splits is behind a word or a tree, or
// behind such a part.
void LongCover::split(int low, int high) {
  Cell best;
  auto consider = [&](int k) {
    float cost = cell(low, k).cost + cell(k + 1, high).cost + join_after(k, false);
    int left = k - low + 1;
    if (best.left == kUnknown || cost < best.cost || (cost == best.cost && left < best.left))
      best = {cost, left};
  };
  consider(low);
  for (const CoverOffer* tree : starting_[low])
    if (tree->high < high) consider(tree->high);
  const auto& trees = ending_[high];
  auto inner = std::upper_bound(trees.begin(), trees.end(), low,
                                [](int l, const CoverOffer* t) { return l < t->low; });
  if (inner != trees.end())
    for (int k = (*inner)->low; k < high; ++k)
      if (trees_to_[low + cell(low, k).left] == high) consider(k);
  cell(low, high) = best;
}

float LongCover::join_after(int word, bool mirrored) const {
  int left = mirrored ? n_ - word : word;
  return Cover::join_cost(words_[left], words_[left + 1]);
}

float LongCover::held_cost(int low, int high, bool mirrored) const {
  return mirrored ? cell(n_ + 1 - high, n_ + 1 - low).cost : cell(low, high).cost;
}

/// Calls `visit(high, cost)` for the word at `low` and all trees of several words from there.
template <class Visit>
void LongCover::for_each_piece(int low, int end, bool mirrored, Visit visit) const {
  int word = mirrored ? n_ + 1 - low : low;
  visit(low, words_[word].cost);
  for (const CoverOffer* tree : mirrored ? ending_[word] : starting_[word])
    if (int high = mirrored ? n_ + 1 - tree->low : tree->high; high <= end) visit(high, tree->cost);
}

// What is wider than every tree takes the next word or tree on its left and on its right, whatever
// it is. It began somewhere as the first that is: of two parts, neither of which is that wide.
std::vector<double> LongCover::costs_to(int end, bool mirrored) const {
  std::vector<double> costs = costs_of_first_wide(end, mirrored);
  for (int low = end; low >= 1; --low) {
    double& cost = costs[low];
    if (is_held(low, end)) {
      cost = held_cost(low, end, mirrored);
    } else if (auto* tree =
                   mirrored ? tree_over(n_ + 1 - end, n_ + 1 - low) : tree_over(low, end)) {
      cost = tree->cost;
    } else {
      for_each_piece(low, end, mirrored, [&](int high, double piece) {
        cost = std::min(cost, piece + join_after(high, mirrored) + costs[high + 1]);
      });
    }
  }
  return costs;
}

/// By its first word, what it costs when the two parts that are first wide begin there, and all
/// behind them is added word by word and tree by tree.
std::vector<double> LongCover::costs_of_first_wide(int end, bool mirrored) const {
  std::vector<double> added(end + 2, kNone);
  added[end + 1] = 0;
  for (int low = end; low > 1; --low)
    for_each_piece(low, end, mirrored, [&](int high, double piece) {
      added[low] = std::min(added[low], join_after(low - 1, mirrored) + piece + added[high + 1]);
    });
  std::vector<double> costs(end + 2, kNone);
  std::vector<double> right(width_ + 2);
  for (int k = 1; k < end; ++k) {
    int most = std::min(width_, end - k);
    right[most + 1] = kNone;  // the cheapest right part of so many words, or more
    for (int n = most; n >= 1; --n)
      right[n] = std::min(right[n + 1], held_cost(k + 1, k + n, mirrored) + added[k + n + 1]);
    for (int n = std::min(width_, k); n >= 1 && width_ - n + 1 <= most; --n) {
      double& cost = costs[k - n + 1];
      cost = std::min(cost, held_cost(k - n + 1, k, mirrored) + join_after(k, mirrored) +
                                right[width_ - n + 1]);
    }
  }
  return costs;
}

std::vector<TNode*> LongCover::choose() {
  for (int low = 1; low <= n_;) low = read_rest(low);
  std::sort(found_.begin(), found_.end());
  std::vector<TNode*> chosen;
  for (auto [low, node] : found_) chosen.push_back(node);
  return chosen;
}

/// Reads the first part of what remains; what remains then begins at the result.
int LongCover::read_rest(int low) {
  if (is_held(low, n_) || tree_over(low, n_)) {
    read(low, n_);
    return n_ + 1;
  }
  int best = low;
  double cost = kNone;
  auto consider = [&](int k, double left) {
    double sum = left + rest_[k + 1] + join_after(k, false);
    if (sum < cost) cost = sum, best = k;
  };
  for (int k = low; k < n_ && is_held(low, k); ++k) consider(k, cell(low, k).cost);
  for (const CoverOffer* tree : starting_[low])
    if (!is_held(low, tree->high)) consider(tree->high, tree->cost);
  // Only before a tree that ends the text can a wide left part be the better one, so only once.
  if (cost > rest_[low] + kNoise && front_.empty()) {
    front_ = costs_to(n_ + 1 - low, true);
    for (int k = low + width_; k < n_; ++k) consider(k, front_[n_ + 1 - k]);
    read_front(low, best, n_);
  } else {
    read(low, best);
  }
  return best + 1;
}

// The left part of what ends at `outer`. That its own left part is not the one of that whole is due
// to a tree over all the others.
void LongCover::read_front(int low, int high, int outer) {
  while (!is_held(low, high) && !tree_over(low, high)) {
    int best = 0;
    double cost = kNone;
    auto consider = [&](int first, double right) {
      double sum = front_[n_ + 2 - first] + right + join_after(first - 1, false);
      if (first > low && (best == 0 || sum < cost)) cost = sum, best = first;
    };
    for (const CoverOffer* tree : ending_[outer])
      if (tree->low > low && tree->low <= high && is_held(tree->low, high))
        consider(tree->low, cell(tree->low, high).cost);
    if (best == 0) consider(high, words_[high].cost);
    read(best, high);
    outer = high;
    high = best - 1;
  }
  read(low, high);
}

/// A span that is held, or has a tree.
void LongCover::read(int low, int high) {
  std::vector<std::pair<int, int>> spans{{low, high}};
  while (!spans.empty()) {
    std::tie(low, high) = spans.back();
    spans.pop_back();
    int left = is_held(low, high) ? cell(low, high).left : kPiece;
    if (left != kPiece) {
      spans.push_back({low + left, high});
      spans.push_back({low, low + left - 1});
    } else if (TNode* node = low == high ? word_trees_[low] : tree_over(low, high)->node) {
      found_.push_back({low, node});
    }
  }
}

}  // namespace torvane
