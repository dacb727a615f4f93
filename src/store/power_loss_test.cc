// What a store is worth when the power fails, or a write: all that it gives to the device goes
// through the functions below, which note it, and may refuse it.
#include <sys/syscall.h>
#include <sys/uio.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <memory>
#include <random>
#include <vector>

#include "store/header_file.h"
#include "store/sharded_hash.h"
#include "store/store_test.h"

namespace torvane {
namespace {

struct DeviceStep {
  enum Kind { write, cut, flush, remove, flush_folder, synced };
  Kind kind;
  std::string path;
  std::uint64_t at;  // where it is written, the length to which is cut, or the number of a sync
  std::string bytes;
};

/// Where the steps are noted.
struct DeviceRecord {
  std::vector<DeviceStep> steps;
  std::size_t fails_at = SIZE_MAX;  // the step from which on all fail
  std::size_t fails_until = SIZE_MAX;
  int error = EIO;

  bool take(DeviceStep::Kind kind, std::string path, std::uint64_t at = 0, std::string bytes = "") {
    steps.push_back({kind, std::move(path), at, std::move(bytes)});
    std::size_t number = steps.size() - 1;
    if (number < fails_at || number >= fails_until) return true;
    errno = error;
    return false;
  }
  std::size_t count(DeviceStep::Kind kind) const {
    return static_cast<std::size_t>(std::count_if(
        steps.begin(), steps.end(), [&](const DeviceStep& step) { return step.kind == kind; }));
  }
};

DeviceRecord* g_device = nullptr;

std::string path_of(int fd) {
  return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(fd)).string();
}

bool note_flush(int fd) {
  struct stat status;
  if (!g_device) return true;
  if (fstat(fd, &status) == 0 && S_ISDIR(status.st_mode))
    return g_device->take(DeviceStep::flush_folder, "");
  return g_device->take(DeviceStep::flush, path_of(fd));
}

}  // namespace
}  // namespace torvane

extern "C" {

ssize_t pwrite(int fd, const void* bytes, size_t n, off_t at) {
  using namespace torvane;
  std::string copy(static_cast<const char*>(bytes), n);
  if (g_device && !g_device->take(DeviceStep::write, path_of(fd), static_cast<std::uint64_t>(at),
                                  std::move(copy)))
    return -1;
  return syscall(SYS_pwrite64, fd, bytes, n, at);
}

ssize_t pwritev(int fd, const iovec* pieces, int count, off_t at) {
  using namespace torvane;
  std::string copy;
  for (int i = 0; i < count; ++i)
    copy.append(static_cast<const char*>(pieces[i].iov_base), pieces[i].iov_len);
  if (g_device && !g_device->take(DeviceStep::write, path_of(fd), static_cast<std::uint64_t>(at),
                                  std::move(copy)))
    return -1;
  return syscall(SYS_pwritev, fd, pieces, count, at, 0);
}

int ftruncate(int fd, off_t length) noexcept {
  using namespace torvane;
  if (g_device && !g_device->take(DeviceStep::cut, path_of(fd), static_cast<std::uint64_t>(length)))
    return -1;
  return static_cast<int>(syscall(SYS_ftruncate, fd, length));
}

int fsync(int fd) {
  return torvane::note_flush(fd) ? static_cast<int>(syscall(SYS_fsync, fd)) : -1;
}

int fdatasync(int fd) {
  return torvane::note_flush(fd) ? static_cast<int>(syscall(SYS_fdatasync, fd)) : -1;
}

int unlink(const char* path) noexcept {
  using namespace torvane;
  if (g_device && !g_device->take(DeviceStep::remove, path)) return -1;
  return static_cast<int>(syscall(SYS_unlink, path));
}

}  // extern "C"

namespace torvane {
namespace {

/// A file on a device that keeps what is not flushed in parts, or not at all.
class FragileFile {
 public:
  void take(const DeviceStep& step) {
    if (step.kind == DeviceStep::flush) {
      for (const DeviceStep& waiting : waiting_) apply(waiting, safe_);
      waiting_.clear();
    } else {
      waiting_.push_back(step);
    }
  }
  std::string after_power_loss(std::mt19937& random) const {
    std::string bytes = safe_;
    const unsigned lost = random() % 3;  // of three: none, some, most
    for (const DeviceStep& step : waiting_) {
      if (step.kind == DeviceStep::cut) {
        if (random() % 3 >= lost) apply(step, bytes);
        continue;
      }
      constexpr std::size_t kSector = 512;
      for (std::size_t at = 0; at < step.bytes.size();) {
        std::size_t n = std::min(kSector - (step.at + at) % kSector, step.bytes.size() - at);
        if (random() % 3 >= lost)
          apply({DeviceStep::write, "", step.at + at, step.bytes.substr(at, n)}, bytes);
        at += n;
      }
    }
    return bytes;
  }

