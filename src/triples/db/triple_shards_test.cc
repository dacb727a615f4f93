// A triple database in several stores: what it holds and tells is what it does in one.
#include <cmath>
#include <map>
#include <random>
#include <sstream>

#include "shell/world.h"
#include "store/header_file.h"
#include "support/scratch_folder.h"
#include "support/test_support.h"
#include "triples/db/triple_db.h"

namespace torvane {
namespace {

class TripleShardsTest : public testing::Test {
 protected:
  TripleShardsTest() {
    world_.files.set((folder_ / "").c_str());
    for (int n : {1, 4})
      folder_.write(header(n).c_str(),
                    "shards " + std::to_string(n) + ' ' + name(n) + " 64 101 strcasecmp");
    folder_.write("plain.hdr", "plain.db 64 101 strcasecmp");
    make_rows();
  }
  static std::string name(int stores) { return "of" + std::to_string(stores) + ".db"; }
  static std::string header(int stores) { return "of" + std::to_string(stores) + ".hdr"; }

  int link(TripleDb& db, const std::string& header, OpenMode mode = OpenMode::write) {
    HeaderFile file(world_.files, header.c_str(), world_.double_byte);
    return db.link_file(world_.objects, file, mode);
  }
  void fill(TripleDb& db) const {
    std::istringstream relations(relations_), details(details_);
    PopulateLimits all;
    all.min_freq = 0;
    db.populate_relations(relations, all);
    db.populate(details, all);
  }
  static std::string dump(TripleDb& db) {
    std::ostringstream relations, details;
    db.dump(relations, details);
    return relations.str() + "--\n" + details.str();
  }
  static std::string word(unsigned i) {
    return (i % 7 == 0 ? "Word" : "word") + std::to_string(i * i);
  }

  ScratchFolder folder_;
  World world_{World::Console::of_process()};
  struct Triple {
    std::string word, relation, other;
  };
  std::vector<Triple> triples_;

 private:
  /// Random triples as text, from both ends.
  void make_rows() {
    std::mt19937 random(7);
    std::map<std::string, std::map<std::string, std::map<std::string, int>>> counts;
    for (int i = 0; i < 3000; ++i) {
      Triple triple{word(random() % 90), i % 3 ? "obj" : "mod", word(random() % 90)};
      int count = 1 + static_cast<int>(random() % 5);
      counts[triple.word][triple.relation][triple.other] += count;
      counts[triple.other]["-" + triple.relation][triple.word] += count;
      triples_.push_back(triple);
    }
    for (const auto& [word, relations] : counts) {
      int freq[2] = {};
      std::ostringstream rows;
      for (const auto& [relation, others] : relations) {
        int sum = 0;
        for (const auto& [other, count] : others) {
          details_ += word + '\t' + relation + '\t' + other + '\t' + std::to_string(count) + '\n';
          sum += count;
        }
        freq[relation[0] == '-'] += sum;
        rows << word << '\t' << relation << "\t \t" << sum << '\n';
      }
      relations_ += word + "\t \tfreq\t" + std::to_string(freq[0]) + '\n';
      relations_ += word + "\t \tinvFreq\t" + std::to_string(freq[1]) + '\n' + rows.str();
    }
    for (const char* relation : {"mod", "obj"})
      relations_ += std::string(relation) + "\t \tfreq\t5000\n";
  }

