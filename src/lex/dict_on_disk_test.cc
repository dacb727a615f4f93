#include "lex/dict_on_disk.h"

#include <sys/resource.h>

#include "lex/lexicon_fixture.h"
#include "support/big_endian.h"

namespace torvane {
namespace {

class DictOnDiskTest : public testing::Test {
 protected:
  static std::string words(std::initializer_list<std::uint32_t> numbers) {
    std::string bytes;
    for (std::uint32_t n : numbers) {
      char four[4];
      store_be32(four, n);
      bytes.append(four, 4);
    }
    return bytes;
  }
  void write(const std::string& dictionary, const std::string& header = "lex.dat 7 lex.idx ( )") {
    folder.write("lex.dat", dictionary);
    folder.write("lex.hdr", header);
  }
  /// The texts under a row of keys, joined by "/"; "-" for none.
  std::string look_up(std::initializer_list<const char*> keys) {
    DictOnDisk dictionary((folder / "lex.hdr").c_str());
    std::string found;
    for (const char* key : keys) {
      const char* text = dictionary.get_entry(key);
      found += (found.empty() ? "" : "/") + std::string(text ? text : "-");
    }
    return found;
  }
  std::string quietly_look_up(std::initializer_list<const char*> keys) {
    std::string found;
    complaints([&] { found = look_up(keys); });
    return found;
  }

