// A file descriptor that closes itself, and whole reads and writes at a place.
#pragma once

#include <sys/uio.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace torvane {

class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~Descriptor();

  int get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }
  /// Up to `n` bytes; how many there were before the end or an error.
  std::size_t read_at(std::uint64_t offset, char* bytes, std::size_t n) const;
  /// False on an error, which `errno` tells.
  bool write_at(std::uint64_t offset, const char* bytes, std::size_t n) const;
  /// Writes `count` pieces, `n` bytes in all, one after the other.
  bool write_row_at(std::uint64_t offset, const iovec* pieces, std::size_t count,
                    std::size_t n) const;
  /// All that was written, and the file's length.
  bool flush_to_device() const;
  /// The same without what only tells of the file.
  bool flush_data_to_device() const;

 private:
  int fd_;
};

/// Makes what names the folder of `path` holds permanent.
bool flush_folder_of(const std::string& path);

}  // namespace torvane