  std::string relations_, details_;
};

TEST_F(TripleShardsTest, TellTheSameAsOneStore) {
  TripleDb one(101, 101, false), four(101, 101, false), plain(101, 101, false);
  for (auto [db, header_name] :
       {std::pair{&one, header(1)}, {&four, header(4)}, {&plain, "plain.hdr"}}) {
    ASSERT_EQ(link(*db, header_name), 0);
    fill(*db);
    db->unlink_file();
    ASSERT_GT(link(*db, header_name, OpenMode::write), 0);
  }
  EXPECT_EQ(bytes_of(folder_ / name(1)), bytes_of(folder_ / "plain.db"))
      << "one of one is a plain store";
  const std::string dumped = dump(one);
  ASSERT_GT(dumped.size(), 50000u);
  EXPECT_EQ(dump(four), dumped);
  EXPECT_EQ(four.total_count(), one.total_count());
  for (const Triple& triple : triples_) {
    auto probability = [&](TripleDb& db) {
      return db.dependency_probability(triple.word.c_str(), triple.relation.c_str(),
                                       triple.other.c_str());
    };
    ASSERT_EQ(probability(four), probability(one)) << triple.word;
  }
  // Each store has its part, and a key is in the one that its hash tells.
  std::map<std::string, float> keys[2];
  for (PLHashIterator walk(four); !walk.done(); walk.next())
    keys[0][walk.current()->key] = static_cast<TripleDbInfo*>(walk.current())->freq;
  for (PLHashIterator walk(one); !walk.done(); walk.next())
    keys[1][walk.current()->key] = static_cast<TripleDbInfo*>(walk.current())->freq;
  EXPECT_EQ(keys[0], keys[1]);
  StrBufs found;
  std::size_t there[4] = {};
  for (const auto& [key, freq] : keys[0]) {
    std::uint32_t hash = 0;
    for (char c : key) {
      hash = (hash << 4) + static_cast<unsigned char>(std::tolower(c));
      if (std::uint32_t top = hash & 0xf0000000) hash ^= (top >> 24) ^ top;
    }
    std::size_t store = (hash * 0x9e3779b7U * std::uint64_t{4}) >> 32;
    EXPECT_NE(four.file->stores()[store]->find(key.c_str(), found), 0u);
    ++there[store];
  }
  for (std::size_t count : there) EXPECT_GT(count, 5u);

  // Entries that change go back to where they were; new ones and their ids are known to all.
  for (TripleDb* db : {&one, &four}) {
    db->add_triple("word1", db->feature_id("obj", true), "something-new", 2);
    db->remove_triple("word4", "obj", " ");
    db->sync();
    db->unlink_file();
    ASSERT_GT(link(*db, db == &one ? header(1) : header(4), OpenMode::read), 0);
  }
  EXPECT_EQ(dump(four), dump(one));
  TripleDb merged(101, 101, false);
  merged.merge_triples(four);
  EXPECT_GT(merged.find("something-new")->invFreq, 1);
}

TEST_F(TripleShardsTest, StoresThatAreNotOneDatabaseAreRefused) {
  TripleDb db(101, 101, false);
  link(db, header(4));
  fill(db);
  db.unlink_file();
  auto refuse = [&](const std::string& header_name, const char* why) {
    for (OpenMode mode : {OpenMode::read, OpenMode::write}) {
      TripleDb other(101, 101, false);
      std::string said = messages_of([&] { EXPECT_EQ(link(other, header_name, mode), 0); });
      EXPECT_EQ(said.rfind("Can't open ", 0), 0u) << why;
      EXPECT_FALSE(other.has_file());
    }
  };
  folder_.write("three.hdr", "shards 3 of4.db 64 101 strcasecmp");
  refuse("three.hdr", "another number of stores");
  folder_.write("none.hdr", "shards 0 of4.db 64 101 strcasecmp");
  refuse("none.hdr", "no stores");
  std::filesystem::rename(folder_ / "of4.db.1", folder_ / "kept");
  std::filesystem::copy_file(folder_ / "of4.db.2", folder_ / "of4.db.1");
  refuse(header(4), "the wrong store");
  std::filesystem::remove(folder_ / "of4.db.1");
  refuse(header(4), "a store is missing");
  std::filesystem::remove(folder_ / "of4.db.1");
  std::filesystem::rename(folder_ / "kept", folder_ / "of4.db.1");
  EXPECT_GT(link(db, header(4)), 0);
  // A header of one store is one, whatever it is called.
  folder_.write("shards.hdr", "shards 64 101 strcasecmp");
  EXPECT_EQ(link(db, "shards.hdr"), 0);
  EXPECT_TRUE(db.has_file());
  EXPECT_EQ(db.file->first().path(), folder_ / "shards");
}

TEST_F(TripleShardsTest, WhatDoesNotFitChangesNothing) {
  for (int stores : {1, 4}) {
    TripleDb db(101, 101, false);
    link(db, header(stores));
    db.add_triple("old", db.feature_id("obj", true), "thing", 3);
    db.sync();
    for (const auto& store : db.file->stores()) store->most_bytes = 20000;
    std::string said = messages_of([&] { fill(db); });
    const std::string path = folder_ / name(stores);
    if (stores == 1) {
      EXPECT_EQ(said, "The file " + path + " cannot grow beyond 20000 bytes\nThe file " + path +
                          " stays as it was last synced: it cannot hold all that was to be "
                          "written, but more files can (\"shards\" in its header)\n");
    } else {
      EXPECT_EQ(said, "") << "the same in more stores fits";
    }
    EXPECT_EQ(messages_of([&] { db.unlink_file(); }).empty(), stores == 4) << "and says it again";
    link(db, header(stores), OpenMode::read);
    EXPECT_NE(db.find("old"), nullptr);
    EXPECT_EQ(db.find("word1") != nullptr, stores == 4);
  }
}

}  // namespace
}  // namespace torvane
