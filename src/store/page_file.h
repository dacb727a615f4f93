// A file in pages, held in memory within a bound, whose changes reach the disk all at once or not
// at all.
//
// Changes stay in memory until `commit`, or until the bound is reached. Before a page of the last
// committed state is overwritten on disk, its old image goes to a journal beside the file (NAME and
// "-journal"), which is flushed to the device first and removed when a commit is complete. Who
// opens the file for writing and finds a journal puts the old images back; who opens it for reading
// reads through the journal and writes nothing. The journal's format is in docs/formats.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "support/big_endian.h"

namespace torvane {

/// A descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(Descriptor&& other) noexcept;
  Descriptor(Descriptor&& other) noexcept;
  ~Descriptor();
  int get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }

 private:
  int fd_;
};

class PageFile {
 public:
  static constexpr std::uint32_t kPageBytes = 4096;
  static constexpr std::size_t kCachedPages = 32768;

  /// Null if the file cannot be opened so, is no regular file, or is written by another one. A file
  /// that is missing is made if `writable`. One writer at a time: a second one is refused.
  static std::unique_ptr<PageFile> open(const std::string& path, bool writable,
                                        std::size_t cached_pages = kCachedPages);
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;
  /// Drops what was not committed.
  ~PageFile();

  const std::string& path() const { return path_; }
  std::uint32_t length() const { return length_; }
  /// Bytes at `pos`; false if they are not all there.
  bool read(std::uint32_t pos, char* bytes, std::size_t n);
  /// The same without a copy if they lie in one page, else null. Valid until the next call.
  const char* view(std::uint32_t pos, std::size_t n);
  /// As many bytes as lie in one page from `pos` on; 0 beyond the end.
  std::size_t view_size(std::uint32_t pos) const;
  /// Overwrites and appends. False, after a message, if the file or memory cannot take it.
  bool write(std::uint32_t pos, const char* bytes, std::size_t n);
  /// Makes the bytes from `pos` to `pos + n` zero, beyond the end too.
  bool clear(std::uint32_t pos, std::size_t n);
  /// Makes all changes permanent. False, after a message, if that failed: the disk then still holds
  /// (or, through the journal, gives back) the state of the last commit, and the changes stay in
  /// memory for the next attempt.
  bool commit();

 private:
  PageFile() = default;

  std::string path_;
  std::uint32_t length_ = 0;
};

}  // namespace torvane
