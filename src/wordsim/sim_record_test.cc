#include "wordsim/sim_record.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "wordsim/sim_store.h"

namespace torvane {
namespace {

std::string text_of(const SimRecord& record, int pos) {
  std::string text;
  for (const SimPair& pair : record.sims[pos])
    text += std::to_string(pair.word) + ":" + std::to_string(pair.sim) + " ";
  for (const LBitSet* group : record.groups[pos]) {
    text += "(";
    LBitSetIterator members(*group);
    for (int i = members.next(); i >= 0; i = members.next()) text += std::to_string(i) + " ";
    text += ")";
  }
  return text;
}

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
  // The bytes behind the key, in a block of their own so that a read beyond them shows.
  std::vector<char> value() const {
    return {packed_.object() + 2, packed_.object() + packed_.object_size()};
  }
  SimRecord record_{1};
  StrBufs packed_;
};

TEST_F(PackedRecord, ComesBackCutToItsLength) {
  std::vector<char> bytes = value();
  SimRecord whole(1), cut(1);
  EXPECT_TRUE(unpack_record(bytes.data(), bytes.data() + bytes.size(), 41, 0, whole));
  EXPECT_EQ(whole.sims[0].count(), 40);
  EXPECT_NE(text_of(whole, 0).find("(0 2 35 )"), std::string::npos);
  EXPECT_TRUE(unpack_record(bytes.data(), bytes.data() + bytes.size(), 41, 2, cut));
  EXPECT_EQ(text_of(cut, 0), "1:49.000000 2:48.000000 (0 )");
  EXPECT_EQ(text_of(cut, 2), "");
}

TEST_F(PackedRecord, IsRefusedWhenBytesOrIdsAreMissing) {
  std::vector<char> bytes = value();
  SimRecord out(1);
  EXPECT_FALSE(unpack_record(bytes.data(), bytes.data() + bytes.size(), 40, 0, out));
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    std::vector<char> front(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    SimRecord part(1);
    EXPECT_FALSE(unpack_record(front.data(), front.data() + size, 41, 0, part)) << size;
  }
}

}  // namespace
}  // namespace torvane
