#include "store/qhash.h"

#include <csignal>
#include <cstring>
#include <vector>

#include "store/header_file.h"
#include "store/store_test.h"

namespace torvane {
namespace {

class QHashTest : public StoreTest {
 protected:
  QHashTest() : hash_(world_.objects, OpenMode::write) { open_new("strcasecmp", 3); }

  void open_new(const char* function, long buckets, long block = 64) {
    hash_.close();
    std::filesystem::remove(path());
    EXPECT_EQ(hash_.open_file(path().c_str(), block, buckets, function), 0);
    ASSERT_TRUE(hash_.is_open());
  }
  std::uint32_t insert(const std::string& key, const std::string& value) {
    std::string data = packed(key, value);
    return hash_.insert(data.data(), data.size());
  }
  std::uint32_t update(std::uint32_t pos, const std::string& data, bool relink = false) {
    return hash_.update(pos, data.data(), data.size(), 0, relink);
  }
  /// The value of a key; "none" if there is no such key.
  static std::string value_in(QHash& hash, const std::string& key) {
    StrBufs buf(64);
    if (hash.find(key.c_str(), buf) == 0) return "none";
    std::string data(buf.object(), buf.object_size() - 1);
    return data.substr(data.find('\0') + 1);
  }
  std::string value(const std::string& key) { return value_in(hash_, key); }
  std::vector<std::uint32_t> chain(std::uint32_t bucket) {
    std::vector<std::uint32_t> positions;
    for (ChainWalk at(hash_, hash_.get_bucket(bucket)); at.pos() != 0; at.next())
      positions.push_back(at.pos());
    return positions;
  }
  /// Syncs, changes bytes of the file, and opens it again for reading.
  void damage(std::size_t at, const std::string& bytes) {
    hash_.sync();
    hash_.close();
    std::string whole = bytes_of(path());
    whole.replace(at, bytes_from(bytes).size(), bytes_from(bytes));
    write_bytes(path(), whole);
    damaged_.open_file(path().c_str(), 0, 0, nullptr);
    ASSERT_TRUE(damaged_.is_open());
  }
  int open_named_header(const char* name) {
    HeaderFile header(world_.files, path(name).c_str(), world_.double_byte);
    return hash_.open_header(header);
  }
  int open_header(const std::string& text) {
    write_bytes(path("store.hdr"), text);
    return open_named_header("store.hdr");
  }

  QHash hash_;
  QHash damaged_{world_.objects, OpenMode::read};
};

TEST_F(QHashTest, HeaderAndRecords) {
  ASSERT_EQ(insert("hen", "coot"), 44u);
  ASSERT_EQ(insert("cow", "ox"), 108u);
  ASSERT_EQ(insert("Cow", "calf"), 172u);
  hash_.sync();
  EXPECT_EQ(bytes_of(path()).substr(0, 236),
            bytes_from("0000102c 000000ec 00000040"
                       " 00000003 0000002c 00000000 0000006c"
                       " 0000000a 'strcasecmp' 'ss'"
                       " 0000000c 0001 5555 00000000 'hen' 00 'coot' 44*00"
                       " 0000000a 0001 5555 000000ac 'cow' 00 'ox' 46*00"
                       " 0000000c 0001 5555 00000000 'Cow' 00 'calf' 44*00"));
  EXPECT_EQ(hash_.open_file(path().c_str(), 1, 1, "strcmp"), 1);
  EXPECT_EQ(hash_.bucket_count(), 3u);
  EXPECT_EQ(hash_.data_start(), 44u);
  EXPECT_EQ(value("HEN"), "coot");
}

TEST_F(QHashTest, KeysCompareAsTheFunctionSays) {
  EXPECT_EQ(value("dog"), "none");
  for (const char* function : {"strcasecmp", "strcmp"}) {
    open_new(function, 3);
    insert("dog", "1");
    insert("dog", "2");
    insert("DOG", "3");
    const bool exact = std::string(function) == "strcmp";
    EXPECT_EQ(value("dog"), "1");
    EXPECT_EQ(value("DOG"), exact ? "3" : "1");
    EXPECT_EQ(value("Dog"), exact ? "none" : "1");
    EXPECT_EQ(value("dogs"), "none");
  }
  EXPECT_EQ(insert("", "of no letters"), 232u);
  EXPECT_EQ(value(""), "of no letters");
  EXPECT_EQ(hash_.insert("dog", 3), 0u);  // no end of the key
}

TEST_F(QHashTest, UpdateKeepsPlaceAndLink) {
  open_new("strcmp", 1, 32);
  std::uint32_t first = insert("a", "1"), second = insert("b", "2");
  std::string longer(100, 'x');
  EXPECT_EQ(update(first, packed("a", longer)), first);
  EXPECT_EQ(value("a"), longer);
  EXPECT_EQ(value("b"), "2");
  // The link stands in front of what the head of a spilled record holds of key and value.
  hash_.sync();
  EXPECT_EQ(bytes_of(path()).substr(first, 64),
            bytes_from("0000006a 0001 5554 00000040 'a' 00 'xxxxxxxxxx' 00000060 00000003"
                       " 00000007 0001 5555 00000000 'b' 00 '2' 17*00"));
  EXPECT_EQ(second, 64u);
  EXPECT_EQ(update(first, packed("a", "1"), 1), first);
  EXPECT_EQ(value("a"), "1");
  EXPECT_EQ(value("b"), "none");
}

TEST_F(QHashTest, SortedChainsAscend) {
  open_new("strcmp", 1, 32);
  for (const char* key : {"a", "b", "c", "d"}) insert(key, std::string(40, *key));
  // A place in front that was given back makes the last record of the chain the lowest.
  std::uint32_t hole = hash_.write_record(0, "x", 1), high = insert("e", "5");
  hash_.release(hole, 0);
  std::uint32_t low = insert("f", "6");
  EXPECT_EQ(chain(0).back(), low);
  EXPECT_LT(low, high);
  hash_.sort_links();
  std::vector<std::uint32_t> sorted = chain(0);
  EXPECT_EQ(sorted.size(), 6u);
  EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end()));
  EXPECT_EQ(value("f"), "6");
  EXPECT_EQ(value("a"), std::string(40, 'a'));
  EXPECT_FALSE(hash_.is_changed());
}

