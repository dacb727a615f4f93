#include "support/text.h"

#include <gtest/gtest.h>

#include <climits>

namespace torvane {
namespace {

TEST(Text, OrdersWithoutCaseOnUnsignedBytes) {
  EXPECT_EQ(stricmp("Cat", "cAT"), 0);
  EXPECT_LT(stricmp("cat", "CATS"), 0);
  EXPECT_GT(stricmp("\xe9", "z"), 0);
  EXPECT_LT(stricmp("_", "A"), 0);  // "_" stands before "a", into which "A" is folded
  EXPECT_NE(stricmp("\xc9", "\xe9"), 0);
  EXPECT_GT(byte_compare("\xe9", "z"), 0);
}

TEST(Text, ScansNumbersLikeAFormattedScan) {
  long n = 7;
  for (const char* text : {"x1", "-", static_cast<const char*>(nullptr)})
    EXPECT_FALSE(scan_long(text, n));
  EXPECT_EQ(n, 7);
  const std::pair<const char*, long> longs[] = {{" \t+12abc", 12},
                                                {"-9223372036854775808", LONG_MIN},
                                                {"9223372036854775807", LONG_MAX},
                                                {"99999999999999999999999", LONG_MAX},
                                                {"-99999999999999999999999", LONG_MIN}};
  for (auto [text, wanted] : longs) EXPECT_TRUE(scan_long(text, n) && n == wanted) << text;
  float f = 7;
  for (const char* text : {"information", "nan", ".", "+e1", ""}) EXPECT_FALSE(scan_float(text, f));
  EXPECT_EQ(f, 7);
  const std::pair<const char*, float> floats[] = {{" -.5e", -.5F}, {"0x1F", 0}, {"1.5e1x", 15}};
  for (auto [text, wanted] : floats) EXPECT_TRUE(scan_float(text, f) && f == wanted) << text;
}

TEST(Text, QuotesWhatCannotStandAlone) {
  auto quoted = [](std::string_view text, QuoteComma comma) {
    std::string out;
    append_quoted(out, text, comma);
    return out;
  };
  EXPECT_EQ(quoted("a,b", QuoteComma::no), "a,b");
  EXPECT_EQ(quoted("a,b", QuoteComma::yes), "\"a,b\"");
  EXPECT_EQ(quoted("", QuoteComma::yes), "");
  EXPECT_EQ(quoted("a\"\\", QuoteComma::no), "\"a\\\"\\\\\"");
  for (const char* text : {"a b", "a\tb", "a\nb", "a\rb", "(", ")", ";", "\\", "\"", "\x80"})
    EXPECT_TRUE(needs_quotes(text, QuoteComma::no)) << text;
}

}  // namespace
}  // namespace torvane
