#include "lex/lexicon_files.h"

#include <gtest/gtest.h>

namespace torvane {
namespace {

TEST(ItemKey, WordsOfTheHeading) {
  EXPECT_EQ(item_key("(dog (g a))"), "dog");
  EXPECT_EQ(item_key("( give\n\t up|in  (g a))"), "give up in");
  EXPECT_EQ(item_key("(dog)"), "dog");
  EXPECT_EQ(item_key("()"), "");
  EXPECT_EQ(item_key("(\"give up\" (g a))"), "\"give up\"");
  EXPECT_EQ(item_key(""), "");
}

}  // namespace
}  // namespace torvane