 private:
  static void apply(const DeviceStep& step, std::string& bytes) {
    std::size_t end = step.at + step.bytes.size();
    if (step.kind == DeviceStep::cut || bytes.size() < end) bytes.resize(end, '\0');
    bytes.replace(step.at, step.bytes.size(), step.bytes);
  }

  std::string safe_;
  std::vector<DeviceStep> waiting_;
};

/// Stores and their logs, whose names may be lost or come back as long as the folder is not
/// flushed.
class FragileDisk {
 public:
  std::size_t synced = 0;

  void take(const DeviceStep& step) {
    if (step.kind == DeviceStep::synced) {
      synced = step.at;
    } else if (step.kind == DeviceStep::flush_folder) {
      for (auto& [path, name] : names_) name.safe = name.now;
    } else if (step.kind == DeviceStep::remove) {
      names_[step.path].now.reset();
    } else {
      auto& file = names_[step.path].now;
      if (!file) file = std::make_shared<FragileFile>();
      file->take(step);
    }
  }
  void lose_power(std::mt19937& random) const {
    for (const auto& [path, name] : names_) {
      const bool is_log = path.ends_with("-journal");
      const auto& file = !is_log || random() % 2 ? name.now : name.safe;
      std::filesystem::remove(path);
      if (file) write_bytes(path, file->after_power_loss(random));
    }
  }

 private:
  struct Name {
    std::shared_ptr<FragileFile> now, safe;
  };
  std::map<std::string, Name> names_;
};

class PowerLossTest : public StoreTest {
 protected:
  static constexpr std::size_t kSyncs = 30;
  ~PowerLossTest() override { g_device = nullptr; }

  static std::string key(std::size_t i) { return "key" + std::to_string(i * 7919); }
  static std::size_t keys_at(std::size_t sync) { return 10 + sync * 3; }

  /// As many empty stores, with room in memory for as many pages of each.
  void make_stores(std::size_t stores, std::size_t pages) {
    stores_ = stores;
    pages_ = pages;
    write_bytes(path("store.hdr"), "shards " + std::to_string(stores) + " store.db 32 11 strcmp");
    for (std::size_t i = 0; i < stores; ++i) {
      std::filesystem::remove(store_path(i) + "-journal");
      write_bytes(store_path(i), "");
    }
  }
  std::string store_path(std::size_t i) const {
    return path() + (i == 0 ? "" : '.' + std::to_string(i));
  }
  bool a_log_is_left() const {
    for (std::size_t i = 0; i < stores_; ++i)
      if (std::filesystem::exists(store_path(i) + "-journal")) return true;
    return false;
  }
  void open(ShardedHash& hash) {
    HeaderFile header(world_.files, path("store.hdr").c_str(), world_.double_byte);
    hash.cached_pages = pages_ * stores_;
    if (hash.open_header(header) > 0 || !hash.is_open()) return;
    hash.first().write_record(0, "global", 6);
    hash.started();
  }
  /// Changes the stores as sync number `number` finds them: every value says by which.
  bool change(ShardedHash& hash, std::size_t number) {
    StrBufs found;
    bool good = hash.is_open();
    for (std::size_t i = 0; i < keys_at(number) && good; ++i) {
      std::string value = std::to_string(number) + ' ' + std::string(number * 37 % 400, 'v');
      std::string data = packed(key(i), value);
      QHash& store = hash.of(key(i).c_str());
      std::uint32_t pos = store.find(key(i).c_str(), found);
      good = (pos ? store.update(pos, data.data(), data.size(), 0, false)
                  : store.insert(data.data(), data.size())) != 0;
    }
    return good;
  }
  /// Many syncs, of which some write pages before, and the end of some writers.
  void work(DeviceRecord& device) {
    ShardedHash hash(world_.objects, OpenMode::write);
    open(hash);
    g_device = &device;
    for (std::size_t number = 1; number <= kSyncs; ++number) {
      if (number % 9 == 0) {
        change(hash, 2 * kSyncs);  // what is not synced goes with its writer
        open(hash);
      }
      if (!change(hash, number)) {
        open(hash);  // the disk was full: back to what is synced
        continue;
      }
      hash.sync();
      if (!hash.is_changed()) device.take(DeviceStep::synced, "", number);
    }
    open(hash);
    g_device = nullptr;
  }
  /// By which sync the values are that the stores hold, all of them; 0: there are none yet.
  std::size_t held(OpenMode mode) {
    ShardedHash hash(world_.objects, mode);
    messages_of([&] { open(hash); });
    EXPECT_TRUE(hash.is_open() || mode == OpenMode::read) << "no store, but room for one";
    StrBufs buf;
    auto number_in = [&](std::size_t i) -> std::size_t {
      bool found = hash.of(key(i).c_str()).find(key(i).c_str(), buf) != 0;
      return found ? std::stoul(buf.object() + key(i).size() + 1) : 0;
    };
    std::size_t number = hash.is_open() ? number_in(0) : 0;
    for (std::size_t i = 0; i < keys_at(number) && number > 0; ++i)
      EXPECT_EQ(number_in(i), number) << i;
    EXPECT_EQ(number_in(keys_at(number)), 0u);
    for (const auto& store : hash.stores()) store->check_all();
    return number;
  }

