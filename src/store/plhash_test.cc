#include "store/plhash.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "shell/file_search.h"
#include "support/big_endian.h"

namespace torvane {
namespace {

struct Tally : PLHashEntry {
  Tally(const char* name, float value) : text(name), count(value) { key = text.c_str(); }
  std::string text;
  float count;
};

/// Counts under names: the smallest thing that such a table can hold.
class Tallies : public TPLHash<Tally> {
 public:
  explicit Tallies(long bucket_count = 5) : TPLHash(bucket_count) {}

  void v_pack_entry(PLHashEntry* entry, StrBufs& buf) override {
    auto& tally = *static_cast<Tally*>(entry);
    saved.push_back(tally.text);
    buf.add_text(tally.key);
    buf.add_be32(std::bit_cast<std::uint32_t>(tally.count));
  }
  PLHashEntry* v_unpack_entry(StrBufs& buf) override {
    ++unpacked;
    const char* value = buf.object() + std::strlen(buf.object()) + 1;
    return new Tally(buf.object(), std::bit_cast<float>(load_be32(value)));
  }
  void combine(PLHashEntry* target, PLHashEntry* other) override {
    static_cast<Tally*>(target)->count += static_cast<Tally*>(other)->count;
  }
  void print_entry(PLHashEntry* entry, std::ostream& out) override {
    out << entry->key << '=' << static_cast<Tally*>(entry)->count << '\n';
  }
  void read_entry(std::istream& in, StrBufs& buf) override {
    std::string name;
    float count;
    if (!(in >> name >> count)) return;
    Tally tally(name.c_str(), count);
    v_pack_entry(&tally, buf);
  }

  Tally* add(const char* name, float count) {
    Slot slot;
    Tally* tally = find(name, slot);
    if (!tally) {
      tally = new Tally(name, 0);
      link(slot, tally);
    }
    tally->count += count;
    tally->mark_changed();
    add_count(count);
    return tally;
  }
  std::map<std::string, float> contents() {
    std::map<std::string, float> all;
    for (PLHashIterator walk(*this); !walk.done(); walk.next())
      all[walk.current()->key] += static_cast<Tally*>(walk.current())->count;
    return all;
  }

  std::vector<std::string> saved;
  int unpacked = 0;
};

using Contents = std::map<std::string, float>;

class PLHashTest : public testing::Test {
 protected:
  PLHashTest() {
    set_search_path(folder_.c_str());
    std::filesystem::create_directories(folder_);
  }
  ~PLHashTest() override { std::filesystem::remove_all(folder_); }

  void link(PLHash& table, const char* name, int mode = 3, const char* compare = "strcasecmp") {
    std::string header = std::string(name) + ".hdr";
    std::ofstream(folder_ / header) << name << ".db 32 3 " << compare;
    ASSERT_GE(table.link_file(header.c_str(), mode), 0);
    ASSERT_TRUE(table.has_file());
  }

  std::filesystem::path folder_ =
      std::filesystem::path(testing::TempDir()) /
      ("plhash-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(PLHashTest, PositionTellsTheStateAgainstTheDisk) {
  Tallies table;
  link(table, "a");
  Tally* dog = table.add("dog", 1);
  table.add("cat", 2);
  EXPECT_EQ(dog->pos, 0);
  table.sync();
  const int place = dog->pos;
  EXPECT_GT(place, 0);
  table.saved.clear();
  table.sync();
  EXPECT_TRUE(table.saved.empty()) << "a clean entry is not written";
  table.add("DOG", 4);
  EXPECT_EQ(dog->pos, -place);
  table.sync();
  EXPECT_EQ(dog->pos, place);
  EXPECT_EQ(table.saved, std::vector<std::string>{"dog"});
  table.unlink_file();
  EXPECT_EQ(table.total_count(), 0);

  Tallies again;
  link(again, "a", 1);
  EXPECT_EQ(again.total_count(), 7);
  EXPECT_EQ(again.find("dog")->pos, place);
  EXPECT_EQ(again.find("Dog")->count, 5);
  EXPECT_EQ(again.unpacked, 1) << "what was found stays in memory";
  again.add("dog", 1);
  again.add("new", 1);
  again.sync();
  EXPECT_EQ(again.contents(), (Contents{{"cat", 2}, {"dog", 5}})) << "a read-only file stays";
}

TEST_F(PLHashTest, RemembersAbsentKeysUntilSync) {
  Tallies table, other;
  link(table, "a");
  EXPECT_EQ(table.find(nullptr), nullptr);
  EXPECT_EQ(table.find("owl"), nullptr);
  EXPECT_STREQ(table.missing.find("OWL"), "owl");
  // Put under the table's feet: it does not look before the next sync.
  const char record[] = "owl\0\x41\x10\0";
  table.file->insert(record, 8);
  EXPECT_EQ(table.find("Owl"), nullptr);
  table.sync();
  ASSERT_NE(table.find("Owl"), nullptr);
  EXPECT_EQ(table.find("owl")->count, 9);
}

TEST_F(PLHashTest, FoldsSmallCountsAboveTheLimit) {
  Tallies table;
  table.add_count(10000);
  EXPECT_EQ(table.total, 0);
  table.add_count(0.5);
  EXPECT_EQ(table.total, 10000.5F);
  EXPECT_EQ(table.pending, 0);
}

TEST_F(PLHashTest, WritesChangedEntriesInFileOrder) {
  Tallies table(97);
  link(table, "a");
  std::vector<std::string> names;
  for (int i = 0; i < 40; ++i) names.push_back("w" + std::to_string(i * 37 % 40));
  for (const auto& name : names) {
    table.add(name.c_str(), 1);
    table.sync();
  }
  for (const auto& name : names) table.add(name.c_str(), 1);
  table.saved.clear();
  table.sync();
  EXPECT_EQ(table.saved, names);
}

TEST_F(PLHashTest, MergesAndCopies) {
  Tallies ours, theirs, in_memory, unlinked;
  link(ours, "ours");
  link(theirs, "theirs");
  ours.add("dog", 1);
  ours.add("cat", 2);
  theirs.add("DOG", 10);
  theirs.add("emu", 20);
  in_memory.add("cat", 100);
  in_memory.add("yak", 200);
  for (Tallies* table : {&ours, &theirs}) table->sync();
  ours.unpacked = 0;
  ours.merge(theirs);
  EXPECT_EQ(ours.unpacked, 1) << "a new key is copied as it lies";
  ours.merge(in_memory);
  EXPECT_EQ(ours.total_count(), 333);
  const Contents sum{{"cat", 102}, {"dog", 11}, {"emu", 20}, {"yak", 200}};
  EXPECT_EQ(ours.contents(), sum);
  ours.merge(ours);
  EXPECT_EQ(ours.contents(), (Contents{{"cat", 204}, {"dog", 22}, {"emu", 40}, {"yak", 400}}));

  testing::internal::CaptureStderr();
  unlinked.merge(theirs);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "PLHash::merge cannot open disk file\n");
  EXPECT_EQ(unlinked.total_count(), 30);

