// A file in pages, held in memory within a bound, whose changes reach the disk all at once or not
// at all.
//
// Changes stay in memory until `commit`, or until the bound is reached. Before a page of the last
// committed state is overwritten on disk, its old image goes to a journal beside the file (NAME and
// "-journal"), which is flushed to the device first and removed when a commit is complete. Who
// opens the file for writing and finds a journal puts the old images back; who opens it for reading
// reads through the journal and writes nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "store/descriptor.h"
#include "store/journal.h"

namespace torvane {

class PageFile {
 public:
  static constexpr std::size_t kCachedPages = 32768;
  static constexpr std::uint32_t kMostBytes = 0x7fffffff;

  /// Null if the file cannot be opened so, is no regular file or too large, or has a writer
  /// already. A missing file is made if `writable`. A reader takes no lock: it sees the last
  /// committed state as of the time it opened, and only until a writer commits the next one.
  static std::unique_ptr<PageFile> open(const std::string& path, bool writable,
                                        std::size_t cached_pages = kCachedPages);
  /// What was not committed is dropped.
  ~PageFile();
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;

  const std::string& path() const { return path_; }
  std::uint32_t length() const { return length_; }
  /// An attempt to write to the disk has failed, and none has succeeded since.
  bool failing() const { return failing_; }
  void try_again() { failing_ = false; }
  /// The bytes from `pos` on; false if they are not all there.
  bool read(std::uint32_t pos, char* bytes, std::size_t n);
  /// The bytes from `pos` to the end of their page or of the file, in place and how many: null and
  /// 0 if there is nothing. Valid until the next call.
  const char* view(std::uint32_t pos, std::size_t& n);
  /// Overwrites and appends. False if the bytes cannot be taken.
  bool write(std::uint32_t pos, const char* bytes, std::size_t n);
  /// Makes `n` bytes from `pos` on zero, beyond the end too.
  bool clear(std::uint32_t pos, std::uint32_t n);
  /// Makes all changes permanent. False, after a message, if that failed: the disk still holds, or
  /// gives back through the journal, the state of the last commit, and the changes stay in memory
  /// for the next attempt.
  bool commit();

 private:
  struct Page {
    std::uint32_t number;
    bool changed;
    bool recent;
    char bytes[kPageBytes];
  };

  PageFile(const std::string& path, Descriptor fd, bool writable, std::size_t cached_pages);
  bool recover();
  bool set_length(std::uint64_t length);
  /// The page in memory, read if need be; null after a message if it cannot be read.
  Page* page(std::uint32_t number) {
    Page* found = pages_[number];
    if (!found) return load(number);
    found->recent = true;
    return found;
  }
  Page* load(std::uint32_t number);
  bool read_page(Page& page);
  Page* free_frame();
  void make_room();
  Page* page_to_change(std::uint32_t number);
  /// Brings all changed pages to the file, under the journal's protection.
  bool write_back();
  bool protect(const std::vector<std::uint32_t>& numbers);
  bool write_pages(const std::vector<std::uint32_t>& numbers);
  std::size_t page_size(std::uint32_t number) const;
  bool fail(const char* what);  // "Can't WHAT NAME: REASON", once; false

  std::string path_;
  Descriptor fd_;
  bool writable_;
  Journal journal_;
  std::unique_ptr<OldPages> old_pages_;  // of a reader that found a journal
  std::uint32_t length_ = 0;
  std::uint32_t disk_length_ = 0;       // how far the file on disk goes
  std::uint32_t committed_length_ = 0;  // how far it went at the last commit
  bool failing_ = false;
  bool lost_ = false;  // the device has dropped writes: only the journal knows what holds

  std::vector<Page*> pages_;  // by number; null: not in memory
  std::vector<std::unique_ptr<Page>> frames_;
  std::size_t most_frames_;
  std::size_t hand_ = 0;                // the next frame to be considered for another page
  std::vector<std::uint32_t> changed_;  // numbers, in no order
  std::vector<bool> protected_;         // pages whose old image the journal holds
};

}  // namespace torvane
