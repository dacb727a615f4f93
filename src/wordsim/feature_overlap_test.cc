#include "wordsim/feature_overlap.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <sstream>
#include <string>

#include "wordsim/triple_features.h"

namespace torvane {
namespace {

TEST(FeatureOverlap, GivesWhatComparingEveryPairGives) {
  constexpr int kItems = 25;
  std::mt19937 random(3);
  std::map<int, std::map<FeatureOverlap::Feature, float>> features;
  FeatureOverlap overlap;
  for (int n = 0; n < 120; ++n) {
    int item = static_cast<int>(random() % kItems);
    FeatureOverlap::Feature feature = (random() % 30) << 31;
    float information = static_cast<float>(1 + random() % 8) / 4;
    if (features[item].emplace(feature, information).second)
      overlap.add(item, feature, information);
  }
  overlap.build_index();
  for (int a = 0; a < overlap.item_count(); ++a) {
    std::map<int, float> found;
    float before = 1;
    for (const SimPair& pair : overlap.neighbours(a, kItems)) {
      EXPECT_LE(pair.sim, before);
      before = found[pair.word] = pair.sim;
    }
    for (int b = 0; b < overlap.item_count(); ++b) {
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
    EXPECT_LE(overlap.neighbours(a, 2).size(), 2U);
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
