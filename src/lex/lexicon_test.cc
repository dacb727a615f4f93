#include "lex/lexicon.h"

#include "lex/lexicon_fixture.h"

namespace torvane {
namespace {

TEST(Lexicon, PrintsWhatReadsBack) {
  Words words(
      "(dog (g a b) (nosuch x) extra (h \"c d\") (phrases (dog days) (house , dog)))"
      "(\"a;b\" (g x))");
  std::string text = words.printed("Dog");
  EXPECT_EQ(text, "(dog\n (g a b)\n (h \"c d\")\n (phrases (dog days) (house, dog))\n )\n");
  EXPECT_EQ(words.printed("a;b"), "(\"a;b\"\n (g x)\n (phrases)\n )\n");
  Words again(text);
  EXPECT_EQ(again.printed("dog"), text);
}

TEST(Lexicon, APhraseGoesToItsHead) {
  Words words("(give (g a)) (give up (g b)) (York , New (g c)) ((g x) y) ()");
  EXPECT_EQ(words.printed("give"), "(give\n (g a)\n (phrases (give up))\n )\n");
  EXPECT_EQ(words.printed("give up"), "(\"give up\"\n (g b)\n (phrases)\n )\n");
  EXPECT_EQ(words.printed("York"), "(York\n (phrases (York, New))\n )\n");
  EXPECT_EQ(words.entries.size(), 4u);
}

TEST(Lexicon, DuplicatesMergeOrAreReported) {
  Words words("(dog (g a)) (\"give up\" (g a))");
  words.read("(Dog (g a) (g b)) (give up (h c))");
  EXPECT_EQ(words.printed("dog"), "(dog\n (g a)\n (g a)\n (g b)\n (phrases)\n )\n");
  // The entry that was read as one word did not hide the phrase from its head.
  EXPECT_EQ(words.printed("give"), "(give\n (phrases (give up))\n )\n");
  EXPECT_EQ(complaints([&] { words.read("(DOG (g c)) (cat (g d)) (cat)", 1); }),
            "Duplicate entry: DOG\nDuplicate entry: cat\n");
  EXPECT_EQ(words.printed("cat"), "(cat\n (g d)\n (phrases)\n )\n");
  words.check_meanings = true;
  words.read("(dog (g b) (g z))");
  EXPECT_EQ(words.printed("dog"), "(dog\n (g a)\n (g a)\n (g b)\n (g z)\n (phrases)\n )\n");
}

TEST(Lexicon, AddIfAbsentLeavesWhatIsThere) {
  Words words("(dog (g a))");
  std::istringstream in("(dog (g b)) (cat (g c))");
  words.load_unique(in);
  EXPECT_EQ(words.printed("dog"), "(dog\n (g a)\n (phrases)\n )\n");
  EXPECT_NE(words.printed("cat"), "");
}

TEST(Lexicon, EvictionKeepsTheYoungerHalf) {
  Words words("(a (g x)) (b (g x)) (c (g x))");
  words.clock_limit = 10;
  auto look = [&](const char* word, int times) {
    for (int i = 0; i < times; ++i) words.get_entry(word);
  };
  look("a", 5);
  look("b", 1);
  look("nosuch", 20);  // a miss is no use of the clock
  EXPECT_EQ(words.clock, 6);
  look("b", 4);
  EXPECT_EQ(words.entries.size(), 3u);
  look("b", 1);
  // At 11, `a` of stamp 5 and `c` that was never looked up are gone.
  EXPECT_EQ(words.clock, 5);
  EXPECT_EQ(words.entries.size(), 1u);
  EXPECT_EQ(words.get_entry("b")->stamp, 6);
  EXPECT_EQ(words.get_entry("a"), nullptr);
}

TEST(Lexicon, APinKeepsWhatIsDropped) {
  Words words("(dog (g a))");
  Lexicon::Pin outer(words);
  LexEntry* entry = words.get_entry("dog");
  {
    Lexicon::Pin pin(words);
    words.clear();
    words.clock_limit = -1;
    words.read("(dog (g b))");
    words.get_entry("dog");
  }
  EXPECT_EQ(entry->key, "dog");
  EXPECT_EQ(entry->meanings.length(), 1);
}

TEST(Lexicon, ReadingsComeInTheOrderOfEndings) {
  Words words("(dog (g a)) (dogs (g b)) (run (g c))");
  EXPECT_EQ(words.readings("DOGS"), "dogs");
  EXPECT_EQ(words.readings("nosuch"), "");
  EXPECT_STREQ(words.get_root("nosuch"), "nosuch");
  words.set_endings("((p s pl) (p \"\" base) (d ing prog) (p s twice))");
  EXPECT_EQ(words.readings("dogs"), "dog+pl dogs+base dog+twice");
  EXPECT_EQ(words.readings("running"), "run+prog");
  EXPECT_STREQ(words.get_root("Dogs"), "dog");
  words.set_endings("((p s pl))");
  EXPECT_EQ(words.readings("dog"), "");
}

class LinkedLexiconTest : public testing::Test {
 protected:
  void link(const char* name, const std::string& dictionary) {
    std::string header = std::string(name) + ".hdr";
    folder.write((std::string(name) + ".dat").c_str(), dictionary);
    folder.write(header.c_str(), std::string(name) + ".dat 11 " + name + ".idx ( )");
    complaints([&] {
      words.dictionaries.push_back(std::make_unique<DictOnDisk>((folder / header.c_str()).c_str()));
    });
  }
  ScratchFolder folder;
  Words words;
};

TEST_F(LinkedLexiconTest, LaterDictionariesAddToTheEntry) {
  link("one", "(dog (g a))");
  link("two", "(DOG (g b)) (cat (g c))");
  EXPECT_EQ(complaints(
                [&] { EXPECT_EQ(words.printed("dog"), "(dog\n (g a)\n (g b)\n (phrases)\n )\n"); }),
            "");
  EXPECT_EQ(words.printed("cat"), "(cat\n (g c)\n (phrases)\n )\n");
}

TEST_F(LinkedLexiconTest, AMissIsRememberedUntilTheLexiconIsCleared) {
  EXPECT_EQ(words.get_entry("dog"), nullptr);
  link("one", "(dog (g a))");
  EXPECT_EQ(words.get_entry("DOG"), nullptr);
  words.clear();
  EXPECT_NE(words.get_entry("dog"), nullptr);
}

TEST_F(LinkedLexiconTest, AHeadMadeForAPhraseIsStillLoaded) {
  link("one", "(give (g a)) (give up (g b)) (give in (g c))");
  EXPECT_EQ(complaints([&] {
              EXPECT_NE(words.get_entry("give up"), nullptr);
              EXPECT_EQ(words.printed("give"), "(give\n (g a)\n (phrases (give up))\n )\n");
              EXPECT_NE(words.get_entry("give in"), nullptr);
              EXPECT_EQ(words.printed("give"),
                        "(give\n (g a)\n (phrases (give up) (give in))\n )\n");
            }),
            "");
}

TEST_F(LinkedLexiconTest, AWordOfTheMemoryIsNotLookedForOnDisk) {
  words.read("(dog (g mine)) (cat days (g x)) (cat (g mine))");
  link("one", "(dog (g a)) (cat (g a))");
  EXPECT_EQ(words.printed("dog"), "(dog\n (g mine)\n (phrases)\n )\n");
  EXPECT_EQ(words.printed("cat"), "(cat\n (g mine)\n (phrases (cat days))\n )\n");
}

TEST(GetRoot, TakesItsLexiconWhenCompiled) {
  register_kinds();
  interpreter().load_string(
      "(make-lexicon get-root-test -5 :ending-table ((p s pl)))"
      "(lex get-root-test (dog (g a)) atom (Cat (g b)))");
  auto exp = LExp::get_exp_from_text("(get-root get-root-test)");
  EXPECT_STREQ(exp->eval(Value::constant("dogs"), type_id("char*")).text(), "dog");
  EXPECT_STREQ(exp->eval(Value::constant("cats"), type_id("char*")).text(), "Cat");
  EXPECT_STREQ(exp->eval(Value::constant("dog"), type_id("char*")).text(), "dog");
  EXPECT_FALSE(exp->eval(Value(), kAnyType));
  EXPECT_NE(complaints([] {
              auto unknown = LExp::get_exp_from_text("(get-root nosuch (ident))");
              EXPECT_FALSE(unknown->eval(Value::constant("dogs"), kAnyType));
            }),
            "");
}

}  // namespace
}  // namespace torvane
