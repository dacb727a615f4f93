#include "wordsim/feature_overlap.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <span>
#include <vector>

#include "wordsim/triple_features.h"

namespace torvane {
namespace {

TEST(FeatureOverlap, GivesWhatComparingEveryPairGives) {
  constexpr int kItems = 25;
  std::mt19937 random(3);
  std::map<int, std::map<FeatureOverlap::Feature, float>> features;
  for (int n = 0; n < 120; ++n) {
    int item = static_cast<int>(random() % kItems);
    FeatureOverlap::Feature feature = (random() % 30) << 31;
    float information = static_cast<float>(1 + random() % 8) / 4;
    features[item].emplace(feature, information);
  }
  std::vector<std::vector<FeatureOverlap::Held>> held(kItems);
  std::vector<float> totals(kItems);
  for (const auto& [item, of_item] : features)
    for (auto [feature, information] : of_item) {
      held[item].push_back({feature, information});
      totals[item] += information;
    }
  // In one row, and in two.
  constexpr int kCut = 10;
  const std::span<const float> all_totals(totals);
  FeatureOverlap whole(0, totals), low(0, all_totals.first(kCut)),
      high(kCut, all_totals.subspan(kCut));
  for (int item = 0; item < kItems; ++item)
    for (const FeatureOverlap::Held& one : held[item]) {
      whole.add(item, one);
      (item < kCut ? low : high).add(item, one);
    }
  for (FeatureOverlap* row : {&whole, &low, &high}) row->build_index();
  FeatureOverlap::Question in_whole(whole), in_low(low), in_high(high);
  for (int a = 0; a < kItems; ++a) {
    std::map<int, float> found;
    float before = 1;
    for (const SimPair& pair : in_whole.neighbours(a, held[a], totals[a], kItems)) {
      EXPECT_LE(pair.sim, before);
      before = found[pair.word] = pair.sim;
    }
    std::map<int, float> in_two;
    for (FeatureOverlap::Question* question : {&in_low, &in_high})
      for (const SimPair& pair : question->neighbours(a, held[a], totals[a], kItems))
        in_two[pair.word] = pair.sim;
    EXPECT_EQ(found, in_two);
    for (int b = 0; b < kItems; ++b) {
      float shared = 0, all = 0;
      for (auto [f, i] : features[a]) {
        all += i;
        if (features[b].contains(f)) shared += i + features[b][f];
      }
      for (auto [f, i] : features[b]) all += i;
      ASSERT_EQ(found.contains(b), b != a && shared > 0);
      if (found.contains(b)) {
        EXPECT_FLOAT_EQ(found[b], shared / all);
      }
    }
    EXPECT_LE(in_whole.neighbours(a, held[a], totals[a], 2).size(), 2U);
  }
}

TEST(RelationEnd, HasThePartOfSpeechOfItsCategory) {
  EXPECT_EQ(relation_end_pos("V:obj:N", true), 1);
  EXPECT_EQ(relation_end_pos("v:out:of:n", false), 0);
  EXPECT_EQ(relation_end_pos("N:mod:A", false), 2);
  EXPECT_EQ(relation_end_pos("Num:mod:Adv", true), -1);
  EXPECT_EQ(relation_end_pos("Num:mod:Adv", false), 2);
  EXPECT_EQ(relation_end_pos("N:", false), -1);
  EXPECT_EQ(relation_end_pos("_subj", true), 0);
}

}  // namespace
}  // namespace torvane
