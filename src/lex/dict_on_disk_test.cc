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
  EXPECT_NE(said.find("The index file cannot be written: " + (folder / "lex.idx")),
            std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(folder / "lex.idx"));
}

}  // namespace
}  // namespace torvane
