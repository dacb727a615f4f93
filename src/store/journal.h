// The log of a file that is written in pages: what is committed and does not stand in the file yet.
// It lies beside the file (NAME and "-journal"); its format is in docs/formats.md.
//
// What holds at any moment, also on the device: the last committed state is the file, cut or grown
// to the length that the log states, with the pages of all its whole commits in place. Without a
// log it is the file alone. For that, writes come to the device in this order:
//
//  1. A new log's header and name, before the file itself is written beyond the committed length,
//     the only place where it is written before a commit.
//  2. Such pages of the file, before the commit that makes them part of it.
//  3. A commit: the images of its pages and its record, in one flush. The record's check sum takes
//     in those of all its images, so that a commit is whole or is none.
//  4. The logged pages in the file, before the log begins anew or is removed. The header of the log
//     that begins anew, whose random number makes all that stands behind it void, before anything
//     is added to it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/descriptor.h"

namespace torvane {

inline constexpr std::uint32_t kPageBytes = 4096;

/// Committed pages in a log.
class LoggedPages {
 public:
  static std::string log_path(const std::string& file) { return file + "-journal"; }

  /// Of the file in the last committed state.
  std::uint32_t length() const { return length_; }
  bool holds(std::uint32_t page) const { return offsets_.count(page) > 0; }
  /// False if the image cannot be read, or is not there any more.
  bool read(std::uint32_t page, char* image) const;
  /// Makes the file hold the last committed state by itself, on the device.
  bool write_to(const Descriptor& file) const;

 protected:
  bool read_image(std::uint64_t offset, std::uint32_t page, char* image) const;
  bool remove() const;

  std::string path_;
  Descriptor fd_;
  std::uint32_t salt_ = 0;  // the random number that all sums begin with
  std::uint32_t length_ = 0;
  std::unordered_map<std::uint32_t, std::uint64_t> offsets_;  // of entries, by page
};

/// A log that was left behind, or that another process writes, as it is now.
class LeftLog : public LoggedPages {
 public:
  /// False if there is no log in force for the file. A commit with a number above `last_commit` is
  /// the end of it.
  bool open(const std::string& file, std::uint32_t last_commit = UINT32_MAX);
  /// There may be one, but it cannot be read.
  bool hidden() const { return hidden_; }
  /// The length of the file when the log began: it has never been shorter since.
  std::uint32_t first_length() const { return first_length_; }
  using LoggedPages::remove;
  /// Removes what is no log of the file.
  void drop() const {
    if (fd_) remove();
  }

 private:
  void scan(bool commits, std::uint32_t last_commit);
  bool take_commit(std::uint64_t offset, std::uint32_t sums, std::uint32_t last_commit);

  bool hidden_ = false;
  std::uint32_t first_length_ = 0;
};

/// A log that is being written.
class Journal : public LoggedPages {
 public:
  struct Page {
    std::uint32_t number;
    const char* bytes;  ///< `kPageBytes` of them
  };

  /// `mode` is that of the file: who may read the one may read the other.
  Journal(const std::string& file, unsigned mode) : mode_(mode) { path_ = log_path(file); }

  bool started() const { return static_cast<bool>(fd_); }
  /// How far the log goes.
  std::uint64_t size() const { return end_; }
  /// Begins a log, or begins it anew, for a file that holds the last committed state by itself.
  bool start(std::uint32_t length);
  /// Brings a log that was begun to the device.
  bool ensure_start() { return on_device_ || flush(); }
  /// Adds images of pages to the next commit, or puts them in place of those that it has already.
  /// Their order is that of the numbers.
  bool add(std::span<const Page> pages);
  /// Whether the next commit has an image of the page.
  bool adds(std::uint32_t page) const { return added_.count(page) > 0; }
  bool adds_any() const { return !added_.empty(); }
  bool read_added(std::uint32_t page, char* image) const;
  /// Makes what was added the last committed state, on the device; the file has `length` bytes in
  /// it. The number is for those who look for the last commit up to one.
  bool commit(std::uint32_t length, std::uint32_t number = 0);
  /// The device may have dropped what it was given: nothing more is to be built on it.
  bool lost() const { return lost_; }
  /// Ends the log of a file that holds the last committed state by itself.
  bool end();

 private:
  bool flush();
  bool write_entries(std::span<const Page> pages, std::uint64_t offset, std::uint32_t* sums);
  std::uint64_t offset_of_added(std::size_t index) const;
  void grow_ahead();

  unsigned mode_;
  bool on_device_ = false;
  bool lost_ = false;
  std::uint64_t commit_start_ = 0;  // where the next commit begins
  std::uint64_t end_ = 0;
  std::uint64_t file_end_ = 0;                            // how far the log's file goes
  std::unordered_map<std::uint32_t, std::size_t> added_;  // images of the next commit, by page
  std::vector<std::uint32_t> sums_;                       // theirs, as they stand
};

}  // namespace torvane
