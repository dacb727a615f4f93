// A file in pages, held in memory within a bound, whose changes reach the disk all at once or not
// at all.
//
// Changes stay in memory until `commit`, which adds the changed pages to a log beside the file (see
// journal.h) and waits for the device once. The log is written back into the file when it has grown
// large, when the file is closed and at the end of the process, and is gone after the last two.
// Changes that must leave memory before a commit go to the log too, or, beyond the end of the
// committed state, to their places in the file. Who opens the file for writing and finds a log
// writes it back first; who opens it for reading reads through the log and writes nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <vector>

#include "store/descriptor.h"
#include "store/journal.h"

namespace torvane {

class PageFile {
 public:
  static constexpr std::uint32_t kMostBytes = 0x7fffffff;

  /// Null if the file cannot be opened so, is no regular file or too large, or has a writer
  /// already. A missing file is made if `writable`. A reader takes no lock: it sees the state that
  /// was committed last when it opened, and only until a writer writes a later one back into the
  /// file. Commits with a number above `last_commit` are passed over. Up to `cached_pages` stay in
  /// memory.
  static std::unique_ptr<PageFile> open(const std::string& path, bool writable,
                                        std::size_t cached_pages,
                                        std::uint32_t last_commit = UINT32_MAX);
  /// A gigabyte, but no more than a quarter of the machine's memory: a store is to be walked at
  /// random.
  static std::size_t usual_cached_pages();
  /// What was not committed is dropped; what was stands in the file alone.
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
  /// Makes all changes permanent. False, after a message, if that failed: the disk still holds the
  /// state of the last commit, and the changes stay in memory for the next attempt.
  /// A commit with a number, one of several files', stays in the log until it is confirmed.
  bool commit(std::uint32_t number = 0);
  void confirm();
  /// For the end of the process, wherever that is: writes the logs of all open files back.
  static void settle_all();

 private:
  // Frames, each with room for a page, come in chunks of the size of a large page of the machine.
  static constexpr std::uint32_t kChunkFrames = 512;
  static constexpr std::uint32_t kNone = UINT32_MAX;
  static constexpr std::uint32_t kRecent = 1;  // in a slot: used since the hand came by

  struct Frame {
    std::uint32_t number = kNone;  // of the page that it holds
    bool changed = false;
  };
  struct FreeChunk {
    void operator()(char* chunk) const { std::free(chunk); }
  };

  PageFile(const std::string& path, Descriptor fd, unsigned mode, bool writable,
           std::size_t cached_pages);
  bool recover(std::uint32_t last_commit);
  bool set_length(std::uint64_t length);
  /// The frame of a page, which is read if need be; kNone after a message if it cannot be read.
  std::uint32_t frame_of(std::uint32_t number) {
    std::uint32_t& slot = slots_[number];
    if (slot == 0) return load(number);
    if (!(slot & kRecent)) slot |= kRecent;
    return (slot >> 1) - 1;
  }
  char* bytes_of(std::uint32_t frame) const {
    return chunks_[frame / kChunkFrames].get() + frame % kChunkFrames * std::size_t{kPageBytes};
  }
  std::uint32_t load(std::uint32_t number);
  bool read_page(std::uint32_t number, char* bytes);
  std::uint32_t free_frame();
  std::uint32_t new_frame();
  void make_room();
  /// The bytes of a page that is about to be changed; null if it cannot be read.
  char* page_to_change(std::uint32_t number);
  /// Takes changed pages out of memory's care before they are committed.
  bool spill();
  bool spilled() const { return unflushed_ || journal_.adds_any(); }
  bool add_to_log(std::span<const std::uint32_t> numbers);
  bool write_pages(std::span<const std::uint32_t> numbers);
  bool commit_to_log(std::uint32_t number);
  /// Brings what is committed into the file; the log is not needed then.
  bool settle();
  void settle_if_large();
  std::size_t page_size(std::uint32_t number) const;
  bool fail(const char* what);  // "Can't WHAT NAME: REASON", once; false

  std::string path_;
  Descriptor fd_;
  bool writable_;
  int owner_;  // the process that opened it
  Journal journal_;
  std::unique_ptr<LeftLog> left_log_;  // of a reader that found one
  std::uint32_t length_ = 0;
  std::uint32_t disk_length_ = 0;       // how far the file on disk goes
  std::uint32_t committed_length_ = 0;  // how far it went at the last commit
  bool failing_ = false;
  bool lost_ = false;         // the device has dropped writes: only the log knows what holds
  bool unflushed_ = false;    // the file was written to beyond the committed end
  bool unconfirmed_ = false;  // the last commit may have to be passed over
  std::mutex settling_;       // held while the log and the file are written

  std::vector<std::uint32_t> slots_;  // by page: twice its frame plus 1, and kRecent; 0: no frame
  std::vector<Frame> frames_;
  std::vector<std::unique_ptr<char, FreeChunk>> chunks_;
  std::size_t most_frames_;
  std::size_t most_logged_;             // pages
  std::size_t hand_ = 0;                // the next frame to be considered for another page
  std::vector<std::uint32_t> changed_;  // numbers, in no order
};

}  // namespace torvane
