// How similar things are by the features that they share, each feature counted by the information
// that it carries:
//
//   sim(a, b) = sum over shared f of (I(a, f) + I(b, f)) / (sum of I(a, f) + sum of I(b, f))
//
// It is 1 for two things with all features in common and 0 for two with none. Only pairs that share
// a feature cost anything: the work follows the features' lists of holders.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "wordsim/sim_record.h"

namespace torvane {

/// Leaves so many of the most similar ones, best first; equal ones by their numbers.
void keep_most_similar(std::vector<SimPair>& pairs, std::size_t most);

/// A row of items next to each other, with which any item can be compared: all there are, or as
/// many as memory holds. A similarity is the same in whatever rows.
class FeatureOverlap {
 public:
  using Feature = std::uint64_t;
  struct Held {
    Feature feature;
    float information;
  };

  /// The items from `first` on, as many as there are totals: the information of all features of
  /// each, which must outlive this.
  FeatureOverlap(int first, std::span<const float> totals) : first_(first), totals_(totals) {}
  /// One of them has a feature; once a pair.
  void add(int item, const Held& held);
  /// Between the last `add` and the first question.
  void build_index();

  /// Asks, in a thread of its own.
  class Question {
   public:
    explicit Question(const FeatureOverlap& row) : row_(row), shared_(row.totals_.size()) {}
    /// The items of the row that are the most similar to one with such features, ascending, best
    /// first; equal ones by their numbers. Valid until the next call.
    const std::vector<SimPair>& neighbours(int item, std::span<const Held> features, float total,
                                           std::size_t most);

   private:
    void share(const Held& own, std::size_t feature);

    const FeatureOverlap& row_;
    std::vector<float> shared_;  // by item of the row: what it shares with the one in question
    std::vector<std::uint32_t> touched_;
    std::vector<SimPair> found_;
  };

 private:
  struct Occurrence {
    Feature feature;
    std::uint32_t item;  // of the row
    float information;
  };
  struct Holder {
    std::uint32_t item;
    float information;
  };

  const int first_;
  const std::span<const float> totals_;
  std::vector<Occurrence> collected_;
  std::vector<Feature> features_;     // ascending
  std::vector<std::uint32_t> start_;  // of each one's holders, and the end
  std::vector<Holder> holders_;
};

}  // namespace torvane
