#include "wordsim/feature_overlap.h"

#include <algorithm>
#include <tuple>

namespace torvane {

void FeatureOverlap::add(int item, const Held& held) {
  collected_.push_back({held.feature, static_cast<std::uint32_t>(item - first_), held.information});
}

void FeatureOverlap::build_index() {
  std::sort(collected_.begin(), collected_.end(), [](const Occurrence& a, const Occurrence& b) {
    return std::tie(a.feature, a.item) < std::tie(b.feature, b.item);
  });
  holders_.reserve(collected_.size());
  for (const Occurrence& occurrence : collected_) {
    if (features_.empty() || features_.back() != occurrence.feature) {
      features_.push_back(occurrence.feature);
      start_.push_back(static_cast<std::uint32_t>(holders_.size()));
    }
    holders_.push_back({occurrence.item, occurrence.information});
  }
  start_.push_back(static_cast<std::uint32_t>(holders_.size()));
  collected_ = {};
}

void FeatureOverlap::Question::share(const Held& own, std::size_t feature) {
  for (std::uint32_t i = row_.start_[feature]; i < row_.start_[feature + 1]; ++i) {
    const Holder& holder = row_.holders_[i];
    float& shared = shared_[holder.item];
    if (shared == 0) touched_.push_back(holder.item);
    shared += own.information + holder.information;
  }
}

// A sum goes in the order of the features, so that it is the same in every row.
const std::vector<SimPair>& FeatureOverlap::Question::neighbours(int item,
                                                                 std::span<const Held> features,
                                                                 float total, std::size_t most) {
  auto at = row_.features_.begin();
  for (const Held& own : features) {
    at = std::lower_bound(at, row_.features_.end(), own.feature);
    if (at == row_.features_.end()) break;
    if (*at == own.feature) share(own, static_cast<std::size_t>(at - row_.features_.begin()));
  }
  found_.clear();
  for (std::uint32_t index : touched_) {
    const int other = row_.first_ + static_cast<int>(index);
    const float sim = shared_[index] / (total + row_.totals_[index]);
    shared_[index] = 0;
    if (other != item) found_.push_back({other, sim});
  }
  touched_.clear();
  keep_most_similar(found_, most);
  return found_;
}

void keep_most_similar(std::vector<SimPair>& pairs, std::size_t most) {
  const auto end = pairs.begin() + static_cast<std::ptrdiff_t>(std::min(most, pairs.size()));
  std::partial_sort(pairs.begin(), end, pairs.end(), [](const SimPair& a, const SimPair& b) {
    return std::tie(b.sim, a.word) < std::tie(a.sim, b.word);
  });
  pairs.erase(end, pairs.end());
}

}  // namespace torvane
