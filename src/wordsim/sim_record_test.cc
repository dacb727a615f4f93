#include "wordsim/sim_record.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "wordsim/sim_store.h"

namespace torvane {
namespace {

// One pair put into a descending list, step by step.
void insert_one(std::vector<SimPair>& list, SimPair fresh) {
  std::size_t place = 0;
  bool found = false;
  for (std::size_t i = list.size(); i > 0; --i) {
    const SimPair& pair = list[i - 1];
    if (!found && pair.sim >= fresh.sim) {
      place = i;
      found = true;
    }
    if (pair.sim > fresh.sim) break;
    if (pair.word == fresh.word) return;
  }
  list.insert(list.begin() + static_cast<std::ptrdiff_t>(place), fresh);
}

TEST(SimInserter, GivesWhatOneByOneGives) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    SimRecord record(1);
    std::vector<SimPair> wanted;
    SimInserter inserter;
    for (int i = 0; i < round % 6; ++i) {  // what a dictionary gave, in no order
      wanted.push_back({1 + static_cast<int>(random() % 9), static_cast<float>(random() % 6)});
      record.sims[2].append(wanted.back());
    }
    for (int list = 0; list < 3; ++list) {
      inserter.open(record, 2);
      for (int i = 0; i < 12; ++i) {
        SimPair pair{1 + static_cast<int>(random() % 9), static_cast<float>(random() % 6)};
        insert_one(wanted, pair);
        inserter.insert_sim(pair.word, pair.sim);
      }
      inserter.close();
    }
    ASSERT_EQ(record.sims[2].count(), static_cast<int>(wanted.size()));
    for (int i = 0; i < record.sims[2].count(); ++i) {
      EXPECT_EQ(record.sims[2][i].word, wanted[static_cast<std::size_t>(i)].word);
      EXPECT_EQ(record.sims[2][i].sim, wanted[static_cast<std::size_t>(i)].sim);
    }
  }
}

class PackedRecord : public testing::Test {
 protected:
  PackedRecord() {
    for (int i = 1; i <= 40; ++i) record_.sims[0].append({i, 50.0F - static_cast<float>(i)});
    LBitSet group(41);
    for (int i : {0, 2, 35}) group.set(i);
    record_.add_group(0, group);
    record_.add_group(0, LBitSet(41));
    record_.add_group(2, LBitSet(1));
    pack_record(record_, "w", packed_);
  }
  // The bytes after the key, in a block of their own so that a read beyond them shows.
  std::vector<char> value() const {
    return {packed_.object() + 2, packed_.object() + packed_.object_size()};
  }
  static bool unpack(const std::vector<char>& bytes, int ids, int most, SimRecord& record) {
    return unpack_record(bytes.data(), bytes.data() + bytes.size(), ids, most, record);
  }
  SimRecord record_{1};
  StrBufs packed_;
};

TEST_F(PackedRecord, ComesBackCutToItsLength) {
  SimRecord whole(1), cut(1), none(1);
  std::vector<char> bytes = value();
  ASSERT_TRUE(unpack(bytes, 41, 40, whole));
  EXPECT_EQ(whole.sims[0].count(), 40);
  ASSERT_GT(whole.groups[0].length(), 0);
  for (int i = 0; i < 41; ++i)
    EXPECT_EQ(whole.groups[0].nth(0)->test(i), i == 0 || i == 2 || i == 35) << i;
  ASSERT_TRUE(unpack(bytes, 41, 2, cut));
  ASSERT_EQ(cut.sims[0].count(), 2);
  EXPECT_EQ(cut.sims[0][1].word, 2);
  EXPECT_EQ(cut.sims[0][1].sim, 48);
  ASSERT_EQ(cut.groups[0].length(), 1);
  EXPECT_EQ(cut.groups[0].nth(0)->count(), 1);
  EXPECT_EQ(cut.groups[2].length(), 0);
  ASSERT_TRUE(unpack(bytes, 41, 0, none));
  EXPECT_EQ(none.sims[0].count() + none.groups[0].length(), 0);
}

TEST_F(PackedRecord, IsRefusedWhenBytesOrIdsAreMissing) {
  std::vector<char> bytes = value();
  SimRecord out(1);
  EXPECT_FALSE(unpack(bytes, 40, 0, out));
  while (!bytes.empty()) {
    bytes.pop_back();
    bytes.shrink_to_fit();
    SimRecord part(1);
    EXPECT_FALSE(unpack(bytes, 41, 0, part)) << bytes.size();
  }
}

}  // namespace
}  // namespace torvane
