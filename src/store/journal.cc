#include "store/journal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <memory>

#include "support/big_endian.h"

namespace torvane {

namespace {

constexpr char kMagic[] = "TVJRNL01";
constexpr std::size_t kMagicBytes = 8;
constexpr std::size_t kHeaderBytes = 24;
constexpr std::size_t kImageHeaderBytes = 8;
constexpr std::size_t kImageBytes = kImageHeaderBytes + kPageBytes;

/// Of whole 32-bit words.
std::uint32_t check_sum(std::uint32_t sum, const char* bytes, std::size_t n) {
  for (std::size_t i = 0; i < n; i += 4)
    sum = (std::rotl(sum, 5) ^ load_be32(bytes + i)) * 0x9E3779B1u;
  return sum;
}

std::uint32_t image_sum(std::uint32_t salt, const char* image) {
  std::uint32_t sum = check_sum(salt, image, 4);
  return check_sum(sum, image + kImageHeaderBytes, kPageBytes);
}

std::uint32_t fresh_salt() {
  auto now = std::chrono::system_clock::now().time_since_epoch().count();
  return static_cast<std::uint32_t>(now) * 0x9E3779B1u ^ static_cast<std::uint32_t>(getpid());
}

}  // namespace

bool Journal::start(std::uint32_t length) {
  constexpr int kFlags = O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW;
  fd_ = Descriptor(::open(path_.c_str(), kFlags, 0600));
  if (!fd_ || ::fchmod(fd_.get(), mode_ & 0777) != 0) return false;
  salt_ = fresh_salt();
  char header[kHeaderBytes];
  std::memcpy(header, kMagic, kMagicBytes);
  store_be32(header + 8, kPageBytes);
  store_be32(header + 12, length);
  store_be32(header + 16, salt_);
  store_be32(header + 20, check_sum(0, header, 20));
  end_ = kHeaderBytes;
  flushed_end_ = 0;
  return fd_.write_at(0, header, kHeaderBytes);
}

bool Journal::add(std::uint32_t page, const char* image) {
  char entry[kImageBytes];
  store_be32(entry, page);
  std::memcpy(entry + kImageHeaderBytes, image, kPageBytes);
  store_be32(entry + 4, image_sum(salt_, entry));
  if (!fd_.write_at(end_, entry, kImageBytes)) return false;
  end_ += kImageBytes;
  return true;
}

bool Journal::flush() {
  if (end_ == flushed_end_) return true;
  if (!fd_.flush_to_device()) return false;
  if (!in_force() && !flush_folder_of(path_)) return false;
  flushed_end_ = end_;
  return true;
}

void Journal::drop_unflushed() {
  end_ = flushed_end_;
  if (in_force()) return;
  ::unlink(path_.c_str());
  fd_ = Descriptor();
}

bool Journal::remove() {
  if (::unlink(path_.c_str()) != 0) return false;
  fd_ = Descriptor();
  end_ = flushed_end_ = 0;
  return flush_folder_of(path_);
}

bool OldPages::open(const std::string& written_file) {
  path_ = Journal::journal_path(written_file);
  fd_ = Descriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  hidden_ = !fd_ && errno != ENOENT;
  char header[kHeaderBytes];
  if (!fd_ || fd_.read_at(0, header, kHeaderBytes) != kHeaderBytes ||
      std::memcmp(header, kMagic, kMagicBytes) != 0 || load_be32(header + 8) != kPageBytes ||
      load_be32(header + 20) != check_sum(0, header, 20))
    return false;
  length_ = load_be32(header + 12);
  std::uint32_t salt = load_be32(header + 16);
  auto entry = std::make_unique<char[]>(kImageBytes);
  for (std::uint64_t at = kHeaderBytes; fd_.read_at(at, entry.get(), kImageBytes) == kImageBytes &&
                                        load_be32(entry.get() + 4) == image_sum(salt, entry.get());
       at += kImageBytes)
    offsets_.emplace(load_be32(entry.get()), at + kImageHeaderBytes);
  return true;
}

bool OldPages::read(std::uint32_t page, char* image) const {
  auto found = offsets_.find(page);
  return found != offsets_.end() && fd_.read_at(found->second, image, kPageBytes) == kPageBytes;
}

bool OldPages::roll_back(const Descriptor& file) const {
  char image[kPageBytes];
  for (auto [page, offset] : offsets_) {
    std::uint64_t pos = std::uint64_t{page} * kPageBytes;
    if (pos >= length_) continue;
    std::size_t n = std::min<std::uint64_t>(kPageBytes, length_ - pos);
    if (!read(page, image) || !file.write_at(pos, image, n)) return false;
  }
  return ::ftruncate(file.get(), static_cast<off_t>(length_)) == 0 && file.flush_to_device() &&
         ::unlink(path_.c_str()) == 0 && flush_folder_of(path_);
}

void OldPages::drop() const {
  if (fd_) ::unlink(path_.c_str());
}

}  // namespace torvane
