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
  EXPECT_FALSE(scan_long("x1", n));
  EXPECT_FALSE(scan_long("-", n));
  EXPECT_FALSE(scan_long(nullptr, n));
  EXPECT_EQ(n, 7);
  EXPECT_TRUE(scan_long(" \t+12abc", n));
  EXPECT_EQ(n, 12);
  EXPECT_TRUE(scan_long("-9223372036854775808", n));
  EXPECT_EQ(n, LONG_MIN);
  EXPECT_TRUE(scan_long("9223372036854775807", n));
  EXPECT_EQ(n, LONG_MAX);
  EXPECT_TRUE(scan_long("99999999999999999999999", n));
  EXPECT_EQ(n, LONG_MAX);
  EXPECT_TRUE(scan_long("-99999999999999999999999", n));
  EXPECT_EQ(n, LONG_MIN);
  float f = 7;
  for (const char* text : {"information", "nan", ".", "+e1", ""}) EXPECT_FALSE(scan_float(text, f));
  EXPECT_EQ(f, 7);
  EXPECT_TRUE(scan_float(" -.5e", f));
  EXPECT_EQ(f, -.5F);
  EXPECT_TRUE(scan_float("0x1F", f));
  EXPECT_EQ(f, 0);
  EXPECT_TRUE(scan_float("1.5e1x", f));
  EXPECT_EQ(f, 15);
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
