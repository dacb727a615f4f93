#include "wordsim/feature_overlap.h"

#include <algorithm>
#include <tuple>

namespace torvane {

void FeatureOverlap::add(int item, Feature feature, float information) {
  auto index = static_cast<std::uint32_t>(item);
  if (index >= totals_.size()) totals_.resize(index + std::size_t{1});
  totals_[index] += information;
  collected_.push_back({feature, index, information});
}

void FeatureOverlap::build_index() {
  occurrences_ = collected_.size();
  index_features();
  index_items();
  shared_.assign(totals_.size(), 0);
}

void FeatureOverlap::index_features() {
  std::sort(collected_.begin(), collected_.end(), [](const Occurrence& a, const Occurrence& b) {
    return std::tie(a.feature, a.item) < std::tie(b.feature, b.item);
  });
  holders_.start.assign(1, 0);
  for (std::size_t i = 0; i < collected_.size();) {
    std::size_t first = i;
    while (i < collected_.size() && collected_[i].feature == collected_[first].feature) ++i;
    if (i - first < 2) continue;
    for (std::size_t k = first; k < i; ++k)
      holders_.cells.push_back({collected_[k].item, collected_[k].information});
    holders_.start.push_back(static_cast<std::uint32_t>(holders_.cells.size()));
  }
  collected_ = {};
}

// The same cells, by item.
void FeatureOverlap::index_items() {
  std::vector<std::uint32_t>& start = features_.start;
  start.assign(totals_.size() + 1, 0);
  for (const Weighted& holder : holders_.cells) ++start[holder.index + 1];
  for (std::size_t i = 1; i < start.size(); ++i) start[i] += start[i - 1];
  features_.cells.resize(holders_.cells.size());
  std::vector<std::uint32_t> next(start.begin(), start.end() - 1);
  for (std::uint32_t feature = 0; feature + 1 < holders_.start.size(); ++feature)
    for (std::uint32_t k = holders_.start[feature]; k < holders_.start[feature + 1]; ++k) {
      const Weighted& holder = holders_.cells[k];
      features_.cells[next[holder.index]++] = {feature, holder.information};
    }
}

const std::vector<SimPair>& FeatureOverlap::neighbours(int item, std::size_t most) {
  auto self = static_cast<std::uint32_t>(item);
  for (std::uint32_t i = features_.start[self]; i < features_.start[self + 1]; ++i) {
    const Weighted& own = features_.cells[i];
    for (std::uint32_t k = holders_.start[own.index]; k < holders_.start[own.index + 1]; ++k) {
      const Weighted& holder = holders_.cells[k];
      float& shared = shared_[holder.index];
      if (shared == 0) touched_.push_back(holder.index);
      shared += own.information + holder.information;
    }
  }
  found_.clear();
  for (std::uint32_t other : touched_) {
    float sim = shared_[other] / (totals_[self] + totals_[other]);
    shared_[other] = 0;
    if (other != self) found_.push_back({static_cast<int>(other), sim});
  }
  touched_.clear();
  auto end = found_.begin() + static_cast<std::ptrdiff_t>(std::min(most, found_.size()));
  std::partial_sort(found_.begin(), end, found_.end(), [](const SimPair& a, const SimPair& b) {
    return std::tie(b.sim, a.word) < std::tie(a.sim, b.word);
  });
  found_.erase(end, found_.end());
  return found_;
}

}  // namespace torvane
