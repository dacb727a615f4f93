#include "support/bit_set.h"

#include <random>
#include <vector>

#include "support/test_support.h"

namespace torvane {
namespace {

// A set as its bits: those below kWidth, and one for all beyond.
constexpr int kWidth = 160;
using Model = std::vector<bool>;

class BitSetTest : public testing::Test {
 protected:
  void change(LBitSet& set, Model& model) {
    int a = pick(kWidth);
    int b = pick(kWidth);
    switch (pick(6)) {
      case 0:
      case 1:
        b = a;
        [[fallthrough]];
      case 2:
      case 3: {
        bool value = pick(2) == 0;
        if (b < a) std::swap(a, b);
        if (a == b)
          value ? set.set(a) : set.clear(a);
        else
          value ? set.set(a, b) : set.clear(a, b);
        for (int i = a; i <= b; ++i) model[i] = value;
        break;
      }
      case 4:
        set = set.complement();
        model.flip();
        break;
      default:
        set.put_word(a / 32, 0xff00ff00U, 0xf0f0f0f0U);
        for (int i = a / 32 * 32; i < a / 32 * 32 + 32 && i < kWidth; ++i)
          if ((0xff00ff00U >> (i % 32)) & 1) model[i] = (0xf0f0f0f0U >> (i % 32)) & 1;
        break;
    }
  }
  static void expect_same(const LBitSet& set, const Model& model) {
    for (int i = 0; i < kWidth; ++i) ASSERT_EQ(set.test(i), model[i]) << i;
    EXPECT_EQ(set.test(100000), model[kWidth]);
  }
  int pick(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  std::mt19937 random_{7};
};

TEST_F(BitSetTest, AgreesWithAModel) {
  for (int round = 0; round < 3000; ++round) {
    LBitSet a(pick(3) * 40);
    LBitSet b;
    Model x(kWidth + 1), y = x;
    for (int i = pick(6); i > 0; --i) change(a, x);
    for (int i = pick(6); i > 0; --i) change(b, y);
    if (pick(4) == 0) {
      b = a;
      y = x;
    }
    LBitSet keep_a = a;
    LBitSet both = a & b;
    LBitSet either = a | b;
    Model wanted_both(kWidth + 1), wanted_either = wanted_both;
    bool outside = false, other_outside = false, common = false;
    for (int i = 0; i <= kWidth; ++i) {
      wanted_both[i] = x[i] && y[i];
      wanted_either[i] = x[i] || y[i];
      outside |= x[i] && !y[i];
      other_outside |= y[i] && !x[i];
      common |= wanted_both[i];
    }
    expect_same(a, x);
    expect_same(both, wanted_both);
    expect_same(either, wanted_either);
    EXPECT_EQ(a == b, !outside && !other_outside);
    EXPECT_EQ(a.subset_of(b), !outside);
    int order = !outside ? (other_outside ? -1 : 0) : !other_outside ? 1 : common ? 2 : -2;
    EXPECT_EQ(a.compare(b), order);
    EXPECT_EQ(keep_a, a);
  }
}

TEST(BitSet, GrowsOnlyWhereTheTailDiffers) {
  LBitSet a(1);
  a.clear(500);
  EXPECT_EQ(a.word_count(), 1);
  LBitSet all = a.complement();
  all.set(500);
  EXPECT_EQ(all.word_count(), 1);
  all.clear(500);
  EXPECT_EQ(all.word_count(), 16);
  EXPECT_TRUE(all.test(499));
  EXPECT_TRUE(all.test(512));
  all.clear(-1);
  EXPECT_FALSE(all.test(-1));
}

TEST(BitSet, TakesNoRangeOrNumberAmiss) {
  LBitSet a;
  EXPECT_EQ(messages_of([&] { a.set(4, 3), a.clear(9, -1); }),
            "LBitSetRep::set(4, 3)\nLBitSetRep::clear(9, -1)\n");
  EXPECT_TRUE(a.is_empty());
  const int list[] = {5, 0, 8, 7};
  a.init(8, list);  // stops at the first stranger
  EXPECT_EQ(a.count(), 2);
  EXPECT_TRUE(a.test(0) && a.test(5));
}

TEST(BitSet, WalksTheBitsAsTheyWere) {
  LBitSet a;
  for (int i : {0, 31, 32, 95}) a.set(i);
  LBitSetIterator it(a);
  for (int wanted : {0, 31, 32, 95, -1, -1}) {
    EXPECT_EQ(it.next(), wanted);
    a.clear(0, 100);
  }
  LBitSet none;
  EXPECT_EQ(LBitSetIterator(none).next(), -1);
  LBitSet all = none.complement();  // its bits lie beyond the words
  EXPECT_EQ(LBitSetIterator(all).next(), -1);
  EXPECT_FALSE(all.is_empty());
  EXPECT_EQ(all.count(), 0);
}

TEST(BitSet, PacksBigEndianAndReadsNoFurtherThanTheEnd) {
  LBitSet a(40);
  a.set(0);
  a.set(39);
  StrBufs out;
  a.pack(out);
  std::string packed(out.object(), out.object_size());
  EXPECT_EQ(packed, std::string("\0\2\0\0\0\1\0\0\0\x80", 10));
  LBitSet b;
  const char* p = packed.data();
  ASSERT_TRUE(b.unpack(p, packed.data() + packed.size()));
  EXPECT_EQ(p, packed.data() + packed.size());
  EXPECT_EQ(a, b);
  for (std::size_t cut = 0; cut < packed.size(); ++cut) {
    p = packed.data();
    EXPECT_FALSE(b.unpack(p, packed.data() + cut));
  }
}

}  // namespace
}  // namespace torvane
