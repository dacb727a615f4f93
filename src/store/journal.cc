#include "store/journal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <memory>

#include "support/big_endian.h"

namespace torvane {

namespace {

constexpr char kMagic[] = "TVJRNL02";
// A log without commits, whose images are the pages as they were before: all of them count.
constexpr char kUndoMagic[] = "TVJRNL01";
constexpr std::size_t kMagicBytes = 8;
constexpr std::size_t kHeaderBytes = 24;
constexpr std::size_t kImageHeaderBytes = 8;  // of an entry: the number of the page, the sum
constexpr std::size_t kImageBytes = kImageHeaderBytes + kPageBytes;
constexpr std::size_t kCommitBytes = 16;
constexpr std::uint32_t kCommit = UINT32_MAX;  // in place of a page's number
constexpr std::size_t kLogRun = 64;            // images that are written at once

/// Of whole 32-bit words.
std::uint32_t check_sum(std::uint32_t sum, const char* bytes, std::size_t n) {
  for (std::size_t i = 0; i < n; i += 4)
    sum = (std::rotl(sum, 5) ^ load_be32(bytes + i)) * 0x9E3779B1u;
  return sum;
}

std::uint32_t check_sum(std::uint32_t sum, std::uint32_t word) {
  return (std::rotl(sum, 5) ^ word) * 0x9E3779B1u;
}

std::uint32_t image_sum(std::uint32_t salt, std::uint32_t page, const char* image) {
  return check_sum(check_sum(salt, page), image, kPageBytes);
}

/// Of the record of a commit; `images` is the sum over those of its images.
std::uint32_t commit_sum(std::uint32_t images, const char* record) {
  return check_sum(check_sum(images, record, 4), record + kImageHeaderBytes,
                   kCommitBytes - kImageHeaderBytes);
}

std::uint32_t fresh_salt() {
  auto now = std::chrono::system_clock::now().time_since_epoch().count();
  return static_cast<std::uint32_t>(now) * 0x9E3779B1u ^ static_cast<std::uint32_t>(getpid());
}

std::string header_of(std::uint32_t length, std::uint32_t salt) {
  std::string header(kHeaderBytes, '\0');
  header.replace(0, kMagicBytes, kMagic);
  store_be32(header.data() + 8, kPageBytes);
  store_be32(header.data() + 12, length);
  store_be32(header.data() + 16, salt);
  store_be32(header.data() + 20, check_sum(0, header.data(), 20));
  return header;
}

}  // namespace

bool LoggedPages::read(std::uint32_t page, char* image) const {
  auto found = offsets_.find(page);
  return found != offsets_.end() && read_image(found->second, page, image);
}

// A log that another process writes may have begun anew: then it has another image there.
bool LoggedPages::read_image(std::uint64_t offset, std::uint32_t page, char* image) const {
  char head[kImageHeaderBytes];
  return fd_.read_at(offset, head, sizeof head) == sizeof head &&
         fd_.read_at(offset + sizeof head, image, kPageBytes) == kPageBytes &&
         load_be32(head + 4) == image_sum(salt_, page, image);
}

bool LoggedPages::write_to(const Descriptor& file) const {
  std::vector<std::uint32_t> pages;
  for (auto [page, offset] : offsets_)
    if (std::uint64_t{page} * kPageBytes < length_) pages.push_back(page);
  struct stat status;
  if (::fstat(file.get(), &status) != 0) return false;
  if (pages.empty() && status.st_size == static_cast<off_t>(length_)) return true;
  std::sort(pages.begin(), pages.end());
  std::vector<char> run;
  for (std::size_t i = 0; i < pages.size();) {
    std::uint64_t start = std::uint64_t{pages[i]} * kPageBytes;
    std::size_t count = 0;
    run.resize(kLogRun * kPageBytes);
    do
      if (!read(pages[i], run.data() + count++ * kPageBytes)) return false;
    while (++i < pages.size() && count < kLogRun && pages[i] == pages[i - 1] + 1);
    std::size_t bytes = std::min<std::uint64_t>(count * kPageBytes, length_ - start);
    if (!file.write_at(start, run.data(), bytes)) return false;
  }
  return ::ftruncate(file.get(), static_cast<off_t>(length_)) == 0 && file.flush_to_device();
}

bool LoggedPages::remove() const {
  return ::unlink(path_.c_str()) == 0 && flush_folder_of(path_);
}

bool LeftLog::open(const std::string& file, std::uint32_t last_commit) {
  path_ = log_path(file);
  fd_ = Descriptor(::open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  hidden_ = !fd_ && errno != ENOENT;
  std::array<char, kHeaderBytes> header{}, now{};
  if (!fd_ || fd_.read_at(0, now.data(), kHeaderBytes) != kHeaderBytes) return false;
  do {
    header = now;
    bool undo = std::memcmp(header.data(), kUndoMagic, kMagicBytes) == 0;
    if ((!undo && std::memcmp(header.data(), kMagic, kMagicBytes) != 0) ||
        load_be32(header.data() + 8) != kPageBytes ||
        load_be32(header.data() + 20) != check_sum(0, header.data(), 20))
      return false;
    length_ = first_length_ = load_be32(header.data() + 12);
    salt_ = load_be32(header.data() + 16);
    scan(!undo, last_commit);
    // Its writer may have begun it anew meanwhile.
  } while (fd_.read_at(0, now.data(), kHeaderBytes) == kHeaderBytes && now != header);
  return true;
}

// Up to the first entry that is not whole; what no commit takes in does not count.
void LeftLog::scan(bool commits, std::uint32_t last_commit) {
  offsets_.clear();
  std::unordered_map<std::uint32_t, std::uint64_t> added;
  std::uint32_t sums = salt_;
  auto image = std::make_unique<char[]>(kPageBytes);
  char head[kImageHeaderBytes];
  for (std::uint64_t at = kHeaderBytes; fd_.read_at(at, head, sizeof head) == sizeof head;) {
    std::uint32_t page = load_be32(head);
    if (commits && page == kCommit) {
      if (!take_commit(at, sums, last_commit)) break;
      for (auto [number, offset] : added) offsets_[number] = offset;
      added.clear();
      sums = salt_;
      at += kCommitBytes;
      continue;
    }
    if (!read_image(at, page, image.get())) break;
    sums = check_sum(sums, load_be32(head + 4));
    if (commits)
      added[page] = at;
    else
      offsets_.emplace(page, at);
    at += kImageBytes;
  }
}

bool LeftLog::take_commit(std::uint64_t offset, std::uint32_t sums, std::uint32_t last_commit) {
  char record[kCommitBytes];
  if (fd_.read_at(offset, record, sizeof record) != sizeof record ||
      load_be32(record + 4) != commit_sum(sums, record) || load_be32(record + 12) > last_commit)
    return false;
  length_ = load_be32(record + 8);
  return true;
}

bool Journal::start(std::uint32_t length) {
  const bool anew = started();
  if (!anew) {
    constexpr int kFlags = O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW;
    Descriptor fd(::open(path_.c_str(), kFlags, 0600));
    if (!fd || ::fchmod(fd.get(), mode_ & 0777) != 0) return false;
    fd_ = std::move(fd);
    file_end_ = 0;
  }
  const std::uint32_t salt = fresh_salt();
  salt_ = salt == salt_ ? salt + 1 : salt;
  length_ = length;
  offsets_.clear();
  added_.clear();
  sums_.clear();
  std::string header = header_of(length, salt_);
  commit_start_ = end_ = kHeaderBytes;
  file_end_ = std::max(file_end_, end_);
  if (fd_.write_at(0, header.data(), header.size()) && (!anew || flush())) return true;
  lost_ = !end();  // which of two logs stands there now is not known: none may
  return false;
}

bool Journal::flush() {
  if (!fd_.flush_data_to_device() || (!on_device_ && !flush_folder_of(path_))) {
    lost_ = true;
    return false;
  }
  return on_device_ = true;
}

std::uint64_t Journal::offset_of_added(std::size_t index) const {
  return commit_start_ + index * kImageBytes;
}

bool Journal::add(std::span<const Page> pages) {
  while (!pages.empty()) {
    // Known pages go to their places one by one, others behind the last in a row.
    auto known = added_.find(pages.front().number);
    if (known != added_.end()) {
      if (!write_entries(pages.first(1), offset_of_added(known->second), &sums_[known->second]))
        return false;
      pages = pages.subspan(1);
      continue;
    }
    std::size_t count = 1;
    while (count < std::min(pages.size(), kLogRun) && !adds(pages[count].number)) ++count;
    std::array<std::uint32_t, kLogRun> sums;
    if (!write_entries(pages.first(count), end_, sums.data())) return false;
    for (std::size_t i = 0; i < count; ++i) {
      added_.emplace(pages[i].number, sums_.size());
      sums_.push_back(sums[i]);
    }
    end_ += count * kImageBytes;
    file_end_ = std::max(file_end_, end_);
    pages = pages.subspan(count);
  }
  return true;
}

bool Journal::write_entries(std::span<const Page> pages, std::uint64_t offset,
                            std::uint32_t* sums) {
  std::array<std::array<char, kImageHeaderBytes>, kLogRun> heads;
  std::array<iovec, 2 * kLogRun> pieces;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    sums[i] = image_sum(salt_, pages[i].number, pages[i].bytes);
    store_be32(heads[i].data(), pages[i].number);
    store_be32(heads[i].data() + 4, sums[i]);
    pieces[2 * i] = {heads[i].data(), kImageHeaderBytes};
    pieces[2 * i + 1] = {const_cast<char*>(pages[i].bytes), kPageBytes};
  }
  return fd_.write_row_at(offset, pieces.data(), 2 * pages.size(), pages.size() * kImageBytes);
}

bool Journal::read_added(std::uint32_t page, char* image) const {
  return read_image(offset_of_added(added_.at(page)), page, image);
}

bool Journal::commit(std::uint32_t length, std::uint32_t number) {
  char record[kCommitBytes] = {};
  store_be32(record, kCommit);
  store_be32(record + 8, length);
  store_be32(record + 12, number);
  std::uint32_t sums = salt_;
  for (std::uint32_t sum : sums_) sums = check_sum(sums, sum);
  store_be32(record + 4, commit_sum(sums, record));
  if (!fd_.write_at(end_, record, sizeof record)) return false;
  grow_ahead();
  if (!flush()) return false;
  for (auto [page, index] : added_) offsets_[page] = offset_of_added(index);
  added_.clear();
  sums_.clear();
  end_ += kCommitBytes;
  commit_start_ = end_;
  length_ = length;
  return true;
}

// Where a file is overwritten the device is waited for once; where it grows, once more for its new
// length. So a log that has begun to grow gets as much again, up to a megabyte.
void Journal::grow_ahead() {
  std::uint64_t end = end_ + kCommitBytes;
  if (end <= file_end_) return;
  constexpr std::uint64_t kMostAhead = 1 << 20;
  std::vector<char> zeros(std::min(end - kHeaderBytes, kMostAhead));
  file_end_ = fd_.write_at(end, zeros.data(), zeros.size()) ? end + zeros.size() : end;
}

bool Journal::end() {
  offsets_.clear();
  fd_ = Descriptor();
  on_device_ = false;
  return remove();
}

}  // namespace torvane
