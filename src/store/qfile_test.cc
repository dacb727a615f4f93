#include "store/qfile.h"

#include <sys/resource.h>

#include <algorithm>
#include <vector>

#include "store/store_test.h"

namespace torvane {
namespace {

class QFileTest : public StoreTest {
 protected:
  QFileTest() : file_(OpenMode::write) { file_.open(path().c_str(), 32); }

  std::uint32_t put(std::uint32_t pos, const std::string& data) {
    return file_.write_record(pos, data.data(), data.size());
  }
  std::string get(std::uint32_t pos) {
    StrBufs buf(64);
    std::uint32_t size = file_.read_record(pos, buf);
    return {buf.object(), size};
  }
  std::string free_list() {
    return messages_of([&] { file_.print_free_list(); });
  }
  /// The bytes of the file from `pos` on, after a sync.
  std::string synced(std::uint32_t pos, std::size_t n) {
    file_.sync();
    return content_of(path(), false).substr(pos, n);
  }

  /// A file whose end a test can move.
  struct MovableFile : QFile {
    using QFile::end_pos_;
    using QFile::free_list_;
    using QFile::QFile;
  };
  MovableFile file_;
};

TEST_F(QFileTest, ContiguousRecordAndFreeList) {
  EXPECT_EQ(bytes_of(path()), "") << "before the first sync";
  EXPECT_EQ(synced(0, 5000), bytes_from("0000000c 00000000 00000020"));
  EXPECT_EQ(put(0, "a"), 12u);
  EXPECT_EQ(free_list(), "Free list: (44, 4064)\n");
  std::string bytes = synced(0, 5000);
  EXPECT_EQ(bytes.size(), 12u + 4096);
  // The list lies in the first free block, and does not name it.
  EXPECT_EQ(bytes.substr(0, 84), bytes_from("0000100c 0000002c 00000020"
                                            " 00000001 0001 5555 'a' 23*00"
                                            " 00000008 0001 5555 0000004c 00000fc0 16*00"
                                            " 8*00"));
  EXPECT_EQ(file_.open(path().c_str(), 32), 1);
  EXPECT_EQ(free_list(), "Free list: (44, 4064)\n");
  EXPECT_EQ(get(12), "a");
}

TEST_F(QFileTest, SpilledRecordKeepsItsPlace) {
  std::uint32_t first = put(0, "short"), second = put(0, "other");
  EXPECT_EQ(put(first, "0123456789abcdefghijklmnopqrstuvwxyz"), first);
  EXPECT_EQ(synced(first, 32), bytes_from("00000024 0001 5554 '0123456789abcdef'"
                                          " 0000004c 00000001"));
  EXPECT_EQ(bytes_of(path()).substr(76, 32), bytes_from("'ghijklmnopqrstuvwxyz' 12*00"));
  EXPECT_EQ(get(first), "0123456789abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(get(second), "other");

  // The overflow has room for 32 bytes; one more moves it, here to the place just given back.
  std::uint32_t third = put(0, "third");
  std::string longer(16 + 33, 'x');
  EXPECT_EQ(put(first, longer), first);
  EXPECT_EQ(get(first), longer);
  EXPECT_EQ(synced(first, 8), bytes_from("00000031 0001 5554"));
  EXPECT_EQ(get(third), "third");

  // What fits again is whole, and the overflow is free.
  std::string before = free_list();
  EXPECT_EQ(put(first, "short"), first);
  EXPECT_EQ(synced(first, 13), bytes_from("00000005 0001 5555 'short'"));
  EXPECT_NE(free_list(), before);
}

TEST_F(QFileTest, OverflowInFrontOfTheLastRecord) {
  std::uint32_t first = put(0, std::string(127 * 32 - 8, 'x')), last = put(0, "y");
  ASSERT_EQ(last + 32, file_.end_pos());
  file_.release(first, 0);
  std::string longer(3000, 'z');
  EXPECT_EQ(put(last, longer), last);
  EXPECT_EQ(file_.end_pos(), last + 32);
  EXPECT_EQ(get(last), longer);
}

TEST_F(QFileTest, ReleasedExtentsJoin) {
  for (int i = 0; i < 4; ++i) EXPECT_EQ(put(0, "x"), 12u + 32 * static_cast<unsigned>(i));
  file_.release(12, 0);
  file_.release(76, 1);
  EXPECT_EQ(free_list(), "Free list: (12, 32) (76, 32) (140, 3968)\n");
  file_.release(44, 1);
  EXPECT_EQ(free_list(), "Free list: (12, 96) (140, 3968)\n");
  // First fit, from the front.
  EXPECT_EQ(put(0, std::string(40, 'y')), 12u);
  EXPECT_EQ(put(0, "z"), 76u);
  EXPECT_EQ(free_list(), "Free list: (140, 3968)\n");
  // What is free already, and what lies elsewhere, is not taken.
  for (std::uint32_t pos : {140u, 8u, 5000u})
    EXPECT_EQ(messages_of([&] { file_.release(pos, 1); }), "Invalid magic number!\n");
}

TEST_F(QFileTest, FreeListThatFillsItsBlocksSparesTheNextRecord) {
  // Three free extents make 24 bytes, and 32 with the header of the list.
  for (int i = 0; i < 128; ++i) put(0, "x");
  for (std::uint32_t block : {0u, 2u, 4u}) file_.release(12 + 32 * block, 1);
  EXPECT_EQ(free_list(), "Free list: (12, 32) (76, 32) (140, 32)\n");
  std::string third = synced(44, 32);
  EXPECT_EQ(third, bytes_from("00000001 0001 5555 'x' 23*00"));
  EXPECT_EQ(bytes_of(path()).substr(12, 24), bytes_from("00000010 0001 5555 0000004c 00000020"
                                                        " 0000008c 00000020"));
}

TEST_F(QFileTest, RecordBeyondTheCountOfBlocksSpillsAtOnce) {
  std::string large(65535 * 32 - 8, 'a');
  EXPECT_EQ(put(0, large), 12u);
  EXPECT_EQ(synced(12, 8), bytes_from("001fffd8 ffff 5555"));
  large += "b";
  std::uint32_t pos = put(0, large);
  EXPECT_EQ(get(pos), large);
  EXPECT_EQ(synced(pos, 8), bytes_from("001fffd9 ffff 5554"));
  large.append(3000000, 'c');
  EXPECT_EQ(put(pos, large), pos);
  EXPECT_EQ(get(pos), large);
  EXPECT_EQ(put(pos, "small"), pos);
  EXPECT_EQ(get(pos), "small");
}

TEST_F(QFileTest, ReaderShowsTheListOfManyExtents) {
  std::vector<std::uint32_t> places;
  for (int i = 0; i < 2000; ++i) places.push_back(put(0, "x"));
  for (std::size_t i = 0; i < places.size(); i += 2) file_.release(places[i], 0);
  file_.sync();
  file_.open(path().c_str(), 32);
  const std::string shown = free_list();
  EXPECT_GT(shown.size(), 10000u);
  file_.close();
  QFile reader(OpenMode::read);
  reader.open(path().c_str(), 32);
  EXPECT_EQ(messages_of([&] { reader.print_free_list(); }), shown);
  // What is given back in memory joins it.
  QFile other(OpenMode::read);
  other.open(path().c_str(), 32);
  other.release(places[1], 1);
  EXPECT_EQ(other.free_list().count(), reader.free_list().count() - 1);
}

TEST_F(QFileTest, WhatCannotBeOpened) {
  std::filesystem::create_directory(path("folder"));
  write_bytes(path("empty"), "");
  write_bytes(path("short"), "0123");
  write_bytes(path("no-blocks"), bytes_from("0000000c 00000000 00000000"));
  write_bytes(path("cut"), bytes_from("0000100c 00000000 00000020"));
  for (const char* name : {"folder", "empty", "short", "no-blocks", "cut", "missing"}) {
    QFile reader(OpenMode::read);
    std::string full = path(name);
    EXPECT_EQ(messages_of([&] { EXPECT_EQ(reader.open(full.c_str(), 32), 0); }),
              "Can't open " + full + "\n");
    EXPECT_FALSE(reader.is_open());
  }
  // A file has one writer.
  QFile second(OpenMode::write);
  messages_of([&] { second.open(path().c_str(), 32); });
  EXPECT_FALSE(second.is_open());
  file_.close();
  second.open(path().c_str(), 32);
  EXPECT_TRUE(second.is_open());
}

TEST_F(QFileTest, DamagedRecordsAndFreeListsAreRefused) {
  std::uint32_t pos = put(0, "kept");
  file_.sync();
  const std::string whole = bytes_of(path());
  auto damage = [&](std::size_t at, const std::string& bytes) {
    std::string damaged = whole;
    damaged.replace(at, bytes.size(), bytes);
    write_bytes(path("damaged"), damaged);
  };
  const std::pair<std::size_t, const char*> kDamage[] = {
      {pos + 6, "1234"},            // no magic
      {pos, "7fffffff"},            // a size beyond the file
      {pos + 6, "5554"},            // spilled, with less than its head
      {pos, "00000020 0001 5554"},  // spilled to nowhere
  };
  for (const auto& [at, bytes] : kDamage) {
    damage(at, bytes_from(bytes));
    QFile reader(OpenMode::read);
    ASSERT_EQ(reader.open(path("damaged").c_str(), 32), 1);
    StrBufs buf;
    EXPECT_EQ(messages_of([&] { EXPECT_EQ(reader.read_record(pos, buf), 0u); }),
              "Invalid magic number!\n");
    EXPECT_STREQ(buf.object(), "");
  }
  // Free extents over the list itself, beyond the end, and over the header.
  for (const char* pair : {"0000000c 00000f00", "00000fff 7fffffff", "00000004 00000020"}) {
    damage(52, bytes_from(pair));
    QFile writer(OpenMode::write);
    EXPECT_EQ(messages_of([&] { writer.open(path("damaged").c_str(), 32); }),
              "Invalid magic number!\n");
  }
}

TEST_F(QFileTest, TheLastPositionIsTheLimit) {
  put(0, "kept");
  file_.end_pos_ = 0x7fffffff / 32 * 32 - 32 * 10 + 12;
  std::uint32_t first = 0;
  file_.free_list_.clear();
  std::string said = messages_of([&] {
    first = put(0, std::string(32 * 8, 'x'));
    EXPECT_EQ(put(0, std::string(32 * 8, 'x')), 0u);
  });
  EXPECT_GT(first, 0x7ff00000u);
  EXPECT_EQ(said, "The file " + path() + " cannot grow beyond 2147483647 bytes\n");
  file_.sync();
  EXPECT_EQ(file_.open(path().c_str(), 32), 1);
  EXPECT_EQ(get(first), std::string(32 * 8, 'x'));
  EXPECT_EQ(get(12), "kept");
}

TEST_F(QFileTest, FullDiskLeavesTheLastSync) {
  std::uint32_t pos = put(0, "kept");
  file_.sync();
  std::string before = bytes_of(path());
  file_.close();
  int status = status_of([&] {
    rlimit limit{20000, 20000};
    setrlimit(RLIMIT_FSIZE, &limit);
    QFile file(OpenMode::write);
    file.cached_pages = 8;
    file.open(path().c_str(), 32);
    std::uint32_t changed = file.write_record(pos, "changed", 7);
    while (file.write_record(0, std::string(3000, 'x').c_str(), 3000) != 0) {
    }
    file.sync();
    StrBufs buf;
    _exit(changed == pos && file.read_record(pos, buf) == 7 ? 0 : 1);
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(bytes_of(path("messages")).find("Can't write " + path()), 0u);
  file_.open(path().c_str(), 32);
  EXPECT_EQ(get(pos), "kept");
  EXPECT_EQ(bytes_of(path()), before);
}

}  // namespace
}  // namespace torvane
