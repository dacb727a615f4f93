#include "triples/db/triple_db.h"

#include <bit>
#include <initializer_list>
#include <sstream>

#include "shell/world.h"
#include "store/header_file.h"
#include "support/scratch_folder.h"
#include "support/test_support.h"

namespace torvane {
namespace {

class TripleDbTest : public testing::Test {
 protected:
  TripleDbTest() {
    world_.files.set((folder_ / "").c_str());
    folder_.write("a.hdr", "a.db 64 11 strcasecmp");
  }

  int link_file(TripleDb& db, OpenMode mode) {
    HeaderFile header(world_.files, "a.hdr", world_.double_byte);
    return db.link_file(world_.objects, header, mode);
  }
  void link(TripleDb& db, OpenMode mode = OpenMode::write) { ASSERT_GE(link_file(db, mode), 0); }
  static void populate(TripleDb& db, const std::string& relations, const std::string& details) {
    std::istringstream first(relations), second(details);
    db.populate_relations(first, {});
    db.populate(second);
  }
  static std::string dump(TripleDb& db) {
    std::ostringstream relations, details;
    db.dump(relations, details);
    return relations.str() + "--\n" + details.str();
  }
  static const WordCount* word_of(TripleDb& db, const char* key, int id, const char* word) {
    TripleDbInfo* entry = db.find(key);
    if (!entry) return nullptr;
    db.load_details(*entry);
    RelInfo* rel = entry->find_rel(id);
    return rel ? rel->find_word(word) : nullptr;
  }

