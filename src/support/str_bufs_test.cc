#include "support/str_bufs.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace torvane {
namespace {

TEST(StrBufs, KeepsClosedObjectsInPlaceWhileLaterOnesGrow) {
  StrBufs strings(16);
  char* first = strings.copy("first");
  std::string long_text(1000, 'x');
  for (char c : long_text) strings.add_char(c);
  char* second = strings.finish();
  char* third = strings.concat("a", nullptr, "b", "", "c");
  EXPECT_STREQ(first, "first");
  EXPECT_EQ(second, long_text);
  EXPECT_STREQ(third, "abc");
  EXPECT_EQ(strings.copy(nullptr), nullptr);
}

TEST(StrBufs, LaysObjectsEndToEnd) {
  StrBufs strings(64);
  char* a = strings.copy("ab");
  char* b = strings.copy("");
  EXPECT_EQ(b, a + 3);
  strings.add_string("dropped");
  strings.abandon();
  EXPECT_EQ(strings.copy("c"), b + 1);
}

TEST(StrBufs, ResetKeepsTheOldestChunkOnly) {
  StrBufs strings(32);
  char* first = strings.copy("x");
  for (int i = 0; i < 100; ++i) strings.copy("some text that fills a chunk");
  EXPECT_GT(strings.bytes_reserved(), 1000U);
  strings.reset();
  EXPECT_EQ(strings.bytes_reserved(), 32U);
  EXPECT_EQ(strings.copy("y"), first);
}

TEST(StrBufs, HoldsObjectsOfEverySizeAroundTheChunk) {
  for (std::size_t lead : {0U, 1U, 7U}) {
    for (std::size_t size = 0; size < 100; ++size) {
      StrBufs strings(16);
      std::string front(lead, 'f');
      char* before = strings.copy(std::string_view(front));
      std::string text(size, 't');
      strings.add_string(std::string_view(text));
      strings.add_bytes(text.data(), text.size());
      EXPECT_EQ(strings.finish(), text + text);
      EXPECT_EQ(before, front);
    }
  }
}

TEST(StrBufs, WritesBigEndian) {
  StrBufs strings;
  strings.add_be16(0x0102);
  strings.add_be32(0xfffefdfc);
  strings.add_text("z");
  EXPECT_EQ(std::string(strings.object(), strings.object_size()),
            std::string("\x01\x02\xff\xfe\xfd\xfcz\0", 8));
}

TEST(StrBufs, ReadsLinesToTheEnd) {
  StrBufs strings;
  std::istringstream stream("one\n\nlast");
  EXPECT_STREQ(strings.read_line(stream), "one");
  EXPECT_STREQ(strings.read_line(stream), "");
  EXPECT_STREQ(strings.read_line(stream), "last");
  EXPECT_EQ(strings.read_line(stream), nullptr);
}

TEST(StrBufs, QuotesAtoms) {
  StrBufs strings;
  EXPECT_STREQ(strings.quote("plain"), "plain");
  EXPECT_STREQ(strings.quote("a,b"), "\"a,b\"");
  EXPECT_STREQ(strings.quote("\"\\"), "\"\\\"\\\\\"");
  EXPECT_STREQ(strings.quote(""), "");
}

}  // namespace
}  // namespace torvane
