// Stores under random use, damage and sudden death.
#include <signal.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <random>
#include <vector>

#include "store/journal.h"
#include "store/page_file.h"
#include "store/qhash.h"
#include "store/store_test.h"
#include "support/big_endian.h"

namespace torvane {
namespace {

/// A store and what should be in it, now and at the last sync.
class Model {
 public:
  Model(const NamedObjects& functions, const std::string& path, unsigned seed)
      : random_(seed), path_(path), hash_(functions, OpenMode::write) {
    hash_.cached_pages = 16;  // so that pages come and go, and are written before a sync
    reopen();
  }

  void step() {
    using Step = void (Model::*)();
    static constexpr Step kSteps[] = {
        &Model::sync,      &Model::sync_and_reopen, &Model::lose,      &Model::sort_links,
        &Model::put_plain, &Model::put_plain,       &Model::put_plain, &Model::release_plain,
        &Model::insert,    &Model::insert,          &Model::update,    &Model::update,
        &Model::update,    &Model::check_any,       &Model::check_any, &Model::check_any};
    (this->*kSteps[random_() % 16])();
    ASSERT_NO_FATAL_FAILURE(check_extents());
  }
  void check_everything() {
    for (unsigned i = 0; i < 64; ++i) check(i);
    hash_.check_all();
  }

 private:
  struct Contents {
    std::map<std::string, std::string> values;                 // by key
    std::vector<std::pair<std::uint32_t, std::string>> plain;  // records that no chain reaches
  };

  std::string bytes() {
    // Mostly small, now and then over many blocks and pages.
    std::size_t size = random_() % 8 == 0 ? random_() % 20000 : random_() % 100;
    return std::string(size, static_cast<char>('a' + random_() % 26));
  }
  static std::string key_of(unsigned i) {
    return "key" + std::string(i % 40, 'k') + std::to_string(i);
  }

