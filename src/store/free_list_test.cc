#include "store/free_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace torvane {
namespace {

/// The stretches of free units in a row of flags.
std::vector<FreeExtent> stretches(const std::vector<bool>& free) {
  std::vector<FreeExtent> found;
  for (std::uint32_t i = 0; i < free.size(); ++i) {
    if (!free[i]) continue;
    if (i > 0 && free[i - 1])
      ++found.back().length;
    else
      found.push_back({i, 1});
  }
  return found;
}

TEST(FreeListTest, AgreesWithARowOfFlags) {
  std::mt19937 random(1);
  std::vector<bool> free(20000);
  FreeList list;
  auto set = [&](std::uint32_t pos, std::uint32_t length, bool value) {
    std::fill_n(free.begin() + pos, length, value);
  };
  auto any = [&](std::uint32_t pos, std::uint32_t length, bool value) {
    return std::find(free.begin() + pos, free.begin() + pos + length, value) !=
           free.begin() + pos + length;
  };
  for (int step = 0; step < 12000; ++step) {
    std::uint32_t length = random() % 6 + 1, pos = random() % 19990 + 1;
    ASSERT_EQ(list.overlaps(pos, length), any(pos, length, true));
    // Many short extents at first, then ever fewer.
    bool give = random() % 8 < (step < 6000 ? 6u : 2u);
    if (give && !any(pos, length, true)) {
      list.add(pos, length);
      set(pos, length, true);
    } else if (!give && random() % 4 == 0 && !any(pos, length, false)) {
      list.take_at(pos, length);
      set(pos, length, false);
    } else if (!give) {
      auto wanted = std::search_n(free.begin(), free.end(), static_cast<int>(length), true);
      std::uint32_t taken = list.take(length);
      ASSERT_EQ(taken, wanted == free.end() ? 0 : wanted - free.begin());
      if (taken != 0) set(taken, length, false);
    }
    if (step % 500 != 0) continue;
    std::vector<FreeExtent> have;
    list.for_each([&](const FreeExtent& extent) { have.push_back(extent); });
    ASSERT_EQ(have.size(), list.count());
    ASSERT_TRUE(std::ranges::equal(have, stretches(free), [](FreeExtent a, FreeExtent b) {
      return a.pos == b.pos && a.length == b.length;
    })) << step;
  }
}

}  // namespace
}  // namespace torvane
