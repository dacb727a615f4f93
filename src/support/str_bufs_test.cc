#include "support/str_bufs.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace torvane {
namespace {

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

}  // namespace
}  // namespace torvane