  void sync() {
    hash_.sync();
    synced_ = now_;
  }
  void sync_and_reopen() {
    sync();
    reopen();
  }
  void lose() {
    now_ = synced_;  // what was not synced is gone
    reopen();
  }
  void sort_links() {
    hash_.sort_links();
    synced_ = now_;
  }
  void check_any() { check(random_() % 64); }
  void reopen() {
    std::uint32_t end = hash_.end_pos();
    bool was_clean = hash_.is_open() && !hash_.is_changed();
    hash_.open_file(path_.c_str(), 32, 7, "strcmp");
    ASSERT_TRUE(hash_.is_open());
    if (was_clean) {
      EXPECT_EQ(hash_.end_pos(), end);
    }
    EXPECT_FALSE(std::filesystem::exists(path_ + "-journal"));
  }
  void insert() {
    std::string key = key_of(random_() % 64);
    if (now_.values.count(key)) return;
    std::string value = bytes(), data = packed(key, value);
    ASSERT_NE(hash_.insert(data.data(), data.size()), 0u);
    now_.values[key] = value;
  }
  void update() {
    if (now_.values.empty()) return;
    auto at = std::next(now_.values.begin(), static_cast<long>(random_() % now_.values.size()));
    StrBufs buf;
    std::uint32_t pos = hash_.find(at->first.c_str(), buf);
    std::string data = packed(at->first, at->second = bytes());
    ASSERT_EQ(hash_.update(pos, data.data(), data.size(), 0, 0), pos);
  }
  void put_plain() {
    std::string data = bytes();
    if (now_.plain.size() < 30) {
      std::uint32_t pos = hash_.write_record(0, data.data(), data.size());
      ASSERT_NE(pos, 0u);
      now_.plain.emplace_back(pos, data);
    } else {
      auto& [pos, old] = now_.plain[random_() % now_.plain.size()];
      ASSERT_EQ(hash_.write_record(pos, data.data(), data.size()), pos);
      old = data;
    }
  }
  void release_plain() {
    if (now_.plain.empty()) return;
    std::swap(now_.plain[random_() % now_.plain.size()], now_.plain.back());
    std::uint32_t pos = now_.plain.back().first;
    hash_.write_record(pos, nullptr, 0);  // gives the overflow back
    hash_.release(pos, 0);
    now_.plain.pop_back();
  }
  void check(unsigned i) {
    StrBufs buf;
    auto wanted = now_.values.find(key_of(i));
    bool found = hash_.find(key_of(i).c_str(), buf) != 0;
    ASSERT_EQ(found, wanted != now_.values.end());
    if (found) {
      ASSERT_EQ(std::string(buf.object(), buf.object_size() - 1),
                packed(wanted->first, wanted->second));
    }
    if (now_.plain.empty()) return;
    const auto& [pos, data] = now_.plain[i % now_.plain.size()];
    std::uint32_t size = hash_.read_record(pos, buf);
    ASSERT_TRUE(std::string(buf.object(), size) == data);
  }
  /// Free extents and those of all records lie apart, the free ones in order and not touching.
  void check_extents() {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> extents;  // from, to
    hash_.free_list().for_each([&](const FreeExtent& extent) {
      EXPECT_TRUE(extents.empty() || extents.back().second < extent.pos);
      extents.emplace_back(extent.pos, extent.end());
    });
    ASSERT_EQ(extents.size(), hash_.free_list().count());
    for (std::uint32_t i = 0; i < hash_.bucket_count(); ++i)
      for (ChainWalk at(hash_, hash_.get_bucket(i)); at.pos() != 0; at.next())
        add_extents(at.pos(), extents);
    for (const auto& [pos, data] : now_.plain) add_extents(pos, extents);
    std::sort(extents.begin(), extents.end());
    std::uint32_t end = hash_.data_start();
    for (auto [from, to] : extents) {
      ASSERT_GE(from, end);
      end = to;
    }
    ASSERT_LE(end, hash_.end_pos());
  }
  void add_extents(std::uint32_t pos,
                   std::vector<std::pair<std::uint32_t, std::uint32_t>>& extents) {
    char bytes[8];
    RecordHeader hdr;
    ASSERT_TRUE(hash_.file_->read(pos, bytes, 8));
    hdr.load(bytes);
    ASSERT_TRUE(hdr.valid());
    std::uint32_t end = pos + hdr.blocks * hash_.block_size();
    extents.emplace_back(pos, end);
    if (hdr.contiguous()) return;
    ASSERT_TRUE(hash_.file_->read(end - 8, bytes, 8));
    std::uint32_t overflow = load_be32(bytes);
    extents.emplace_back(overflow, overflow + load_be32(bytes + 4) * hash_.block_size());
  }

