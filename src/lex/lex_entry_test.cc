#include "lex/lex_entry.h"

#include "lex/lexicon_fixture.h"

namespace torvane {
namespace {

struct HeadingCase {
  const char* form;
  const char* key;
  int left;
  int right;
  bool is_phrase;
};

TEST(Heading, KeyAndSpan) {
  const HeadingCase cases[] = {
      {"(dog (g a))", "dog", 0, 0, false},
      {"(give up (g a))", "give up", 0, 1, true},
      {"(York , New (g a))", "York, New", 1, 1 - 1, true},
      {"(b c , x a)", "b c, x a", 2, 1, true},
      {"(York, New)", "York, New", 1, 0, true},
      // An apostrophe is a token more, a hyphen two.
      {"(don't)", "don't", 0, 1, false},
      {"(look x-ray up)", "look x-ray up", 0, 4, true},
      {"(up , don't a-b)", "up, don't a-b", 5, 0, true},
      {"(\"give up\")", "give up", 0, 0, false},
      // Words of other scripts are joined without a blank.
      {"(\xE5\xA4\xA7 \xE5\xAD\xA6)", "\xE5\xA4\xA7\xE5\xAD\xA6", 0, 1, true},
      {"(a \xE5\xAD\xA6 b)", "a\xE5\xAD\xA6 b", 0, 2, true},
      // Only the first comma divides; what cannot be counted is 0.
      {"(a , b , c)", "a, b , c", 3, 0, true},
      {"(, x)", ", x", 1, 0, true},
      {"(x ,)", "x,", 0, 0, true},
      {"(a (g b) c)", "a", 0, 0, false},
      {"((g a) b)", "", 0, 0, false},
      {"(\"\" b)", "b", 0, 1, true},
  };
  IRSlistReader reader;
  for (const HeadingCase& c : cases) {
    SCOPED_TRACE(c.form);
    Heading heading = parse_heading(*reader.start_string(c.form));
    EXPECT_EQ(heading.key, c.key);
    EXPECT_EQ(heading.left, c.left);
    EXPECT_EQ(heading.right, c.right);
    EXPECT_EQ(heading.is_phrase, c.is_phrase);
  }
}

TEST(LexEntry, PhrasesOfOneKeyAreOneHoweverMany) {
  LexEntry entry;
  for (int round = 0; round < 2; ++round)
    for (int i = 0; i < 100; ++i) {
      Heading heading;
      heading.key = (round ? "GO " : "go ") + std::to_string(i);
      heading.right = 1;
      entry.add_phrase(heading);
    }
  EXPECT_EQ(entry.phrases.length(), 100);
  EXPECT_EQ(entry.phrases.nth(99)->key, "go 99");
}

TEST(LexEntry, APhraseThatFitsNoByteIsRefused) {
  LexEntry entry;
  Heading heading;
  heading.key = heading.first = "x";
  heading.left = 255;
  entry.add_phrase(heading);
  heading.key = "y";
  heading.left = 256;
  EXPECT_NE(complaints([&] { entry.add_phrase(heading); }), "");
  EXPECT_EQ(entry.phrases.length(), 1);
}

}  // namespace
}  // namespace torvane