  ScratchFolder folder;
};

TEST_F(DictOnDiskTest, BucketsOfOneStandInTheSlotAndOthersInLists) {
  write("(dog (g a)) junk\n(cat (g b))(DOG (g c))\n (eel)");
  std::string said = complaints([&] {
    EXPECT_EQ(look_up({"Dog", "cat", "eel", "fox"}), "(dog (g a))/(cat (g b))/(eel)/-");
  });
  EXPECT_EQ(said, "Making Index file " + (folder / "lex.idx") + ". Please wait.\n4 entries\n");
  // eel is alone in slot 0, cat in slot 6; both dogs are in slot 4.
  EXPECT_EQ(folder.read("lex.idx"),
            words({0x80000000u | 40, 0, 0, 0, 28, 0, 0x80000000u | 12, 1, 29, 0}));
}

TEST_F(DictOnDiskTest, KeysMayHoldBlanksAndStandInQuotes) {
  write("( give  up\n (g a))(\"a (b)\" (g b))(x)() (\"open)(y)");
  EXPECT_EQ(quietly_look_up({"give  up", "a (b)", "x", "", "y"}),
            "( give  up\n (g a))/(\"a (b)\" (g b))/(x)/()/(y)");
}

TEST_F(DictOnDiskTest, OtherBracketsAndQuotedNames) {
  folder.write("my lex.dat", "[dog (] [a]] [cat]");
  folder.write("lex.hdr", "\"my lex.dat\"\n  3x\t\"lex.idx\r\n [opening ]");
  EXPECT_EQ(quietly_look_up({"dog (", "cat", "a"}), "[dog (]/[cat]/[a]");
}

TEST_F(DictOnDiskTest, AnEntryThatIsCutOffEndsTheDictionary) {
  write("(dog)(cat (g " + std::string(200, 'x'));
  std::string said = complaints([&] { EXPECT_EQ(look_up({"dog", "cat"}), "(dog)/-"); });
  EXPECT_NE(said.find("DictOnDisk::get_entry: unmatched parenthesis\n(cat (g " +
                      std::string(92, 'x') + "\n"),
            std::string::npos);
}

TEST_F(DictOnDiskTest, OnlyAnOlderOrShorterIndexIsBuiltAnew) {
  write("(dog)");
  quietly_look_up({});
  folder.age("lex.dat", 100);
  folder.age("lex.idx", 100);
  EXPECT_EQ(complaints([&] { EXPECT_EQ(look_up({"dog"}), "(dog)"); }), "");
  folder.age("lex.idx", 101);
  EXPECT_NE(complaints([&] { look_up({}); }), "");
  // Another size needs more slots than the file has.
  write("(dog)", "lex.dat 8 lex.idx ( )");
  folder.age("lex.dat", 100);
  EXPECT_NE(complaints([&] { EXPECT_EQ(look_up({"dog"}), "(dog)"); }), "");
  EXPECT_EQ(folder.read("lex.idx").size(), 32u);
}

TEST_F(DictOnDiskTest, WhateverADamagedIndexSaysIsJustNotFound) {
  const std::initializer_list<std::uint32_t> slots = {
      0x80000000u, 0x80000000u | 3, 0xFFFFFFFFu, 4, 0, 1000, 0x7FFFFFFFu, 2, 12};
  for (std::uint32_t slot : slots) {
    SCOPED_TRACE(slot);
    write("(dog)(cat)", "lex.dat 1 lex.idx ( )");
    folder.age("lex.dat", 10);
    folder.write("lex.idx", words({slot, 0x7FFFFFFFu, 3, 3}) + "x");
    quietly_look_up({"dog"});
    // The object still works after a failed read.
    DictOnDisk dictionary((folder / "lex.hdr").c_str());
    complaints([&] { dictionary.get_entry("dog"); });
    EXPECT_TRUE(dictionary.good());
    folder.write("lex.idx", words({0x80000001u}));
    EXPECT_STREQ(dictionary.get_entry("dog"), "(dog)");
  }
}

TEST_F(DictOnDiskTest, EveryFailureIsReported) {
  auto said = [&](const char* header) {
    folder.write("lex.hdr", header);
    return complaints([&] {
      DictOnDisk dictionary((folder / "lex.hdr").c_str());
      EXPECT_FALSE(dictionary.good());
    });
  };
  folder.write("lex.dat", "(dog)");
  std::filesystem::create_directory(folder / "sub");
  EXPECT_EQ(said("no.dat 7 lex.idx ( )"), (folder / "no.dat") + " does not exist\n");
  EXPECT_EQ(said("sub 7 lex.idx ( )"), "Error openning dictionary " + (folder / "sub") + "\n");
  EXPECT_EQ(said(""), "Error openning dictionary " + (folder / "") + "\n");
  for (const char* size : {"lex.dat 0 lex.idx", "lex.dat -7 lex.idx", "lex.dat x lex.idx",
                           "lex.dat", "lex.dat 536870912 lex.idx"})
    EXPECT_NE(said(size).find("table size"), std::string::npos) << size;
  EXPECT_EQ(said("lex.dat 7 sub ( )"), "Cannot open the index file: '" + (folder / "sub") + "'\n");
  EXPECT_NE(said("lex.dat 7 sub/no/x.idx ( )").find("Cannot open index file "), std::string::npos);
  std::string none;
  EXPECT_EQ(complaints([] { DictOnDisk(nullptr).get_entry("x"); }),
            "Dictionary file or index file not openned.\n");
}

TEST_F(DictOnDiskTest, TheIndexNeverOverwritesDictionaryOrHeader) {
  for (const char* name : {"lex.dat", "lex.hdr", "./lex.dat"}) {
    write("(dog)", std::string("lex.dat 70000 ") + name + " ( )");
    std::string said = complaints([&] { look_up({"dog"}); });
    EXPECT_NE(said.find("Cannot open the index file: '"), std::string::npos);
    EXPECT_EQ(folder.read("lex.dat"), "(dog)");
    EXPECT_EQ(folder.read("lex.hdr").substr(0, 13), "lex.dat 70000");
  }
}

TEST_F(DictOnDiskTest, AnIndexThatDoesNotFitTheDiskIsReportedAndGone) {
  write("(dog)", "lex.dat 70000 lex.idx ( )");
  rlimit old;
  getrlimit(RLIMIT_FSIZE, &old);
  auto ignored = signal(SIGXFSZ, SIG_IGN);
  rlimit small{1000, old.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  std::string said = complaints([&] { look_up({}); });
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, ignored);
  EXPECT_FALSE(std::filesystem::exists(folder / "lex.idx"));
}

TEST_F(DictOnDiskTest, KeysAndEntriesOfAnyLength) {
  std::string key(100000, 'k');
  std::string large = "(" + key + " (g " + std::string(300000, 'x') + "))";
  write("(a)" + large + "(z)");
  EXPECT_EQ(quietly_look_up({key.c_str(), "z"}), large + "/(z)");
}

}  // namespace
}  // namespace torvane