TEST_F(QHashTest, ValidationAbortsAtABadLink) {
  std::uint32_t pos = insert("dog", "wolf");
  const std::pair<const char*, const char*> kCases[] = {
      {"0000102c", "out of bound\n"},    // a link to the end
      {"0000002d", "invalid header\n"},  // to no record
      {"0000002c", "invalid header\n"},  // to itself
  };
  hash_.check_all();
  for (auto [link, message] : kCases) {
    damage(pos + 8, link);
    EXPECT_EQ(WTERMSIG(status_of([&] { damaged_.check_all(); })), SIGABRT);
    EXPECT_EQ(bytes_of(path("messages")), message);
    // A search gives up.
    EXPECT_EQ(messages_of([&] { EXPECT_EQ(value_in(damaged_, "dogs"), "none"); }),
              hash_.bucket_of("dogs") == hash_.bucket_of("dog") ? "Invalid magic number!\n" : "");
    EXPECT_EQ(messages_of([&] { damaged_.print_profile(-1); }).find("Invalid magic number!\n"), 0u);
    hash_.open_file(path().c_str(), 0, 0, nullptr);
  }
}

TEST_F(QHashTest, WriterRefusesADamagedStore) {
  std::uint32_t pos = insert("dog", "wolf");
  const std::pair<std::size_t, const char*> kDamage[] = {
      {8, "00000041"},   // a block size that the records do not have
      {12, "00000000"},  // no buckets
      {12, "00100000"},  // more than the file holds
      {28, "00010000"},  // a name beyond the end
      {0, "00002000"},   // an end beyond that of the file
  };
  for (auto [at, bytes] : kDamage) {
    damage(44, "0000000c");
    std::string whole = bytes_of(path());
    whole.replace(at, 4, bytes_from(bytes));
    write_bytes(path("bad"), whole);
    std::string said = messages_of([&] { hash_.open_file(path("bad").c_str(), 64, 3, "strcmp"); });
    EXPECT_NE(said.find("Can't open " + path("bad") + "\n"), std::string::npos);
    EXPECT_FALSE(hash_.is_open());
    EXPECT_EQ(bytes_of(path("bad")), whole);
    hash_.open_file(path().c_str(), 0, 0, nullptr);
  }
  // A chain in a circle is not made longer.
  damage(pos + 8, "0000002c");
  hash_.open_file(path().c_str(), 0, 0, nullptr);
  EXPECT_EQ(messages_of([&] { EXPECT_EQ(insert("dog", "2"), 0u); }), "Invalid magic number!\n");
}

TEST_F(QHashTest, HeaderFile) {
  EXPECT_EQ(messages_of([&] { EXPECT_EQ(open_named_header("nowhere.hdr"), -1); }),
            "The file " + path("nowhere.hdr") + " cannot be opened\n");
  hash_.close();
  EXPECT_EQ(open_header("; where the data is\n\"data file.db\" 40\n0 \"strcmp\""), 0);
  ASSERT_TRUE(hash_.is_open());
  EXPECT_EQ(hash_.block_size(), 40u);
  EXPECT_EQ(hash_.bucket_count(), 1u);
  hash_.sync();
  EXPECT_EQ(open_header("\"data file.db\" 64 5"), 1);  // the rest is in the file
  EXPECT_EQ(hash_.bucket_count(), 1u);
  EXPECT_EQ(open_header(path("data file.db") + " 1 1 strcmp"), 0);  // two names
  EXPECT_EQ(open_header('"' + path("data file.db") + "\" 1 1 strcmp"), 1);
  for (const char* text : {"", "other.db", "other.db 64", "other.db 64 many strcmp",
                           "other.db 64 7", "other.db 64 4000000000 strcmp"}) {
    EXPECT_EQ(open_header(text), 0);
    EXPECT_FALSE(hash_.is_open());
    EXPECT_EQ(bytes_of(path("other.db")), "");
  }
}

}  // namespace
}  // namespace torvane
