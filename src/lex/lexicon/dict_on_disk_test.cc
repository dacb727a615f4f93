#include "lex/lexicon/dict_on_disk.h"

#include <sys/resource.h>

#include <csignal>

#include "shell/world.h"
#include "support/scratch_folder.h"
#include "support/test_support.h"

namespace torvane {
namespace {

class DictOnDiskTest : public testing::Test {
 protected:
  void write(const std::string& dictionary, const std::string& header = "lex.dat 7 lex.idx ( )") {
    folder.write("lex.dat", dictionary);
    folder.write("lex.hdr", header);
  }
  /// The texts under a row of keys, joined by "/"; "-" for none.
  std::string look_up(std::initializer_list<const char*> keys) {
    DictOnDisk dictionary(world.files, (folder / "lex.hdr").c_str());
    std::string found;
    for (const char* key : keys) {
      const char* text = dictionary.get_entry(key);
      found += (found.empty() ? "" : "/") + std::string(text ? text : "-");
    }
    return found;
  }
  std::string quietly_look_up(std::initializer_list<const char*> keys) {
    std::string found;
    messages_of([&] { found = look_up(keys); });
    return found;
  }

  ScratchFolder folder;
  World world{World::Console::of_process()};
};

TEST_F(DictOnDiskTest, BucketsOfOneStandInTheSlotAndOthersInLists) {
  write("(dog (g a)) junk\n(cat (g b))(DOG (g c))\n (eel)");
  std::string said = messages_of([&] {
    EXPECT_EQ(look_up({"Dog", "cat", "eel", "fox"}), "(dog (g a))/(cat (g b))/(eel)/-");
  });
  EXPECT_EQ(said, "Making Index file " + (folder / "lex.idx") + ". Please wait.\n4 entries\n");
  // eel is alone in slot 0, cat in slot 6; both dogs are in slot 4.
  EXPECT_EQ(bytes_of(folder / "lex.idx"),
            bytes_from("80000028 12*00 0000001c 00000000 8000000c 00000001 0000001d 00000000"));
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
  std::string said = messages_of([&] { look_up({}); });
  setrlimit(RLIMIT_FSIZE, &old);
  signal(SIGXFSZ, ignored);
  EXPECT_NE(said.find("The index file cannot be written: " + (folder / "lex.idx")),
            std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(folder / "lex.idx"));
}

}  // namespace
}  // namespace torvane
