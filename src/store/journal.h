// The old images of pages that a writer has begun to overwrite, in a file beside the one written.
//
// A journal counts from the moment its header is whole on the device until it is removed. Each
// image carries a check sum of its own, so that a tail which never reached the device ends the
// journal: no page of that tail has been overwritten yet. The format is in docs/formats.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "store/descriptor.h"

namespace torvane {

inline constexpr std::uint32_t kPageBytes = 4096;

/// A journal that is being written.
class Journal {
 public:
  /// `mode` is that of the file: who may read the one may read the other.
  Journal(const std::string& written_file, unsigned mode)
      : path_(journal_path(written_file)), mode_(mode) {}
  static std::string journal_path(const std::string& written_file) {
    return written_file + "-journal";
  }

  /// The journal stands on the device.
  bool in_force() const { return flushed_end_ > 0; }
  /// Begins one, over what an unfinished attempt left; `length` is that of the file to go back to.
  bool start(std::uint32_t length);
  /// Adds the image of a page, `kPageBytes` long.
  bool add(std::uint32_t page, const char* image);
  /// Brings all that was added to the device.
  bool flush();
  /// Drops what was added since the last flush.
  void drop_unflushed();
  /// Ends the journal: the state of the file now is the one that stays.
  bool remove();

 private:
  std::string path_;
  unsigned mode_;
  Descriptor fd_;
  std::uint32_t salt_ = 0;
  std::uint64_t end_ = 0;
  std::uint64_t flushed_end_ = 0;
};

/// A journal that was left behind.
class OldPages {
 public:
  /// False if there is no journal in force for the file.
  bool open(const std::string& written_file);
  /// There may be one, but it cannot be read.
  bool hidden() const { return hidden_; }
  std::uint32_t length() const { return length_; }
  /// The old image of a page, if the journal holds one.
  bool holds(std::uint32_t page) const { return offsets_.count(page) > 0; }
  bool read(std::uint32_t page, char* image) const;
  /// Puts all of it back into the file and ends the journal.
  bool roll_back(const Descriptor& file) const;
  /// Removes what is no journal of the file.
  void drop() const;

 private:
  std::string path_;
  Descriptor fd_;
  bool hidden_ = false;
  std::uint32_t length_ = 0;
  std::unordered_map<std::uint32_t, std::uint64_t> offsets_;  // of images, by page
};

}  // namespace torvane
