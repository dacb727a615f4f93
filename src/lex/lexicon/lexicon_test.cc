#include "lex/lexicon/lexicon.h"

#include <sstream>

#include "lex/lexicon/dict_on_disk.h"
#include "lex/lexicon/offers.h"
#include "lexp/offers.h"
#include "shell/world.h"
#include "support/scratch_folder.h"
#include "support/test_support.h"

namespace torvane {
namespace {

/// A world with the kinds "g" and "h" of meanings, which are texts.
struct KindsWorld {
  KindsWorld() {
    using namespace offers;
    enter_all(own_world, {&control_forms, &constants, &string_forms, &meaning, &lex_entry, &endings,
                          &lexicon_commands, &lexicon_files});
    own_world.interpreter.prompt = false;
    own_world.interpreter.load_string("(make-str-meaning-proto g) (make-str-meaning-proto h)");
  }

  World own_world{World::Console::of_process()};
  WorldScope here{own_world};
};

struct Words : KindsWorld, Lexicon {
  explicit Words(const std::string& text = "", bool no_dup = false) : Lexicon(own_world, 101) {
    read(text, no_dup);
  }
  void read(const std::string& text, bool no_dup = false) {
    std::istringstream in(text);
    load(in, no_dup);
  }
  std::string printed(const char* word) {
    std::ostringstream out;
    if (const LexEntry* entry = get_entry(word)) print_entry(out, entry);
    return out.str();
  }
};

TEST(Lexicon, DuplicatesMergeOrAreReported) {
  Words words("(dog (g a)) (\"give up\" (g a))");
  words.read("(Dog (g a) (g b)) (give up (h c))");
  EXPECT_EQ(words.printed("dog"), "(dog\n (g a)\n (g a)\n (g b)\n (phrases)\n )\n");
  // The entry that was read as one word did not hide the phrase from its head.
  EXPECT_EQ(words.printed("give"), "(give\n (phrases (give up))\n )\n");
  EXPECT_EQ(messages_of([&] { words.read("(DOG (g c)) (cat (g d)) (cat)", true); }),
            "Duplicate entry: DOG\nDuplicate entry: cat\n");
  EXPECT_EQ(words.printed("cat"), "(cat\n (g d)\n (phrases)\n )\n");
  words.check_meanings = true;
  words.read("(dog (g b) (g z))");
  EXPECT_EQ(words.printed("dog"), "(dog\n (g a)\n (g a)\n (g b)\n (g z)\n (phrases)\n )\n");
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
  look("b", 4);
  EXPECT_EQ(words.entry_count(), 3u);
  look("b", 1);
  // At 11, `a` of stamp 5 and `c` that was never looked up are gone.
  EXPECT_EQ(words.entry_count(), 1u);
  EXPECT_EQ(words.get_entry("b")->stamp, 6);
  EXPECT_EQ(words.get_entry("a"), nullptr);
}

TEST(Lexicon, EvictionKeepsWhatIsToBeKept) {
  Words words("(a (g x)) (b (g x))");
  words.keep_entries();
  words.read("(c (g x)) (d (g x))");
  words.clock_limit = 10;
  for (int i = 0; i < 100; ++i) words.get_entry(i % 3 == 0 ? "b" : "d");
  EXPECT_NE(words.get_entry("a"), nullptr);
  EXPECT_NE(words.get_entry("b"), nullptr);
  EXPECT_EQ(words.get_entry("c"), nullptr);
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
  EXPECT_EQ(entry->meanings().length(), 1);
}

TEST(Lexicon, AWordOfTheMemoryIsNotLookedForOnDisk) {
  ScratchFolder folder;
  Words words;
  words.read("(dog (g mine)) (cat days (g x)) (cat (g mine))");
  folder.write("one.dat", "(dog (g a)) (cat (g a))");
  folder.write("one.hdr", "one.dat 11 one.idx ( )");
  messages_of([&] {
    words.add_dictionary(
        std::make_unique<DictOnDisk>(words.world().files, (folder / "one.hdr").c_str()));
  });
  EXPECT_EQ(words.printed("dog"), "(dog\n (g mine)\n (phrases)\n )\n");
  EXPECT_EQ(words.printed("cat"), "(cat\n (g mine)\n (phrases (cat days))\n )\n");
}

}  // namespace
}  // namespace torvane
