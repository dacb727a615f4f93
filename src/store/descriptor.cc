#include "store/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace torvane {

Descriptor::~Descriptor() {
  if (fd_ >= 0) ::close(fd_);
}

std::size_t Descriptor::read_at(std::uint64_t offset, char* bytes, std::size_t n) const {
  std::size_t got = 0;
  while (got < n) {
    ssize_t count = ::pread(fd_, bytes + got, n - got, static_cast<off_t>(offset + got));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    got += static_cast<std::size_t>(count);
  }
  return got;
}

bool Descriptor::write_at(std::uint64_t offset, const char* bytes, std::size_t n) const {
  std::size_t put = 0;
  while (put < n) {
    ssize_t count = ::pwrite(fd_, bytes + put, n - put, static_cast<off_t>(offset + put));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    put += static_cast<std::size_t>(count);
  }
  return true;
}

bool Descriptor::write_row_at(std::uint64_t offset, const iovec* pieces, std::size_t count,
                              std::size_t n) const {
  ssize_t put = ::pwritev(fd_, pieces, static_cast<int>(count), static_cast<off_t>(offset));
  if (put == static_cast<ssize_t>(n)) return true;
  // Interrupted, or cut short: piece by piece from the start.
  for (; count > 0; --count, ++pieces) {
    if (!write_at(offset, static_cast<const char*>(pieces->iov_base), pieces->iov_len))
      return false;
    offset += pieces->iov_len;
  }
  return true;
}

namespace {

bool until_done(int (*flush)(int), int fd) {
  int result;
  do result = flush(fd);
  while (result != 0 && errno == EINTR);
  return result == 0;
}

}  // namespace

bool Descriptor::flush_to_device() const {
  return until_done(::fsync, fd_);
}

bool Descriptor::flush_data_to_device() const {
  return until_done(::fdatasync, fd_);
}

bool flush_folder_of(const std::string& path) {
  std::size_t slash = path.rfind('/');
  std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  Descriptor fd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Some file systems keep their names safe themselves and refuse.
  return fd && (fd.flush_to_device() || errno == EINVAL);
}

}  // namespace torvane
