#include "support/regexp.h"

#include <random>
#include <regex>

#include "support/test_support.h"

namespace torvane {
namespace {

// The match and its groups as "FROM-TO" in a row, "." for a group that is not set; empty for no
// match.
std::string match(const char* pattern, const std::string& text, bool line_start = true) {
  auto compiled = regcomp(pattern);
  if (!regexec(compiled.get(), text.c_str(), line_start)) return "";
  std::string result;
  for (int i = 0; i < 10; ++i) {
    if (i > 0) result += ' ';
    if (!compiled->startp[i]) {
      result += '.';
      continue;
    }
    auto offset = [&](const char* p) { return std::to_string(p - text.c_str()); };
    result += offset(compiled->startp[i]) + "-" + offset(compiled->endp[i]);
  }
  while (result.ends_with(" .")) result.resize(result.size() - 2);
  return result;
}

// What random expressions do not come to: brackets, ends, and groups.
TEST(Regexp, MatchesByTheTable) {
  const char* const cases[][3] = {
      {"", "abc", "0-0"},
      {".", "", ""},
      {"[]x]+", "a]x]", "1-4"},
      {"[^]x]", "]xa", "2-3"},
      {"[-a]+", "b-a-", "1-4"},
      {"[a-]+", "b-a-", "1-4"},
      {"[a-c-e]+", "abdec-", "0-5"},
      {"[b-b]", "b", "0-1"},
      {"[^a]", "", ""},
      {"\\.\\*", "a.*", "1-3"},
      {"a]b", "a]b", "0-3"},
      {"[\xe0-\xef]+", "a\xe9\xe8z", "1-3"},
      {"\xe9", "caf\xe9", "3-4"},
      {"^a", "ba", ""},
      {"a$", "aba", "2-3"},
      {"$", "ab", "2-2"},
      {"^$", "", "0-0"},
      {"a^b", "a^b", ""},
      {"x?$", "ab", "2-2"},
      {"(ab)+$", "xababab", "1-7 5-7"},
      {"(a*)?b", "aab", "0-3 0-2"},
      {"(a|b)*c", "abac", "0-4 2-3"},
      {"(a)|(b)", "b", "0-1 . 0-1"},
      {"((a)|b)+", "ab", "0-2 1-2 0-1"},
      {"(a+)(a*)a", "aaa", "0-3 0-2 2-2"},
      {"(((((((((x)))))))))", "x", "0-1 0-1 0-1 0-1 0-1 0-1 0-1 0-1 0-1 0-1"}};
  for (const auto& [pattern, text, wanted] : cases)
    EXPECT_EQ(match(pattern, text), wanted) << pattern;
  EXPECT_EQ(match("^a", "aa", false), "");
  EXPECT_EQ(match("b|^a", "ab", false), "1-2");
}

TEST(Regexp, AgreesWithTheStandardLibrary) {
  std::mt19937 random(3);
  auto pick = [&](unsigned n) { return random() % n; };
  for (int round = 0; round < 2000; ++round) {
    std::string pattern;
    for (unsigned pieces = 1 + pick(4); pieces > 0; --pieces) {
      static const char* const kAtoms[] = {"a",    "b",      ".",    "[ab]",
                                           "[^a]", "(a|bc)", "(ab)", "(b|a+b)"};
      pattern += kAtoms[pick(8)];
      static const char* const kRepeats[] = {"", "", "*", "+", "?"};
      pattern += kRepeats[pick(5)];
      if (pieces > 1 && pick(6) == 0) pattern += '|';
    }
    std::regex standard(pattern);
    for (int i = 0; i < 5; ++i) {
      std::string text;
      for (unsigned n = pick(9); n > 0; --n) text += static_cast<char>('a' + pick(3));
      std::smatch found;
      std::string wanted;
      if (std::regex_search(text, found, standard))
        wanted = std::to_string(found.position()) + "-" +
                 std::to_string(found.position() + found.length());
      std::string actual = match(pattern.c_str(), text);
      EXPECT_EQ(actual.substr(0, actual.find(' ')), wanted) << pattern << " on " << text;
    }
  }
}

// Expressions whose failures cannot all be tried, and texts longer than a machine stack.
TEST(Regexp, EndsOnWhatInvitesToGoOnForEver) {
  std::string as(5000, 'a');
  EXPECT_EQ(match("(a|aa)*b", as), "");
  EXPECT_EQ(match("(a|aa)*c?$", as), "0-5000 4999-5000");
  EXPECT_EQ(match("((a|b)*c|(a|b)*d)*e", as), "");
  EXPECT_EQ(match("a*a*a*a*a*[bc]", as), "");
  std::string long_text(1000000, 'a');
  EXPECT_EQ(match("(a|b)*", long_text), "0-1000000 999999-1000000");
  EXPECT_EQ(match("a*[bc]", long_text), "");
  EXPECT_EQ(match(".*.*.*[bc]", long_text), "");
  std::string longer_text(3000000, 'a');
  EXPECT_EQ(messages_of([&] { EXPECT_EQ(match("((a)|b)*[ac]", longer_text), ""); }),
            "regexp: the text is too long to be matched\n");
}

TEST(RegexpDeath, NamesTheFault) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  const char* const faults[][2] = {{nullptr, "NULL argument"},
                                   {"((((((((((a))))))))))", "too many \\(\\)"},
                                   {"(", "unmatched \\(\\)"},
                                   {"a)", "unmatched \\(\\)"},
                                   {"(a|b", "unmatched \\(\\)"},
                                   {"(a*)*", "\\*\\+ operand could be empty"},
                                   {"^+", "\\*\\+ operand could be empty"},
                                   {"a**", "nested \\*\\?\\+"},
                                   {"a+?", "nested \\*\\?\\+"},
                                   {"[a", "unmatched \\[\\]"},
                                   {"[", "unmatched \\[\\]"},
                                   {"[c-a]", "invalid \\[\\] range"},
                                   {"*a", "\\?\\+\\* follows nothing"},
                                   {"(+)", "\\?\\+\\* follows nothing"},
                                   {"a\\", "trailing \\\\"}};
  for (const auto& [pattern, message] : faults)
    EXPECT_EXIT(regcomp(pattern), testing::ExitedWithCode(1),
                std::string("^regexp\\(3\\): ") + message + "\n$");
  std::string big(40000, 'a');
  EXPECT_EXIT(regcomp(big.c_str()), testing::ExitedWithCode(1), "regexp too big");
  std::string many;
  for (int i = 0; i < 9000; ++i) many += "a|";
  EXPECT_EXIT(regcomp(many.c_str()), testing::ExitedWithCode(1), "regexp too big");
  auto compiled = regcomp("a");
  EXPECT_EXIT(regexec(nullptr, "a"), testing::ExitedWithCode(1), "NULL parameter");
  EXPECT_EXIT(regexec(compiled.get(), nullptr), testing::ExitedWithCode(1), "NULL parameter");
  compiled->program[0] = 0;
  EXPECT_EXIT(regexec(compiled.get(), "a"), testing::ExitedWithCode(1), "corrupted program");
}

}  // namespace
}  // namespace torvane
