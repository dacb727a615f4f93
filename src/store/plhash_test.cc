#include "store/plhash.h"

#include <bit>
#include <cstring>
#include <map>
#include <sstream>

#include "store/header_file.h"
#include "store/store_test.h"
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

class PLHashTest : public StoreTest {
 protected:
  PLHashTest() { world_.files.set(path("").c_str()); }

  void link(PLHash& table, const char* name, OpenMode mode = OpenMode::write) {
    std::string header = std::string(name) + ".hdr";
    write_bytes(path(header.c_str()), std::string(name) + ".db 32 3 strcasecmp");
    ASSERT_GE(link_header(table, header, mode), 0);
    ASSERT_TRUE(table.has_file());
  }
  int link_header(PLHash& table, const std::string& name, OpenMode mode = OpenMode::write) {
    HeaderFile header(world_.files, name.c_str(), world_.double_byte);
    return table.link_file(world_.objects, header, mode);
  }
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
  const std::string bytes = bytes_of(path("a.db"));
  const std::filesystem::file_time_type long_ago;
  std::filesystem::last_write_time(path("a.db"), long_ago);
  for (int i = 0; i < 7; ++i) {
    Tallies reopened;
    for (int k = 0; k < 3; ++k) table.sync();
    table.unlink_file();
    link(reopened, "a");
    EXPECT_EQ(reopened.find("dog")->count, 1);
    reopened.sync();
    reopened.unlink_file();
    link(table, "a");
  }
  EXPECT_EQ(bytes_of(path("a.db")), bytes);
  EXPECT_EQ(std::filesystem::last_write_time(path("a.db")), long_ago) << "nothing is written";
  table.add("DOG", 4);
  EXPECT_EQ(dog->pos, -place);
  table.sync();
  EXPECT_EQ(dog->pos, place);
  EXPECT_EQ(table.saved, std::vector<std::string>{"dog"});
  table.unlink_file();
  EXPECT_EQ(table.total_count(), 0);

  Tallies again;
  link(again, "a", OpenMode::read);
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
  // Put under the table's feet: it does not look before the next sync.
  const char record[] = "owl\0\x41\x10\0";
  table.file->first().insert(record, 8);
  EXPECT_EQ(table.find("Owl"), nullptr);
  table.sync();
  ASSERT_NE(table.find("Owl"), nullptr);
  EXPECT_EQ(table.find("owl")->count, 9);
}

TEST_F(PLHashTest, SmallCountsBesideALargeTotalAreNotLost) {
  Tallies table;
  table.add_to_total(1 << 24);
  for (int i = 0; i < 4; ++i) table.add_count(0.5);
  EXPECT_EQ(table.total_count(), (1 << 24) + 2);
  table.add_count(10000);
  EXPECT_EQ(table.total_count(), (1 << 24) + 10002);
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

TEST_F(PLHashTest, CopiesRecordsAsTheyLie) {
  Tallies ours, theirs, unlinked;
  link(ours, "ours");
  link(theirs, "theirs");
  ours.add("dog", 1);
  theirs.add("DOG", 10);
  theirs.add("emu", 20);
  for (Tallies* table : {&ours, &theirs}) table->sync();
  ours.unpacked = 0;
  ours.merge(theirs);
  EXPECT_EQ(ours.unpacked, 1) << "a new key is not unpacked";
  EXPECT_EQ(ours.contents(), (Contents{{"dog", 11}, {"emu", 20}}));
  EXPECT_EQ(messages_of([&] { unlinked.merge(theirs); }), "PLHash::merge cannot open disk file\n");
  EXPECT_EQ(unlinked.total_count(), 30);
  ours.copy(theirs);
  // Nobody asks whether the key is there: both records stand, and the first is found.
  EXPECT_EQ(ours.contents(), (Contents{{"dog", 11}, {"DOG", 10}, {"emu", 40}}));
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

TEST_F(PLHashTest, LinksAgainAfterAFailedLink) {
  Tallies table;
  write_bytes(path("bad.hdr"), "a.db");
  EXPECT_EQ(link_header(table, "bad.hdr"), 0);
  EXPECT_FALSE(table.has_file());
  EXPECT_EQ(link_header(table, "nowhere.hdr"), -1);
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
  link(first, "a", OpenMode::read);
  EXPECT_EQ(first.find("dog")->count, 2);
}

TEST_F(PLHashTest, RefusesAStoreWithoutItsGlobalRecord) {
  Tallies made, table;
  link(made, "a");
  made.add("dog", 1);
  made.sync();
  std::string bytes = bytes_of(path("a.db"));
  bytes[made.file->first().data_start() + 6] = 'x';
  made.unlink_file();
  write_bytes(path("a.db"), bytes);
  EXPECT_EQ(link_header(table, "a.hdr"), 0);
  EXPECT_FALSE(table.has_file());
  EXPECT_EQ(bytes_of(path("a.db")), bytes);
}

}  // namespace
}  // namespace torvane
