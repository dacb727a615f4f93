// How similar two things are by the features that they share, each feature counted by the
// information that it carries:
//
//   sim(a, b) = sum over shared f of (I(a, f) + I(b, f)) / (sum of I(a, f) + sum of I(b, f))
//
// It is 1 for two things with all features in common and 0 for two with none. Only pairs that share
// a feature cost anything: the work follows the features' lists of holders.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "wordsim/sim_record.h"

namespace torvane {

class FeatureOverlap {
 public:
  using Feature = std::uint64_t;

  /// Item `item` (from 0) has a feature, with so much information; once a pair.
  void add(int item, Feature feature, float information);
  /// Between the last `add` and the first question.
  void build_index();

  int item_count() const { return static_cast<int>(totals_.size()); }
  std::size_t occurrence_count() const { return occurrences_; }
  /// All information of an item's features.
  float total(int item) const { return totals_[static_cast<std::size_t>(item)]; }
  /// The most similar items, best first; equal ones by their numbers. Valid until the next call.
  const std::vector<SimPair>& neighbours(int item, std::size_t most);

 private:
  struct Occurrence {
    Feature feature;
    std::uint32_t item;
    float information;
  };
  /// With an index of either side: a holder of a feature, or a feature of an item.
  struct Weighted {
    std::uint32_t index;
    float information;
  };
  /// Rows of different lengths, end to end.
  struct Rows {
    std::vector<std::uint32_t> start;  // of each row, and the end
    std::vector<Weighted> cells;
  };
  void index_features();
  void index_items();

  std::vector<Occurrence> collected_;
  std::vector<float> totals_;  // by item
  std::size_t occurrences_ = 0;
  Rows holders_;               // by feature; of features that several items have
  Rows features_;              // by item; of these features
  std::vector<float> shared_;  // by item: what it shares with the one in question
  std::vector<std::uint32_t> touched_;
  std::vector<SimPair> found_;
};

}  // namespace torvane