  std::mt19937 random_;
  std::string path_;
  struct OpenedHash : QHash {
    using QHash::file_;
    using QHash::QHash;
  };
  OpenedHash hash_;
  Contents now_;
  Contents synced_;
};

class StoreFaultsTest : public StoreTest {
 protected:
  /// A small store with records of every kind; its bytes.
  std::string sample() {
    QHash hash(world_.objects, OpenMode::write);
    hash.open_file(path("sample").c_str(), 32, 5, "strcmp");
    for (int i = 0; i < 24; ++i) {
      std::string data = packed("key" + std::to_string(i), std::string(i * 5, 'v'));
      std::uint32_t pos = hash.insert(data.data(), data.size());
      if (i % 3 == 0) hash.update(pos, (data + data).data(), 2 * data.size(), 0, 0);
      if (i % 6 == 5) hash.release(hash.write_record(0, "gone", 4), 0);
    }
    hash.sync();
    std::string bytes = bytes_of(path("sample"));
    std::filesystem::remove(path("sample"));
    return bytes;
  }
  /// Does everything that can be done to a store.
  static void use(QHash& hash) {
    StrBufs buf;
    for (int i = 0; i < 30; ++i) hash.find(("key" + std::to_string(i)).c_str(), buf);
    hash.print_profile(3);
    hash.print_free_list();
    std::string data = packed("key3", std::string(300, 'n'));
    if (std::uint32_t pos = hash.find("key3", buf))
      hash.update(pos, data.data(), data.size(), 0, 0);
    if (std::uint32_t pos = hash.find("key4", buf)) hash.release(pos, 0);
    for (int i = 0; i < 5; ++i) hash.insert(data.data(), data.size());
    hash.write_record(0, data.data(), data.size());
    hash.sort_links();
    hash.sync();
  }
  /// Opens, uses and validates a damaged store, for reading and for writing. Only an unknown
  /// comparison and a failed validation may end the process.
  void try_damaged(const std::string& bytes) {
    write_bytes(path(), bytes);
    for (OpenMode mode : {OpenMode::read, OpenMode::write}) {
      int status = status_of([&] {
        QHash hash(world_.objects, mode);
        hash.open_file(path().c_str(), 0, 0, nullptr);
        if (!hash.is_open()) _exit(3);
        use(hash);
        hash.check_all();
      });
      bool refused = WIFEXITED(status) && WEXITSTATUS(status) != 0;
      std::string said = bytes_of(path("messages"));
      ASSERT_EQ(said.find("Sanitizer"), std::string::npos) << said;
      ASSERT_EQ(said.find("runtime error"), std::string::npos) << said;
      if (WIFSIGNALED(status)) {
        ASSERT_EQ(WTERMSIG(status), SIGABRT) << said;
        ASSERT_TRUE(said.ends_with("out of bound\n") || said.ends_with("invalid header\n")) << said;
      } else if (WEXITSTATUS(status) == 1) {
        ASSERT_TRUE(said.ends_with("is not registered as a named object\n")) << said;
      } else if (refused && !bytes.empty()) {
        ASSERT_TRUE(said.ends_with("Can't open " + path() + "\n")) << said;
      }
      ASSERT_TRUE((mode == OpenMode::write && !refused) || bytes_of(path()) == bytes);
    }
    std::filesystem::remove(path() + "-journal");
  }
};

TEST_F(StoreFaultsTest, RandomUseAgreesWithAModel) {
  for (int seed = 1; seed <= rounds(40, 4); ++seed) {
    std::filesystem::remove(path());
    Model model(world_.objects, path(), static_cast<unsigned>(seed));
    for (int i = 0; i < rounds(10000, 1000); ++i) ASSERT_NO_FATAL_FAILURE(model.step()) << seed;
    model.check_everything();
    ASSERT_FALSE(HasFailure()) << seed;
  }
}

TEST_F(StoreFaultsTest, FlippedBytes) {
  std::string whole = sample();
  ASSERT_GT(whole.size(), 4096u);
  for (std::size_t at = 0; at < 4096;
       at += at < 64 ? 1 : static_cast<std::size_t>(rounds(1, 251))) {
    for (int flip = 1; flip <= rounds(2, 1); ++flip) {
      std::string bytes = whole;
      bytes[at] = static_cast<char>(bytes[at] ^ (flip == 1 ? 0xff : 0x01));
      ASSERT_NO_FATAL_FAILURE(try_damaged(bytes)) << at;
    }
  }
}

TEST_F(StoreFaultsTest, TruncatedAndRandomFiles) {
  std::string whole = sample();
  for (std::size_t n = 0; n < whole.size(); n += static_cast<std::size_t>(rounds(1, 211)))
    ASSERT_NO_FATAL_FAILURE(try_damaged(whole.substr(0, n))) << n;
  std::mt19937 random(1);
  for (int i = 0; i < rounds(1000, 12); ++i) {
    // Random records after a header that passes, and random bytes altogether.
    std::string bytes = whole;
    for (std::size_t at = i % 2 == 0 ? 58 : 0; at < bytes.size(); ++at)
      if (i % 4 < 2 || random() % 32 == 0) bytes[at] = static_cast<char>(random());
    ASSERT_NO_FATAL_FAILURE(try_damaged(bytes)) << i;
  }
}

TEST_F(StoreFaultsTest, KilledWriterLeavesItsLastSync) {
  constexpr int kKeysAStep = 20;
  auto key = [](int i) { return "key" + std::to_string(i * 7919); };
  std::mt19937 random(static_cast<unsigned>(rounds(2, 1)));
  for (int round = 0; round < rounds(500, 15); ++round) {
    std::filesystem::remove(path());
    int reports[2];
    ASSERT_EQ(pipe(reports), 0);
    pid_t writer = fork();
    if (writer == 0) {
      QHash hash(world_.objects, OpenMode::write);
      hash.cached_pages = 8;
      hash.open_file(path().c_str(), 32, 11, "strcmp");
      for (int step = 1;; ++step) {
        // Every value says which step wrote it; later steps make them longer.
        std::string value(static_cast<std::size_t>(step * 40), 'v');
        StrBufs buf;
        for (int i = 0; i < step * kKeysAStep; ++i) {
          std::string data = packed(key(i), std::to_string(step) + ' ' + value);
          std::uint32_t pos = hash.find(key(i).c_str(), buf);
          bool good = pos != 0 ? hash.update(pos, data.data(), data.size(), 0, 0) != 0
                               : hash.insert(data.data(), data.size()) != 0;
          if (!good) _exit(1);
        }
        hash.sync();
        if (write(reports[1], &step, sizeof step) != sizeof step) _exit(1);
      }
    }
    close(reports[1]);
    usleep(random() % 60000);
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    int synced = 0, step;
    while (read(reports[0], &step, sizeof step) == sizeof step) synced = step;
    close(reports[0]);

    // A reader sees the same through the log as a writer that writes it back.
    std::string left = bytes_of(path());
    for (OpenMode mode : {OpenMode::read, OpenMode::write}) {
      QHash hash(world_.objects, mode);
      messages_of([&] { hash.open_file(path().c_str(), 32, 11, "strcmp"); });
      ASSERT_TRUE(mode == OpenMode::write || bytes_of(path()) == left);
      // The next sync may have been complete without the report of it.
      StrBufs buf;
      int held = hash.is_open() && hash.find(key(0).c_str(), buf) != 0
                     ? std::stoi(buf.object() + key(0).size() + 1)
                     : 0;
      ASSERT_TRUE(held == synced || held == synced + 1) << held << " after " << synced;
      if (!hash.is_open()) continue;
      hash.check_all();
      for (int i = 0; i < (held + 1) * kKeysAStep; ++i) {
        ASSERT_EQ(hash.find(key(i).c_str(), buf) != 0, i < held * kKeysAStep) << round << ' ' << i;
        if (i >= held * kKeysAStep) continue;
        ASSERT_EQ(std::stoi(buf.object() + key(i).size() + 1), held);
      }
    }
    ASSERT_FALSE(std::filesystem::exists(path() + "-journal"));
  }
}

/// A sum of the log, by the description of the format.
std::uint32_t sum_of(std::uint32_t sum, const std::string& words) {
  for (std::size_t i = 0; i < words.size(); i += 4)
    sum = ((sum << 5 | sum >> 27) ^ load_be32(words.data() + i)) * 0x9E3779B1u;
  return sum;
}

std::string page_of(char c) {
  return std::string(kPageBytes, c);
}

TEST_F(StoreFaultsTest, LogByteForByteCutAndFlipped) {
  const std::string log_path = path() + "-journal";
  // Longer than the log says: what was written beyond the committed end does not count.
  const std::string file = std::string(5200, 'n');
  write_bytes(path(), file);
  const std::string a = page_of('a'), b = page_of('b'), c = page_of('c');
  {
    Journal log(path(), 0640);
    const Journal::Page first[] = {{0, a.data()}};
    const Journal::Page second[] = {{1, b.data()}, {0, a.data()}}, better[] = {{0, c.data()}};
    ASSERT_TRUE(log.start(5000) && log.add(first) && log.commit(5000));
    ASSERT_TRUE(log.add(second) && log.add(better) && log.commit(8000));
  }
  auto mode = std::filesystem::status(log_path).permissions();
  EXPECT_EQ(static_cast<unsigned>(mode), 0640u) << "as the file";
  const std::string left = bytes_of(log_path);
  constexpr std::size_t kFirst = 24, kSecond = kFirst + 4104 + 16, kEnd = kSecond + 2 * 4104 + 16;
  EXPECT_EQ(left.substr(0, 16), bytes_from("'TVJRNL02' 00001000 00001388"));
  EXPECT_EQ(load_be32(left.data() + 20), sum_of(0, left.substr(0, 20)));
  const std::uint32_t salt = load_be32(left.data() + 16);
  EXPECT_EQ(left.substr(kSecond, 4), bytes_from("00000001"));
  const std::uint32_t sum_b = sum_of(salt, left.substr(kSecond, 4) + b);
  const std::uint32_t sum_c = load_be32(left.data() + kSecond + 4104 + 4);
  EXPECT_EQ(load_be32(left.data() + kSecond + 4), sum_b);
  EXPECT_EQ(left.substr(kEnd - 16, 4), bytes_from("ffffffff"));
  EXPECT_EQ(left.substr(kEnd - 8, 8), bytes_from("00001f40 00000000"));
  std::string sums(8, ' ');
  store_be32(sums.data(), sum_b);
  store_be32(sums.data() + 4, sum_c);
  EXPECT_EQ(load_be32(left.data() + kEnd - 12),
            sum_of(salt, sums + left.substr(kEnd - 16, 4) + left.substr(kEnd - 8, 8)));

  const std::string states[] = {file, file.substr(0, 5000), a + file.substr(0, 5000 - 4096),
                                c + b.substr(0, 8000 - 4096)};
  /// Which of the states a log is of whose bytes are right up to `at`.
  auto state_at = [&](std::size_t at) {
    return states[(at >= kFirst) + (at >= kSecond) + (at >= kEnd)];
  };
  const auto step = static_cast<std::size_t>(rounds(1, 97));
  for (std::size_t at = 0; at <= kEnd; at += at < 40 || at > kEnd - 40 ? 1 : step) {
    for (bool cut : {true, false}) {
      std::string log = cut ? left.substr(0, at) : left;
      if (!cut) log[at] = static_cast<char>(log[at] ^ (1 << at % 8));
      write_bytes(log_path, log);
      ASSERT_EQ(content_of(path(), false), state_at(at)) << at << cut;
      ASSERT_EQ(bytes_of(log_path), log) << "a reader writes nothing";
      if (at % 16 != 0) continue;
      ASSERT_EQ(content_of(path(), true), state_at(at)) << at << cut;
      ASSERT_EQ(bytes_of(path()), state_at(at));
      ASSERT_FALSE(std::filesystem::exists(log_path));
      write_bytes(path(), file);
    }
  }
  // The log of a longer file than this one is not its own, nor is one beside an empty file.
  for (std::size_t length : {4999, 0}) {
    write_bytes(path(), file.substr(0, length));
    write_bytes(log_path, left);
    EXPECT_EQ(content_of(path(), true).size(), length);
  }
}

TEST_F(StoreFaultsTest, ReaderBesideAWriter) {
  auto writer = PageFile::open(path(), true, 8);
  auto put = [&](char c, std::uint32_t pages) {
    for (std::uint32_t i = 0; i < pages; ++i)
      ASSERT_TRUE(writer->write(i * kPageBytes, page_of(c).data(), kPageBytes));
    ASSERT_TRUE(writer->commit());
  };
  put('a', 3);
  put('b', 2);
  auto reader = PageFile::open(path(), false, 8);
  auto sees = [](PageFile& file, std::uint32_t page) {
    char c = '?';
    EXPECT_TRUE(file.read(page * kPageBytes + 9, &c, 1));
    return c;
  };
  EXPECT_EQ(sees(*reader, 0), 'b');
  put('c', 4);
  writer->write(0, page_of('x').data(), kPageBytes);  // not committed
  EXPECT_EQ(sees(*reader, 1), 'b') << "as of when it opened";
  EXPECT_EQ(reader->length(), 3 * kPageBytes);
  EXPECT_EQ(content_of(path(), false), page_of('c') + page_of('c') + page_of('c') + page_of('c'));
  // A log that began anew meanwhile: what it held stands in the file.
  for (int i = 0; i < 4; ++i) put('d', 4);
  EXPECT_EQ(sees(*reader, 2), 'd');
  writer.reset();
  EXPECT_EQ(content_of(path(), false).size(), 4 * kPageBytes);
}

TEST_F(StoreFaultsTest, EndOfTheProcessLeavesTheStoreAlone) {
  for (bool aborts : {false, true}) {
    std::filesystem::remove(path());
    int status = status_of([&] {
      auto& hash = *new QHash(world_.objects, OpenMode::write);  // never destroyed
      hash.open_file(path().c_str(), 32, 3, "strcmp");
      std::string data = packed("dog", "1");
      for (int i = 0; i < 2; ++i) {
        hash.insert(data.data(), data.size());
        hash.sync();
      }
      hash.insert(data.data(), data.size());
      if (!std::filesystem::exists(path() + "-journal")) _exit(9);
      if (aborts) hash.check_chain(hash.end_pos());
      std::exit(0);
    });
    EXPECT_EQ(WIFSIGNALED(status), aborts);
    EXPECT_TRUE(aborts || WEXITSTATUS(status) == 0);
    EXPECT_FALSE(std::filesystem::exists(path() + "-journal"));
    QHash hash(world_.objects, OpenMode::read);
    hash.open_file(path().c_str(), 0, 0, nullptr);
    ChainWalk at(hash, hash.get_bucket(hash.bucket_of("dog")));
    at.next();
    EXPECT_NE(at.pos(), 0u);
    at.next();
    EXPECT_EQ(at.pos(), 0u) << "what was not synced is lost";
  }
}

TEST_F(StoreFaultsTest, LogOfOldPages) {
  auto entry = [](std::uint32_t salt, const char* page, char c) {
    std::string sum(4, ' ');
    store_be32(sum.data(), sum_of(salt, bytes_from(page) + page_of(c)));
    return bytes_from(page) + sum + page_of(c);
  };
  std::string log = bytes_from("'TVJRNL01' 00001000 00001004 12345678 00000000");
  store_be32(log.data() + 20, sum_of(0, log.substr(0, 20)));
  log += entry(0x12345678, "00000001", 'a') + entry(0x12345678, "00000000", 'b') + "torn";
  const std::string old = page_of('b') + std::string(4, 'a');
  write_bytes(path(), std::string(5000, 'n'));
  write_bytes(path() + "-journal", log);
  EXPECT_EQ(content_of(path(), false), old);
  EXPECT_EQ(content_of(path(), true), old);
  EXPECT_EQ(bytes_of(path()), old);
  EXPECT_FALSE(std::filesystem::exists(path() + "-journal"));
}

TEST_F(StoreFaultsTest, UnsyncedWorkGoesWithItsWriter) {
  std::string before = sample();
  write_bytes(path(), before);
  {
    QHash hash(world_.objects, OpenMode::write);
    hash.cached_pages = 8;
    hash.open_file(path().c_str(), 0, 0, nullptr);
    for (int i = 0; i < 100; ++i) hash.write_record(0, std::string(1000, 'x').c_str(), 1000);
    EXPECT_TRUE(std::filesystem::exists(path() + "-journal"));
    EXPECT_NE(bytes_of(path()), before);
  }
  EXPECT_EQ(bytes_of(path()), before);
  EXPECT_FALSE(std::filesystem::exists(path() + "-journal"));
}

TEST_F(StoreFaultsTest, FileThatIsCutWhileOpenReadsAsDamaged) {
  write_bytes(path(), sample());
  QHash hash(world_.objects, OpenMode::write);
  hash.open_file(path().c_str(), 0, 0, nullptr);
  std::string data = packed("large", std::string(50000, 'x'));
  std::uint32_t pos = hash.insert(data.data(), data.size());
  hash.sync();
  hash.open_file(path().c_str(), 0, 0, nullptr);
  std::filesystem::resize_file(path(), 100);
  StrBufs buf;
  EXPECT_EQ(
      messages_of([&] { EXPECT_EQ(hash.read_record(pos, buf), 0u); }).find("Can't read " + path()),
      0u);
  messages_of([&] { use(hash); });
  EXPECT_EQ(bytes_of(path()).size(), 100u);
}

}  // namespace
}  // namespace torvane
