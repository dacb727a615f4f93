#include "store/str2id.h"

#include "support/test_support.h"

namespace torvane {
namespace {

TEST(Str2IdTest, IdsAreDenseAndWithoutCase) {
  Str2Id ids(2);
  EXPECT_EQ(ids.get_id(nullptr, true), 0);
  EXPECT_EQ(ids.get_id("dog", false), 0);
  EXPECT_EQ(ids.get_id("Dog", true), 1);
  EXPECT_EQ(ids.get_id("dOG", true), 1);
  EXPECT_STREQ(ids.get_string(1), "Dog");
  EXPECT_EQ(ids.get_string(0), nullptr);
  EXPECT_EQ(ids.get_id("", true), 2);
  for (int i = 0; i < 1000; ++i)
    EXPECT_EQ(ids.get_id(("w" + std::to_string(i)).c_str(), true), i + 3);
  for (int i = 0; i < 1000; ++i)
    EXPECT_EQ(ids.get_id(("W" + std::to_string(i)).c_str(), false), i + 3);
  EXPECT_EQ(ids.count(), 1003);
  EXPECT_EQ(messages_of([&] { EXPECT_EQ(ids.get_string(1003), nullptr); }),
            "Array index out of bounds: 1003 It should be between 0 and 1002\n");
  ids.clear();
  EXPECT_EQ(ids.count(), 1);
  EXPECT_EQ(ids.get_id("w7", true), 1);
}

TEST(Str2IdTest, PackedTable) {
  Str2Id ids;
  ids.get_id("the", true);
  ids.get_id("Dog", true);
  StrBufs buf;
  ids.pack(buf);
  const std::string packed(buf.object(), buf.object_size());
  EXPECT_EQ(packed, bytes_from("00000003 'the' 00 'Dog' 00"));

  const char* cursor = packed.data();
  Str2Id copy;
  copy.get_id("gone", true);
  EXPECT_TRUE(copy.unpack(cursor, packed.data() + packed.size()));
  EXPECT_EQ(cursor, packed.data() + packed.size());
  EXPECT_EQ(copy.get_id("dog", false), 2);
  EXPECT_EQ(copy.get_id("gone", false), 0);

  std::string twice = bytes_from("00000004 'a' 00 'A' 00 'b' 00");
  cursor = twice.data();
  EXPECT_EQ(messages_of([&] { EXPECT_TRUE(copy.unpack(cursor, twice.data() + twice.size())); }),
            "Duplicate entry in Str2Id: A\n");
  EXPECT_EQ(copy.get_id("b", false), 2);

  // Whatever is cut off, what there was is read and nothing beyond it.
  for (std::size_t size = 0; size < packed.size(); ++size) {
    std::string part(packed, 0, size);
    cursor = part.data();
    EXPECT_FALSE(copy.unpack(cursor, part.data() + size));
    EXPECT_EQ(copy.count(), size < 8 ? 1 : 2);
  }
}

}  // namespace
}  // namespace torvane
