#include "store/page_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "support/messages.h"

namespace torvane {

namespace {

// How many pages go to the file in one write.
constexpr std::size_t kRun = 64;

/// A file beyond the size that the user is allowed ends a write, not the process.
void survive_size_limit() {
  struct sigaction action;
  if (::sigaction(SIGXFSZ, nullptr, &action) == 0 && action.sa_handler == SIG_DFL)
    std::signal(SIGXFSZ, SIG_IGN);
}

/// The path under which everyone finds the same journal.
std::string canonical(const std::string& path) {
  std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
  return real ? real.get() : path;
}

}  // namespace

std::size_t PageFile::usual_cached_pages() {
  constexpr long kMost = (1L << 30) / kPageBytes;
  long quarter = ::sysconf(_SC_PHYS_PAGES) / 4 * (::sysconf(_SC_PAGESIZE) / 1024) /
                 static_cast<long>(kPageBytes / 1024);
  return static_cast<std::size_t>(std::clamp(quarter, 1024L, kMost));
}

std::unique_ptr<PageFile> PageFile::open(const std::string& path, bool writable,
                                         std::size_t cached_pages) {
  int flags = (writable ? O_RDWR | O_CREAT : O_RDONLY) | O_CLOEXEC | O_NONBLOCK;
  Descriptor fd(::open(path.c_str(), flags, 0666));
  struct stat status;
  if (!fd || ::fstat(fd.get(), &status) != 0 || !S_ISREG(status.st_mode)) return nullptr;
  if (writable && ::flock(fd.get(), LOCK_EX | LOCK_NB) != 0) return nullptr;
  if (writable) survive_size_limit();
  std::unique_ptr<PageFile> file(
      new PageFile(canonical(path), std::move(fd), status.st_mode, writable, cached_pages));
  return file->recover() ? std::move(file) : nullptr;
}

PageFile::PageFile(const std::string& path, Descriptor fd, unsigned mode, bool writable,
                   std::size_t cached_pages)
    : path_(path),
      fd_(std::move(fd)),
      writable_(writable),
      journal_(path, mode),
      most_frames_(std::max<std::size_t>(cached_pages, 8)) {}

PageFile::~PageFile() {
  OldPages old;
  if (journal_.in_force() && old.open(path_)) old.roll_back(fd_);
}

// Goes back to the last committed state: on disk, or for a reader in what it sees.
bool PageFile::recover() {
  struct stat status;
  if (::fstat(fd_.get(), &status) != 0) return false;
  auto size = static_cast<std::uint64_t>(status.st_size);
  auto old = std::make_unique<OldPages>();
  // A file never becomes shorter before it is put back: the journal of a longer one is another's.
  bool found = old->open(path_) && old->length() <= size;
  if (old->hidden()) return false;
  if (found) size = old->length();
  if (found && writable_ && !old->roll_back(fd_)) return fail("restore");
  if (!found && writable_) old->drop();
  if (found && !writable_) old_pages_ = std::move(old);
  if (size > kMostBytes || !set_length(size)) return false;
  disk_length_ = committed_length_ = length_;
  return true;
}

bool PageFile::set_length(std::uint64_t length) {
  if (length > kMostBytes) return false;
  length_ = static_cast<std::uint32_t>(length);
  std::size_t count = (length + kPageBytes - 1) / kPageBytes;
  if (count > slots_.capacity()) slots_.reserve(std::max(count, slots_.capacity() * 3 / 2));
  slots_.resize(count);
  return true;
}

bool PageFile::fail(const char* what) {
  if (!failing_)
    messages() << "Can't " << what << ' ' << path_ << ": " << std::strerror(errno) << '\n';
  failing_ = true;
  return false;
}

std::size_t PageFile::page_size(std::uint32_t number) const {
  return std::min(kPageBytes, length_ - number * kPageBytes);
}

std::uint32_t PageFile::load(std::uint32_t number) {
  std::uint32_t frame = free_frame();
  if (!read_page(number, bytes_of(frame))) return kNone;  // the frame waits for another page
  frames_[frame].number = number;
  slots_[number] = 2 * (frame + 1) | kRecent;
  return frame;
}

bool PageFile::read_page(std::uint32_t number, char* bytes) {
  std::uint32_t start = number * kPageBytes;
  if (old_pages_ && old_pages_->holds(number))
    return old_pages_->read(number, bytes) || fail("read");
  std::size_t wanted = start < disk_length_ ? std::min(kPageBytes, disk_length_ - start) : 0;
  errno = 0;
  std::size_t got = fd_.read_at(start, bytes, wanted);
  std::memset(bytes + got, 0, kPageBytes - got);
  if (got == wanted) return true;
  if (errno == 0) errno = ENODATA;  // someone has cut the file
  return fail("read");
}

std::uint32_t PageFile::free_frame() {
  if (frames_.size() < most_frames_) return new_frame();
  make_room();
  // A page that was not used since the hand came by goes; one that was changed never does.
  for (std::size_t tries = 2 * frames_.size(); tries > 0; --tries) {
    hand_ = hand_ + 1 < frames_.size() ? hand_ + 1 : 0;
    Frame& frame = frames_[hand_];
    if (frame.changed) continue;
    if (frame.number != kNone) {
      std::uint32_t& slot = slots_[frame.number];
      if (slot & kRecent) {
        slot &= ~kRecent;
        continue;
      }
      slot = 0;
      frame.number = kNone;
    }
    return static_cast<std::uint32_t>(hand_);
  }
  return new_frame();
}

std::uint32_t PageFile::new_frame() {
  if (frames_.size() == chunks_.size() * kChunkFrames) {
    constexpr std::size_t kBytes = std::size_t{kChunkFrames} * kPageBytes;
    auto* chunk = static_cast<char*>(std::aligned_alloc(kBytes, kBytes));
    if (!chunk) std::abort();
    // Records lie all over a large store: with large pages the machine finds its way to them.
    if (!chunks_.empty()) ::madvise(chunk, kBytes, MADV_HUGEPAGE);
    chunks_.emplace_back(chunk);
  }
  frames_.emplace_back();
  return static_cast<std::uint32_t>(frames_.size() - 1);
}

// Changed pages are written before they take up so much that the others have no room.
void PageFile::make_room() {
  if (changed_.size() >= most_frames_ / 2 && !failing_) write_back();
}

const char* PageFile::view(std::uint32_t pos, std::size_t& n) {
  n = 0;
  if (pos >= length_) return nullptr;
  std::uint32_t number = pos / kPageBytes;
  std::uint32_t frame = frame_of(number);
  if (frame == kNone) return nullptr;
  n = page_size(number) - pos % kPageBytes;
  return bytes_of(frame) + pos % kPageBytes;
}

bool PageFile::read(std::uint32_t pos, char* bytes, std::size_t n) {
  while (n > 0) {
    std::size_t there;
    const char* found = view(pos, there);
    if (!found) return false;
    there = std::min(there, n);
    std::memcpy(bytes, found, there);
    bytes += there;
    pos += static_cast<std::uint32_t>(there);
    n -= there;
  }
  return true;
}

char* PageFile::page_to_change(std::uint32_t number) {
  std::uint32_t frame = frame_of(number);
  if (frame == kNone) return nullptr;
  if (!frames_[frame].changed) {
    frames_[frame].changed = true;
    changed_.push_back(number);
  }
  return bytes_of(frame);
}

bool PageFile::write(std::uint32_t pos, const char* bytes, std::size_t n) {
  if (!writable_ || n > kMostBytes - std::min(pos, kMostBytes)) return false;
  if (pos + n > length_ && !set_length(pos + n)) return false;
  while (n > 0) {
    char* found = page_to_change(pos / kPageBytes);
    if (!found) return false;
    std::size_t part = std::min<std::size_t>(n, kPageBytes - pos % kPageBytes);
    std::memcpy(found + pos % kPageBytes, bytes, part);
    bytes += part;
    pos += static_cast<std::uint32_t>(part);
    n -= part;
  }
  return true;
}

bool PageFile::clear(std::uint32_t pos, std::uint32_t n) {
  if (!writable_ || n > kMostBytes - std::min(pos, kMostBytes)) return false;
  std::uint32_t end = pos + n;
  // Beyond the end there is nothing but zeros anyway.
  std::uint32_t old_end = std::min(end, length_);
  while (pos < old_end) {
    char* found = page_to_change(pos / kPageBytes);
    if (!found) return false;
    std::uint32_t part = std::min(old_end - pos, kPageBytes - pos % kPageBytes);
    std::memset(found + pos % kPageBytes, 0, part);
    pos += part;
  }
  return end <= length_ || set_length(end);
}

bool PageFile::protect(const std::vector<std::uint32_t>& numbers) {
  if (!journal_.in_force() && !journal_.start(committed_length_)) return false;
  protected_.resize((committed_length_ + kPageBytes - 1) / kPageBytes);
  char image[kPageBytes];
  for (std::uint32_t number : numbers) {
    if (number >= protected_.size()) break;
    if (protected_[number]) continue;
    std::uint32_t start = number * kPageBytes;
    std::size_t wanted = std::min(kPageBytes, committed_length_ - start);
    if (fd_.read_at(start, image, wanted) != wanted) return false;
    std::memset(image + wanted, 0, kPageBytes - wanted);
    if (!journal_.add(number, image)) return false;
  }
  if (!journal_.flush()) return false;
  for (std::uint32_t number : numbers)
    if (number < protected_.size()) protected_[number] = true;
  return true;
}

bool PageFile::write_pages(const std::vector<std::uint32_t>& numbers) {
  if (disk_length_ != length_) {
    if (::ftruncate(fd_.get(), static_cast<off_t>(length_)) != 0) return false;
    disk_length_ = length_;
  }
  std::array<iovec, kRun> run;
  for (std::size_t i = 0; i < numbers.size();) {
    std::uint32_t first = numbers[i];
    std::size_t count = 0, bytes = 0;
    do {
      run[count] = {bytes_of(frame_of(numbers[i])), page_size(numbers[i])};
      bytes += run[count++].iov_len;
      ++i;
    } while (count < kRun && i < numbers.size() && numbers[i] == numbers[i - 1] + 1);
    std::uint64_t start = std::uint64_t{first} * kPageBytes;
    if (!fd_.write_row_at(start, run.data(), count, bytes)) return false;
  }
#ifdef SYNC_FILE_RANGE_WRITE
  // The device may begin at once: what comes back to be flushed is waited for.
  ::sync_file_range(fd_.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
  return true;
}

bool PageFile::write_back() {
  std::sort(changed_.begin(), changed_.end());
  if (!protect(changed_)) {
    fail("write");
    journal_.drop_unflushed();
    return false;
  }
  if (!write_pages(changed_)) return fail("write");
  for (std::uint32_t number : changed_) frames_[frame_of(number)].changed = false;
  changed_.clear();
  return true;
}

bool PageFile::commit() {
  if (!writable_) return false;
  if (changed_.empty() && length_ == committed_length_ && !journal_.in_force()) return true;
  if (lost_) {
    errno = EIO;
    return fail("write");
  }
  if (!write_back()) return false;
  if (!fd_.flush_to_device()) {
    lost_ = true;
    return fail("write");
  }
  if (!journal_.remove()) return fail("write");
  protected_.clear();
  committed_length_ = length_;
  return true;
}

}  // namespace torvane