  std::size_t stores_ = 1;
  std::size_t pages_ = 8;
};

TEST_F(PowerLossTest, LeavesTheLastSyncOrTheOneUnderWay) {
  std::mt19937 random(static_cast<unsigned>(rounds(2, 1)));
  for (auto [stores, pages] : {std::pair{1, 8}, {1, 16}, {1, 1000}, {3, 8}, {3, 1000}}) {
    make_stores(static_cast<std::size_t>(stores), static_cast<std::size_t>(pages));
    DeviceRecord device;
    work(device);
    ASSERT_EQ(device.count(DeviceStep::synced), kSyncs);
    FragileDisk disk;
    const auto stride = static_cast<unsigned>(device.steps.size() / 100);
    for (std::size_t done = 0; done < device.steps.size(); ++done) {
      disk.take(device.steps[done]);
      if (random() % (rounds(1, 0) ? 1 : stride) != 0) continue;
      for (int times = 0; times < 3; ++times) {
        make_stores(stores_, pages_);
        disk.lose_power(random);
        std::size_t seen = held(OpenMode::read);
        ASSERT_TRUE(seen == disk.synced || seen == disk.synced + 1)
            << seen << " after " << disk.synced << " at step " << done << " of " << stores << " "
            << pages;
        ASSERT_EQ(held(OpenMode::write), seen);
        ASSERT_FALSE(a_log_is_left());
        ASSERT_FALSE(HasFailure()) << done;
      }
    }
  }
}

TEST_F(PowerLossTest, AFailedWriteLosesNoSync) {
  for (auto [stores, pages] : {std::pair{1, 8}, {1, 1000}, {3, 8}}) {
    auto make = [&] {
      make_stores(static_cast<std::size_t>(stores), static_cast<std::size_t>(pages));
    };
    DeviceRecord whole;
    make();
    work(whole);
    const auto stride = static_cast<std::size_t>(rounds(2, 41));
    for (std::size_t at = 0; at < whole.steps.size(); at += stride) {
      for (int error : {EIO, ENOSPC}) {
        for (std::size_t length : {std::size_t{1}, whole.steps.size()}) {
          make();
          DeviceRecord device;
          device.fails_at = at;
          device.fails_until = at + length;
          device.error = error;
          messages_of([&] { work(device); });
          std::size_t synced = 0;
          for (const DeviceStep& step : device.steps)
            if (step.kind == DeviceStep::synced) synced = step.at;
          // A sync that was said to have failed may have come to the device after all.
          std::size_t seen = held(OpenMode::read);
          ASSERT_GE(seen, synced) << at << ' ' << error << ' ' << length << ' ' << pages;
          ASSERT_LE(seen, kSyncs);
          ASSERT_EQ(held(OpenMode::write), seen);
          ASSERT_FALSE(HasFailure()) << at;
          if (error == ENOSPC && length == 1 && whole.steps[at].kind == DeviceStep::write) {
            ASSERT_GE(synced + 2, kSyncs) << "syncs succeed again";
          }
        }
      }
    }
  }
}

TEST_F(PowerLossTest, ASmallSyncWaitsOnce) {
  make_stores(1, 1000);
  DeviceRecord device;
  ShardedHash hash(world_.objects, OpenMode::write);
  open(hash);
  change(hash, 1);
  hash.sync();
  open(hash);
  g_device = &device;
  for (std::size_t number : {2, 3, 4, 5}) {
    change(hash, number);
    hash.sync();
    // The first one also makes the log's name last.
    EXPECT_EQ(device.count(DeviceStep::flush), number - 1);
    EXPECT_EQ(device.count(DeviceStep::flush_folder), 1u);
  }
}

}  // namespace
}  // namespace torvane
