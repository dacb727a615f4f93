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
// A log of more pages is written back, and a commit of more new ones writes them to the file.
constexpr std::size_t kMostLogged = 4096;

/// A file beyond the size that the user is allowed ends a write, not the process.
void survive_size_limit() {
  struct sigaction action;
  if (::sigaction(SIGXFSZ, nullptr, &action) == 0 && action.sa_handler == SIG_DFL)
    std::signal(SIGXFSZ, SIG_IGN);
}

/// The files that this process writes.
struct OpenWriters {
  std::mutex lock;
  std::vector<PageFile*> files;
};

/// Never destroyed, since the end of the process asks for it.
OpenWriters& open_writers() {
  static OpenWriters& writers = *[] {
    std::atexit(PageFile::settle_all);
    return new OpenWriters;
  }();
  return writers;
}

/// The path under which everyone finds the same log.
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
                                         std::size_t cached_pages, std::uint32_t last_commit) {
  int flags = (writable ? O_RDWR | O_CREAT : O_RDONLY) | O_CLOEXEC | O_NONBLOCK;
  Descriptor fd(::open(path.c_str(), flags, 0666));
  struct stat status;
  if (!fd || ::fstat(fd.get(), &status) != 0 || !S_ISREG(status.st_mode)) return nullptr;
  if (writable && ::flock(fd.get(), LOCK_EX | LOCK_NB) != 0) return nullptr;
  if (writable) survive_size_limit();
  std::unique_ptr<PageFile> file(
      new PageFile(canonical(path), std::move(fd), status.st_mode, writable, cached_pages));
  return file->recover(last_commit) ? std::move(file) : nullptr;
}

PageFile::PageFile(const std::string& path, Descriptor fd, unsigned mode, bool writable,
                   std::size_t cached_pages)
    : path_(path),
      fd_(std::move(fd)),
      writable_(writable),
      owner_(::getpid()),
      journal_(path, mode),
      most_frames_(std::max<std::size_t>(cached_pages, 8)),
      most_logged_(std::min(most_frames_, kMostLogged)) {}

PageFile::~PageFile() {
  if (!writable_) return;
  OpenWriters& writers = open_writers();
  {
    std::lock_guard guard(writers.lock);
    std::erase(writers.files, this);
  }
  if (settle() && journal_.started()) journal_.end();
}

void PageFile::settle_all() {
  OpenWriters& writers = open_writers();
  std::lock_guard guard(writers.lock);
  for (PageFile* file : writers.files) {
    // What another thread is writing stays in its log, and what a parent process writes is its own.
    std::unique_lock settling(file->settling_, std::try_to_lock);
    if (!settling || file->owner_ != ::getpid()) continue;
    if (file->settle() && file->journal_.started()) file->journal_.end();
    file->lost_ = true;  // nothing may come after that
  }
}

