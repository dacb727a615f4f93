// Random access by key to a large text dictionary of parenthesised entries, through a hash index in
// a second file that is built at first use and again when the dictionary is newer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "store/descriptor.h"

namespace torvane {

class FileSearch;

/// A regular file for reading at any place. It has no state that an error could leave behind: a
/// read past the end gives fewer bytes.
class RandomFile {
 public:
  bool open(const std::string& path);
  void close() { file_ = Descriptor(); }
  bool is_open() const { return static_cast<bool>(file_); }
  /// Up to `n` bytes at `offset`; how many there were.
  std::size_t read(std::uint64_t offset, char* bytes, std::size_t n) const {
    return file_.read_at(offset, bytes, n);
  }

 private:
  Descriptor file_;
};

class DictOnDisk {
 public:
  /// Opens what a header file (found along the search path) names; every failure writes its message
  /// and leaves the object not good().
  DictOnDisk(FileSearch& files, const char* header);
  bool good() const { return index_.is_open(); }
  /// The entry's text, in an internal buffer that the next call reuses; null if there is none.
  const char* get_entry(const char* key);
  /// Reads the next entry from the dictionary's position; false at its end, or after the report of
  /// an entry that is cut off.
  bool read_entry(std::string& out);
  /// The key of an entry's text; false if it has none.
  bool entry_key(const char* text, std::string& out) const;

 private:
  struct IndexEntry {
    std::uint32_t bucket;
    std::uint32_t place;  ///< offset in the dictionary plus 1, so that 0 never occurs
  };
  bool open_dictionary(FileSearch& files, const char* header);
  void open_index(FileSearch& files, const char* header);
  bool index_is_current() const;
  bool build_index();
  /// Writes the slot table and the lists of `entries`, which stand in the order of their buckets.
  bool write_index(const std::vector<IndexEntry>& entries);
  /// The byte at the dictionary's position, which moves on; -1 at the end.
  int next_byte();
  bool refill();
  void seek(std::uint64_t offset);

  enum class Found { yes, no, damaged };
  Found entry_at(std::uint32_t place, const char* key);
  Found search_list(std::uint64_t offset, const char* key);

  std::string path_;
  std::string index_path_;
  RandomFile dict_;
  RandomFile index_;
  char open_char_ = '(';
  char close_char_ = ')';
  std::uint32_t table_size_ = 0;

  std::string text_;
  std::string key_;
  // The stretch of the dictionary that was read last, and the position in it.
  std::string window_;
  std::size_t window_size_ = 0;
  std::size_t window_pos_ = 0;
  std::uint64_t window_offset_ = 0;
  std::size_t next_window_ = 0;
};

}  // namespace torvane