  Tallies target;
  link(target, "target");
  target.add("dog", 5);
  target.sync();
  target.copy(theirs);
  target.copy(target);
  EXPECT_EQ(target.total_count(), 30);
  // Nobody asks whether the key is there: both records stand, and the first is found.
  EXPECT_EQ(target.contents(), (Contents{{"dog", 5}, {"DOG", 10}, {"emu", 20}}));
  target.clear();
  EXPECT_EQ(target.find("dog")->count, 5);
}

TEST_F(PLHashTest, ReconstructsFromText) {
  Tallies table;
  link(table, "a");
  std::istringstream in("dog 3 cat 4 emu 5 yak 6 fox 7");
  table.reconstruct(in);
  EXPECT_EQ(table.contents().size(), 5U);
  EXPECT_EQ(table.find("emu")->count, 5);
  std::ostringstream out;
  table.print_all(out);
  EXPECT_NE(out.str().find("fox=7\n"), std::string::npos);
}

TEST_F(PLHashTest, SaysWhatNoSubclassDefines) {
  PLHash table([](PLHashEntry* entry) { delete entry; }, 7);
  link(table, "a");
  std::istringstream in("rows");
  testing::internal::CaptureStderr();
  table.reconstruct(in);  // comes to an end
  table.populate(in);
  table.combine(nullptr, nullptr);
  table.print_entry(nullptr, std::cout);
  StrBufs buf;
  EXPECT_EQ(table.v_unpack_entry(buf), nullptr);
  PLHashEntry entry;
  table.save_entry(&entry);
  EXPECT_EQ(entry.pos, 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "PLHash::read_entry must be defined by a subclass.\n"
            "PLHash::populate(istream& istrm) is not implemented\n"
            "PLHash::combine must be defined by a subclass.\n"
            "PLHash::print_entry must be defined by a subclass.\n"
            "PLHash::v_unpack_entry must be defined by a subclass.\n"
            "PLHash::v_pack_entry must be defined by a subclass.\n");
}

TEST_F(PLHashTest, LinksAgainAfterAFailedLink) {
  Tallies table;
  std::ofstream(folder_ / "bad.hdr") << "a.db";
  EXPECT_EQ(table.link_file("bad.hdr", 3), 0);
  EXPECT_FALSE(table.has_file());
  EXPECT_EQ(table.link_file("nowhere.hdr", 3), -1);
  table.add("dog", 1);
  link(table, "a");
  table.unlink_file();
  link(table, "a");
  table.clear();
  EXPECT_EQ(table.find("dog")->count, 1);
  // Another file without an unlink: what belongs to the first stays there.
  table.add("dog", 1);
  link(table, "b");
  EXPECT_EQ(table.find("dog"), nullptr);
  table.unlink_file();
  Tallies first;
  link(first, "a", 1);
  EXPECT_EQ(first.find("dog")->count, 2);
}

TEST_F(PLHashTest, RefusesAStoreWithoutItsGlobalRecord) {
  {
    Tallies table;
    link(table, "a");
    table.add("dog", 1);
    table.sync();
    std::fstream store(folder_ / "a.db");
    store.seekp(table.file->data_start + 6);
    store.put('x');
  }
  const auto size = std::filesystem::file_size(folder_ / "a.db");
  Tallies table;
  EXPECT_EQ(table.link_file("a.hdr", 3), 0);
  EXPECT_FALSE(table.has_file());
  EXPECT_EQ(std::filesystem::file_size(folder_ / "a.db"), size);
}

}  // namespace
}  // namespace torvane