// Goes to the last committed state: on disk, or for a reader in what it sees.
bool PageFile::recover(std::uint32_t last_commit) {
  auto left = std::make_unique<LeftLog>();
  bool found = left->open(path_, last_commit);
  struct stat status;
  if (left->hidden() || ::fstat(fd_.get(), &status) != 0) return false;
  auto size = static_cast<std::uint64_t>(status.st_size);
  // A file never becomes shorter, and gets its first bytes before they are committed: the log of a
  // longer one, or beside an empty one, is another's.
  found = found && size > 0 && left->first_length() <= size;
  if (found && writable_ && !(left->write_to(fd_) && left->remove())) return fail("restore");
  if (!found && writable_) left->drop();
  disk_length_ = static_cast<std::uint32_t>(std::min<std::uint64_t>(size, kMostBytes));
  if (found) {
    size = left->length();
    disk_length_ = writable_ ? left->length() : std::min(disk_length_, left->length());
    if (!writable_) left_log_ = std::move(left);
  }
  if (size > kMostBytes || !set_length(size)) return false;
  committed_length_ = length_;
  if (!writable_) return true;
  OpenWriters& writers = open_writers();
  std::lock_guard guard(writers.lock);
  writers.files.push_back(this);
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
  // What is not in the log of a reader any more stands in the file.
  if (left_log_ && left_log_->read(number, bytes)) return true;
  if (journal_.adds(number)) return journal_.read_added(number, bytes) || fail("read");
  if (journal_.holds(number)) return journal_.read(number, bytes) || fail("read");
  // The log that a reader saw may stand in the file by now, which is longer then.
  std::size_t certain = start < disk_length_ ? std::min(kPageBytes, disk_length_ - start) : 0;
  std::size_t wanted = left_log_ ? page_size(number) : certain;
  errno = 0;
  std::size_t got = fd_.read_at(start, bytes, wanted);
  std::memset(bytes + got, 0, kPageBytes - got);
  if (got >= certain) return true;
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
  if (changed_.size() < most_frames_ / 2 || failing_) return;
  std::lock_guard settling(settling_);
  spill();
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

bool PageFile::write_pages(std::span<const std::uint32_t> numbers) {
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

bool PageFile::add_to_log(std::span<const std::uint32_t> numbers) {
  std::vector<Journal::Page> pages;
  for (std::uint32_t number : numbers) pages.push_back({number, bytes_of(frame_of(number))});
  return journal_.add(pages);
}

// What is committed, or stands in the log already, goes there; the rest to its place.
bool PageFile::spill() {
  if (!journal_.started() && !journal_.start(committed_length_)) return fail("write");
  std::sort(changed_.begin(), changed_.end());
  auto beyond = std::stable_partition(changed_.begin(), changed_.end(), [&](std::uint32_t number) {
    return number * std::uint64_t{kPageBytes} < committed_length_ || journal_.adds(number);
  });
  std::span<const std::uint32_t> all = changed_;
  auto logged = static_cast<std::size_t>(beyond - changed_.begin());
  if (!add_to_log(all.first(logged))) return fail("write");
  if (logged < all.size()) {
    if (!journal_.ensure_start() || !write_pages(all.subspan(logged))) return fail("write");
    unflushed_ = true;
  }
  for (std::uint32_t number : changed_) frames_[frame_of(number)].changed = false;
  changed_.clear();
  return true;
}

bool PageFile::commit_to_log(std::uint32_t number) {
  if (lost_ || journal_.lost()) {
    errno = EIO;
    return false;
  }
  struct stat status;
  if (::fstat(fd_.get(), &status) != 0) return false;
  if (status.st_size < static_cast<off_t>(disk_length_)) {
    errno = ENODATA;  // someone has cut the file
    return false;
  }
  if (!journal_.started() && !journal_.start(committed_length_)) return false;
  // A new file gets its first pages at once, so that a log beside an empty one is never its own.
  bool large = committed_length_ == 0 || changed_.size() > most_logged_;
  if (!(large || unflushed_ ? spill() : add_to_log(changed_))) return false;
  if (unflushed_ && !fd_.flush_to_device()) {
    lost_ = true;
    return false;
  }
  unflushed_ = false;
  return journal_.commit(length_, number);
}

bool PageFile::commit(std::uint32_t number) {
  if (!writable_) return false;
  if (changed_.empty() && length_ == committed_length_ && !spilled()) return true;
  std::lock_guard settling(settling_);
  std::sort(changed_.begin(), changed_.end());
  if (!commit_to_log(number)) return fail("write");
  for (std::uint32_t page : changed_) frames_[frame_of(page)].changed = false;
  changed_.clear();
  committed_length_ = length_;
  unconfirmed_ = number != 0;
  settle_if_large();
  return true;
}

void PageFile::confirm() {
  std::lock_guard settling(settling_);
  unconfirmed_ = false;
  settle_if_large();
}

// Where that fails the log still holds what is committed.
void PageFile::settle_if_large() {
  if (journal_.size() > most_logged_ * std::uint64_t{kPageBytes} && !spilled() && settle())
    journal_.start(committed_length_);
}

bool PageFile::settle() {
  if (lost_ || journal_.lost() || unconfirmed_) return false;
  if (!journal_.started()) return true;
  if (!journal_.write_to(fd_)) {
    // Where the device has dropped writes, who opens the file next writes all of them again.
    lost_ = errno != ENOSPC && errno != EFBIG && errno != EDQUOT;
    return false;
  }
  disk_length_ = committed_length_;
  return true;
}

}  // namespace torvane
