// The containers whose order can be seen from outside.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "support/array.h"
#include "support/hash.h"
#include "support/name_table.h"
#include "support/poset.h"
#include "support/slist.h"

namespace torvane {
namespace {

using Ints = std::vector<int>;

Ints contents(const Slist<int>& list) {
  return {list.begin(), list.end()};
}

TEST(Slist, IteratorEditsWhereItStands) {
  Slist<int> list;
  for (int i : {1, 2, 3, 4}) list.append(i);
  for (SlistIterator<int> it(list); !it.done();) {
    if (it.current() % 2 == 0) {
      it.insert_here(it.current() * 10);
      it.next();
    } else {
      it.remove_here();
    }
  }
  EXPECT_EQ(contents(list), (Ints{20, 2, 40, 4}));
  for (SlistIterator<int> it(list); !it.done();) it.remove_here();
  EXPECT_TRUE(list.empty());
  SlistIterator<int> end(list);
  end.insert_here(5);
  EXPECT_EQ(contents(list), Ints{5});
}

TEST(Array, SortsAndHoldsObjects) {
  std::mt19937 random(1);
  for (int n : {0, 1, 2, 3, 4, 5, 50, 3000}) {
    Array<std::string> a;
    std::vector<std::string> wanted;
    for (int i = 0; i < n; ++i) {
      a.append(std::to_string(random() % 100));
      wanted.push_back(a[i]);
    }
    a.sort([](const std::string& x, const std::string& y) { return x.compare(y); });
    std::sort(wanted.begin(), wanted.end());
    EXPECT_EQ(std::vector<std::string>(a.begin(), a.end()), wanted);
  }
  Array<int> equal;
  for (int i = 0; i < 100000; ++i) equal.append(1);
  equal.sort([](int x, int y) { return x - y; });  // neither deep nor slow
  EXPECT_EQ(equal.count(), 100000);
}

TEST(Hash, IsOf32BitsAndWithoutCase) {
  EXPECT_EQ(string_hash(""), 0U);
  EXPECT_EQ(string_hash("a"), 0x61U);
  EXPECT_EQ(string_hash("aB"), 0x61U * 16 + 0x62);
  // What the seventh letter pushes out at the top comes back at the bottom.
  EXPECT_EQ(string_hash("aaaaaa"), 0x6777771U);
  EXPECT_EQ(string_hash("aaaaaaa"), 0x7777711U);
  EXPECT_EQ(string_hash("AAAAAAAA"), 0x7777101U);
  EXPECT_EQ(int_hash(2), 0x3C6EF36EU);
  EXPECT_EQ(next_prime(0), 101);
  EXPECT_EQ(next_prime(101), 101);
  EXPECT_EQ(next_prime(102), 1997);
  EXPECT_EQ(next_prime(99991), 99991);
  EXPECT_EQ(next_prime(100000), 100000);
}

TEST(NameTable, ListsBucketsWithAscendingChains) {
  NameTable<int> table(11);
  // Eleven letters apart: one bucket.
  for (const char* key : {"x", "m", "b"}) table.insert(key, 0);
  ASSERT_EQ(string_hash("x") % 11, string_hash("b") % 11);
  std::string keys;
  table.for_each([&](const auto& entry) { keys += entry.key; });
  EXPECT_EQ(keys, "bmx");
}

// Numbers under divisibility: 12 above 4 and 6, which stand above 2.
int divides(Poset::Value a, Poset::Value b) {
  int x = *static_cast<const int*>(a);
  int y = *static_cast<const int*>(b);
  return x == y ? 0 : y % x == 0 ? -1 : x % y == 0 ? 1 : 2;
}

TEST(Poset, LinksEachValueToItsClosestNeighbours) {
  static const int numbers[] = {12, 1, 2, 3, 6, 5, 4, 60};
  Poset poset(divides);
  for (const int& n : numbers) poset.insert(&n, divides);
  poset.insert(&numbers[0], divides);
  EXPECT_EQ(poset.count(), 8);
  auto node = [&](int n) { return poset.find_or_add(&n, false); };
  auto values = [](const Slist<PosetNode*>& nodes) {
    Ints list;
    for (PosetNode* n : nodes) list.push_back(*static_cast<const int*>(n->value));
    std::sort(list.begin(), list.end());
    return list;
  };
  EXPECT_EQ(values(node(60)->below), (Ints{5, 12}));
  EXPECT_EQ(values(node(1)->above), (Ints{2, 3, 5, 12}));  // 12 was there before 2
  EXPECT_TRUE(node(60)->reach.test(node(2)->index));
  EXPECT_FALSE(node(12)->reach.test(node(5)->index));

  Ints visited;
  for (PosetIterator it(poset); it.current(); it.next())
    visited.push_back(*static_cast<const int*>(it.current()->value));
  auto place = [&](int n) {
    return std::find(visited.begin(), visited.end(), n) - visited.begin();
  };
  EXPECT_EQ(visited.size(), 8U);
  EXPECT_LT(place(2), place(4));
  EXPECT_LT(place(6), place(12));
  PosetIterator skipping(poset);
  skipping.skip();  // past 1, and so past all
  EXPECT_EQ(skipping.current(), nullptr);
}

}  // namespace
}  // namespace torvane
