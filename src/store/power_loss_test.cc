// What a store is worth when the power fails, or a write: all that it gives to the device goes
// through the functions below, which note it, and may refuse it.
#include <sys/syscall.h>
#include <sys/uio.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <random>
#include <vector>

#include "store/journal.h"
#include "store/page_file.h"
#include "store/qhash.h"
#include "store/store_test.h"

namespace torvane {
namespace {

struct DeviceStep {
  enum Kind { write, cut, flush, remove, flush_folder, synced };
  Kind kind;
  bool to_log;
  std::uint64_t at;  // where it is written, the length to which is cut, or the number of a sync
  std::string bytes;
};

/// Where the steps are noted.
struct DeviceRecord {
  std::vector<DeviceStep> steps;
  std::size_t fails_at = SIZE_MAX;  // the step from which on all fail
  std::size_t fails_until = SIZE_MAX;
  int error = EIO;

  bool take(DeviceStep::Kind kind, bool to_log, std::uint64_t at = 0, std::string bytes = "") {
    steps.push_back({kind, to_log, at, std::move(bytes)});
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

bool is_log(int fd) {
  std::string path = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(fd)).string();
  return path.find("-journal") != std::string::npos;
}

bool note_flush(int fd) {
  struct stat status;
  if (!g_device) return true;
  if (fstat(fd, &status) == 0 && S_ISDIR(status.st_mode))
    return g_device->take(DeviceStep::flush_folder, false);
  return g_device->take(DeviceStep::flush, is_log(fd));
}

}  // namespace
}  // namespace torvane

extern "C" {

ssize_t pwrite(int fd, const void* bytes, size_t n, off_t at) {
  using namespace torvane;
  std::string copy(static_cast<const char*>(bytes), n);
  if (g_device && !g_device->take(DeviceStep::write, is_log(fd), static_cast<std::uint64_t>(at),
                                  std::move(copy)))
    return -1;
  return syscall(SYS_pwrite64, fd, bytes, n, at);
}

ssize_t pwritev(int fd, const iovec* pieces, int count, off_t at) {
  using namespace torvane;
  std::string copy;
  for (int i = 0; i < count; ++i)
    copy.append(static_cast<const char*>(pieces[i].iov_base), pieces[i].iov_len);
  if (g_device && !g_device->take(DeviceStep::write, is_log(fd), static_cast<std::uint64_t>(at),
                                  std::move(copy)))
    return -1;
  return syscall(SYS_pwritev, fd, pieces, count, at, 0);
}

int ftruncate(int fd, off_t length) noexcept {
  using namespace torvane;
  if (g_device && !g_device->take(DeviceStep::cut, is_log(fd), static_cast<std::uint64_t>(length)))
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
  if (g_device && !g_device->take(DeviceStep::remove, true)) return -1;
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
          apply({DeviceStep::write, false, step.at + at, step.bytes.substr(at, n)}, bytes);
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

/// The store, its log, and the log's name, which may be lost or come back as long as the folder is
/// not flushed.
class FragileDisk {
 public:
  std::size_t synced = 0;

  void take(const DeviceStep& step) {
    if (step.kind == DeviceStep::synced) {
      synced = step.at;
    } else if (step.kind == DeviceStep::flush_folder) {
      safe_log_ = log_;
    } else if (step.kind == DeviceStep::remove) {
      log_.reset();
    } else if (!step.to_log) {
      store_.take(step);
    } else {
      if (!log_) log_ = std::make_shared<FragileFile>();
      log_->take(step);
    }
  }
  void lose_power(const std::string& path, std::mt19937& random) const {
    write_bytes(path, store_.after_power_loss(random));
    std::filesystem::remove(LoggedPages::log_path(path));
    const auto& log = random() % 2 ? log_ : safe_log_;
    if (log) write_bytes(LoggedPages::log_path(path), log->after_power_loss(random));
  }

 private:
  FragileFile store_;
  std::shared_ptr<FragileFile> log_, safe_log_;
};

class PowerLossTest : public StoreTest {
 protected:
  static constexpr std::size_t kSyncs = 30;
  ~PowerLossTest() override { g_device = nullptr; }

  static std::string key(std::size_t i) { return "key" + std::to_string(i * 7919); }
  static std::size_t keys_at(std::size_t sync) { return 10 + sync * 3; }

  /// Changes the store as sync number `number` finds it: every value says by which.
  bool change(QHash& hash, std::size_t number) {
    StrBufs found;
    bool good = true;
    for (std::size_t i = 0; i < keys_at(number); ++i) {
      std::string value = std::to_string(number) + ' ' + std::string(number * 37 % 400, 'v');
      std::string data = packed(key(i), value);
      std::uint32_t pos = hash.find(key(i).c_str(), found);
      good = (pos ? hash.update(pos, data.data(), data.size(), 0, false)
                  : hash.insert(data.data(), data.size())) &&
             good;
    }
    return good;
  }
  void open(QHash& hash, std::size_t pages) const {
    hash.cached_pages = pages;
    hash.open_file(path().c_str(), 32, 11, "strcmp");
  }
  /// Many syncs, of which some write pages before, and the end of some writers.
  void work(DeviceRecord& device, std::size_t pages) {
    g_device = &device;
    QHash hash(world_.objects, OpenMode::write);
    open(hash, pages);
    for (std::size_t number = 1; number <= kSyncs; ++number) {
      if (number % 9 == 0) {
        change(hash, 2 * kSyncs);  // what is not synced goes with its writer
        open(hash, pages);
      }
      if (!hash.is_open() || !change(hash, number)) {
        open(hash, pages);  // the disk was full: back to what is synced
        continue;
      }
      hash.sync();
      if (!hash.is_changed()) device.take(DeviceStep::synced, false, number);
    }
    hash.close();
    g_device = nullptr;
  }
  /// By which sync the values are that the store holds, all of them; 0: there is no store yet.
  std::size_t held(OpenMode mode) const {
    QHash hash(world_.objects, mode);
    messages_of([&] { open(hash, 8); });
    EXPECT_TRUE(hash.is_open() || mode == OpenMode::read) << "no store, but room for one";
    StrBufs buf;
    if (!hash.is_open() || !hash.find(key(0).c_str(), buf)) return 0;
    auto number_in = [&](std::size_t i) {
      return hash.find(key(i).c_str(), buf) ? std::stoul(buf.object() + key(i).size() + 1) : 0;
    };
    std::size_t number = number_in(0);
    for (std::size_t i = 0; i < keys_at(number); ++i) EXPECT_EQ(number_in(i), number) << i;
    EXPECT_EQ(number_in(keys_at(number)), 0u);
    hash.check_all();
    return number;
  }
};

TEST_F(PowerLossTest, LeavesTheLastSyncOrTheOneUnderWay) {
  std::mt19937 random(static_cast<unsigned>(rounds(2, 1)));
  for (std::size_t pages : {8, 16, 1000}) {
    std::filesystem::remove(path());
    write_bytes(path(), "");
    DeviceRecord device;
    work(device, pages);
    ASSERT_EQ(device.count(DeviceStep::synced), kSyncs);
    FragileDisk disk;
    const auto stride = rounds(1, static_cast<int>(device.steps.size() / 100));
    for (std::size_t done = 0; done < device.steps.size(); ++done) {
      disk.take(device.steps[done]);
      if (random() % static_cast<unsigned>(stride) != 0) continue;
      for (int times = 0; times < 3; ++times) {
        disk.lose_power(path(), random);
        std::size_t seen = held(OpenMode::read);
        ASSERT_TRUE(seen == disk.synced || seen == disk.synced + 1)
            << seen << " after " << disk.synced << " at step " << done << " with " << pages;
        ASSERT_EQ(held(OpenMode::write), seen);
        ASSERT_FALSE(std::filesystem::exists(LoggedPages::log_path(path())));
        ASSERT_FALSE(HasFailure()) << done;
      }
    }
  }
}

TEST_F(PowerLossTest, AFailedWriteLosesNoSync) {
  for (std::size_t pages : {8, 1000}) {
    DeviceRecord whole;
    write_bytes(path(), "");
    work(whole, pages);
    const auto stride = static_cast<std::size_t>(rounds(2, 41));
    for (std::size_t at = 0; at < whole.steps.size(); at += stride) {
      for (int error : {EIO, ENOSPC}) {
        for (std::size_t length : {std::size_t{1}, whole.steps.size()}) {
          std::filesystem::remove(LoggedPages::log_path(path()));
          write_bytes(path(), "");
          DeviceRecord device;
          device.fails_at = at;
          device.fails_until = at + length;
          device.error = error;
          messages_of([&] { work(device, pages); });
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
  DeviceRecord device;
  QHash hash(world_.objects, OpenMode::write);
  open(hash, 1000);
  change(hash, 1);
  hash.sync();
  hash.close();
  open(hash, 1000);
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