  ScratchFolder folder_;
  World world_{World::Console::of_process()};
};

std::string packed(std::initializer_list<std::uint32_t> words) {
  StrBufs buf;
  for (std::uint32_t word : words) buf.add_be32(word);
  return std::string(buf.object(), buf.object_size());
}

constexpr std::uint32_t bits(float value) {
  return std::bit_cast<std::uint32_t>(value);
}

TEST_F(TripleDbTest, LaysRecordsOut) {
  TripleDb db(101, 101, true);
  link(db);
  const auto r = static_cast<std::uint32_t>(db.feature_id("r", true));
  db.add_triple("a", static_cast<int>(r), "b", 3);
  db.add_triple("a", static_cast<int>(r), "c", 4);
  db.get_entry("a")->classes.append(ClassCount{7, 2.5F});
  db.find("a")->info = 0.5F;
  db.sync();
  const auto pos = static_cast<std::uint32_t>(db.find("a")->detail_pos);
  StrBufs buf;
  ASSERT_GT(db.file->first().find("a", buf), 0U);
  EXPECT_EQ(std::string(buf.object(), buf.object_size() - 1),
            std::string("a\0", 2) +
                packed({bits(7), 0, bits(0.5), pos, 1, r, bits(7), 0, 1, 7, bits(2.5)}));
  StrBufs details;
  std::uint32_t size = db.file->first().read_record(pos, details);
  EXPECT_EQ(
      std::string(details.object(), size),
      packed({1, 2, 3, bits(3), bits(WordCount::kUnknown), 4, bits(4), bits(WordCount::kUnknown)}));
  StrBufs global;
  size = db.file->first().read_record(db.file->first().data_start(), global);
  EXPECT_EQ(std::string(global.object(), size),
            packed({bits(7), 5}) + std::string("r\0a\0b\0c\0", 8));
}

TEST_F(TripleDbTest, ReadsStoresWithAndWithoutMutualInformation) {
  const char* relations =
      "a\t \tfreq\t4\na\tr\t \t4\nb\t \tinvFreq\t4\nb\t-r\t \t4\nr\t \tfreq\t4\n";
  for (int with : {0, 1}) {
    TripleDb db(101, 101, with);
    link(db);
    populate(db, relations, "a\tr\tb\t4\nb\t-r\ta\t4\n");
    EXPECT_FALSE(db.find("a")->rels[0].words) << "details go once they are written";
    db.unlink_file();
    for (int believed : {0, 1}) {
      TripleDb again(101, 101, believed);
      link(again, OpenMode::read);
      const WordCount* word = word_of(again, "a", again.feature_id("r", false), "b");
      ASSERT_TRUE(word);
      EXPECT_EQ(word->freq, 4);
      EXPECT_EQ(word->mi == WordCount::kUnknown, with == 0);
    }
    std::filesystem::remove(folder_ / "a.db");
  }
}

TEST_F(TripleDbTest, KeepsDetailsThatAreNowhereElse) {
  TripleDb db(101, 101, false);
  const int r = db.feature_id("r", true);
  db.add_triple("a", r, "b", 1);
  db.find("a")->drop_details();
  EXPECT_TRUE(word_of(db, "a", r, "b")) << "no file";
  link(db);
  db.sync();
  db.find("a")->drop_details();
  EXPECT_FALSE(db.find("a")->rels[0].words);
  EXPECT_TRUE(word_of(db, "a", r, "b")) << "read back";
  db.add_triple("a", r, "c", 1);
  db.find("a")->drop_details();
  EXPECT_TRUE(word_of(db, "a", r, "c")) << "changed";
}

TEST_F(TripleDbTest, TakesDetailsThatDoNotFitAsNone) {
  TripleDb db(101, 101, false);
  link(db);
  const int r = db.feature_id("r", true);
  db.add_triple("a", r, "b", 1);
  db.sync();
  TripleDbInfo& a = *db.find("a");
  auto try_details = [&](const std::string& bytes) {
    std::uint32_t pos = db.file->first().write_record(0, bytes.data(), bytes.size());
    a.rels[0].words.reset();
    a.detail_pos = -static_cast<int>(pos);
    db.load_details(a);
    return a.detail_pos != 0;
  };
  EXPECT_TRUE(try_details(packed({1, 1, 2, bits(1)})));
  EXPECT_EQ(a.rels[0].word_count(), 1);
  EXPECT_TRUE(try_details(packed({1, 2, 99, bits(1), 0xffffffff, bits(1)})));
  EXPECT_EQ(a.rels[0].word_count(), 0) << "ids of no string are left out";
  EXPECT_TRUE(try_details(packed({1, 2, 2, bits(5), bits(6), 3, bits(7), bits(8)})));
  ASSERT_EQ(a.rels[0].word_count(), 2) << "with mutual information";
  const WordCount* words = a.rels[0].words->data();
  EXPECT_TRUE(words[0].freq == 5 && words[0].mi == 6 && words[1].freq == 7 && words[1].mi == 8);
  for (const auto& bytes :
       {std::string(), packed({1}), packed({2, 1, 2, bits(1)}), packed({1, 1, 2}),
        packed({1, 1, 2, bits(1), 0, 0}), packed({1, 0x7fffffff, 2, bits(1)}),
        packed({1, 0xffffffff}), packed({0xffffffff, 1, 2, bits(1)})})
    EXPECT_FALSE(try_details(bytes)) << bytes.size();
  for (int pos : {1, 13, 4000, 0x7fffffff}) {
    a.detail_pos = -pos;
    messages_of([&] { db.load_details(a); });
    EXPECT_EQ(a.detail_pos, 0);
  }
  // What is saved now has details of its own, and harms no other record.
  a.mark_changed();
  db.add_triple("a", r, "b", 1);
  db.unlink_file();
  link(db, OpenMode::read);
  db.check_all();
  EXPECT_EQ(word_of(db, "a", r, "b")->freq, 1);
  EXPECT_EQ(word_of(db, "b", -r, "a")->freq, 2);
}

TEST_F(TripleDbTest, DropsMainRecordsThatAreCut) {
  TripleDb db(101, 101, false);
  const std::string whole = std::string("a\0", 2) + packed({0, 0, 0, 0, 2, 1, bits(1), 0,
                                                            0x80000000, bits(1), 0, 1, 5, bits(1)});
  auto unpacks = [&](const std::string& bytes) {
    StrBufs buf;
    buf.add_bytes(bytes.data(), bytes.size());
    std::unique_ptr<TripleDbInfo> entry(static_cast<TripleDbInfo*>(db.v_unpack_entry(buf)));
    return entry != nullptr;
  };
  for (std::size_t length = 0; length <= whole.size(); ++length)
    EXPECT_EQ(unpacks(whole.substr(0, length)), length == whole.size()) << length;
  for (std::size_t at : {18U, 46U}) {
    std::string damaged = whole;
    damaged.replace(at, 4, "\xff\xff\xff\xff");
    EXPECT_FALSE(unpacks(damaged)) << at;
  }
}

TEST_F(TripleDbTest, CleansUpWhatWasNotUsedLately) {
  TripleDb db(101, 101, false);
  link(db);
  const int r = db.feature_id("r", true);
  for (int i = 0; i < 6; ++i)
    db.add_triple(("h" + std::to_string(i)).c_str(), r, ("m" + std::to_string(i)).c_str(), 1);
  db.clean_up_after = 6;
  db.sync();
  db.add_triple("h1", r, "m1", 1);
  db.get_entry("new")->freq = 3;
  EXPECT_EQ(messages_of([&] { db.CleanUp(); }), "CleanUp deleted 7 out of 14\n");
  EXPECT_FALSE(db.find_in_memory("h2"));
  EXPECT_EQ(db.find_in_memory("h5")->last_used, 2);
  db.add_triple("h5", r, "m5", 1);
  EXPECT_EQ(db.find_in_memory("h5")->last_used, 3) << "the count of uses goes on at the half";
  EXPECT_EQ(db.find("new")->freq, 3) << "it was written first";
  EXPECT_EQ(db.find("h1")->freq, 2);
  EXPECT_EQ(word_of(db, "h2", r, "m2")->freq, 1);
}

TEST_F(TripleDbTest, PopulationReplacesAndIsNoUse) {
  TripleDb db(101, 101, false);
  link(db);
  db.clean_up_after = 4;
  auto fill = [&] { populate(db, "a\t \tfreq\t10\na\tr\t \t10\nr\t \tfreq\t10\n", ""); };
  auto said_by_query = [&] {
    return messages_of([&] { db.dependency_probability("x", "r", "z"); });
  };
  fill();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(said_by_query(), "");
  fill();
  EXPECT_EQ(said_by_query(), "");
  fill();
  EXPECT_EQ(db.find("a")->freq, 10);
  EXPECT_EQ(said_by_query(), "CleanUp deleted 1 out of 2\n") << "nobody has asked for a";
}

TEST_F(TripleDbTest, EntriesOfMemoryStayWhenAStoreIsLinked) {
  TripleDb made(101, 101, 0), db(101, 101, 0);
  link(made);
  made.add_triple("b", made.feature_id("r", true), "d", 1);
  made.add_triple("b", made.feature_id("s", true), "e", 2);
  made.sync();
  const std::uint32_t count_of_ids = made.file->first().data_start() + 12;
  made.unlink_file();
  db.add_triple("A", db.feature_id("s", true), "b", 4);
  db.add_triple("A", db.feature_id("t", true), "E", 8);
  db.add_triple("A", db.feature_id("r", true), "c", 16);
  db.find("A")->classes.append(ClassCount{db.feature_id("s", false), 3});

  auto put = [&](char byte) { std::fstream(folder_ / "a.db").seekp(count_of_ids).put(byte); };
  const std::string before = dump(db);
  put(1);
  EXPECT_EQ(link_file(db, OpenMode::read), 0);
  EXPECT_EQ(dump(db), before) << "of a damaged store nothing is taken";
  put(0);
  link(db, OpenMode::read);
  EXPECT_EQ(db.total_count(), 31);
  const int r = db.feature_id("r", false), s = db.feature_id("s", false);
  const int t = db.feature_id("t", false);
  EXPECT_TRUE(r == 1 && s == 4 && t > 5) << "ids of the store";
  EXPECT_EQ(db.find("a")->classes[0].id, s);
  ASSERT_TRUE(word_of(db, "a", s, "b") && word_of(db, "a", t, "e") && word_of(db, "a", r, "c"));
  EXPECT_EQ(word_of(db, "a", t, "e")->freq, 8);
  EXPECT_EQ(word_of(db, "b", -s, "a")->freq, 4);
  EXPECT_FALSE(word_of(db, "b", r, "d")) << "memory comes first";
  ASSERT_TRUE(word_of(db, "d", -r, "b"));
}

TEST_F(TripleDbTest, StoresReadTheSameAfterAnyChange) {
  TripleDb linked(13, 11, 0), plain(13, 11, 0);
  link(linked);
  unsigned seed = 7;
  auto random = [&seed](unsigned n) { return (seed = seed * 1103515245 + 12345) / 65536 % n; };
  auto word = [&] { return "w" + std::to_string(random(random(2) ? 4 : 60)); };
  for (int step = 0; step < 3000; ++step) {
    std::string head = word(), relation = "r" + std::to_string(random(4)), other = word();
    const bool remove = random(4) == 0;
    if (remove && random(9) == 0) other = " ";
    for (TripleDb* db : {&linked, &plain}) {
      if (remove)
        db->remove_triple(head.c_str(), relation.c_str(), other.c_str());
      else
        db->add_triple(head.c_str(), db->feature_id(relation.c_str(), true), other.c_str(), 1);
    }
    if (step % 100 == 50) linked.sync();
    if (step % 300 == 200) {
      linked.unlink_file();
      link(linked);
    }
  }
  linked.sync();
  linked.check_all();
  EXPECT_EQ(dump(linked), dump(plain));
  EXPECT_EQ(linked.total_count(), plain.total_count());
}

}  // namespace
}  // namespace torvane
