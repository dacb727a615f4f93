// A hash table on disk: an array of bucket heads near the start of a block file, and a chain of
// records a bucket, each of them a key with a value. It holds no entry in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "store/qfile.h"

namespace torvane {

class HeaderFile;
class NamedObjects;

class QHash : public QFile {
 public:
  using Compare = int (*)(const char*, const char*);
  static constexpr std::uint32_t kNextBytes = 4;  ///< of the link in front of each payload

  /// `functions`: the named objects among which comparisons are; they outlive the hash.
  QHash(const NamedObjects& functions, OpenMode mode) : QFile(mode), functions_(functions) {}

  /// 1 for an existing file, 0 for a new one or after a message (not open then). Block size, number
  /// of buckets and the name of the comparison count for a new file only. A comparison that is not
  /// among the named objects ends the process with status 1.
  int open_file(const char* name, long block_size, long size, const char* function_name);
  /// Opens what a header names: takes its four tokens. What `open_file` gave, 0 if a token is
  /// missing, -1 if the header is not open. So 0 means new or failed: ask `is_open()`.
  int open_header(HeaderFile& header);

  /// The bucket of a key, and the first position of a bucket's chain.
  std::uint32_t bucket_of(const char* key) const;
  std::uint32_t get_bucket(std::uint32_t index) const;
  /// The position of the next record in the chain of the record at `pos`, 0 at the end. False if
  /// there is no record.
  bool read_next(std::uint32_t pos, std::uint32_t& next) const;
  /// The position of the first record with the key, or 0. `buf` is reset, and holds the key and the
  /// value on success, finished: `object_size() - 1` bytes.
  std::uint32_t find(const char* key, StrBufs& buf);
  /// Adds a record at the end of its chain, with no test for another one of that key. `data` starts
  /// with the zero-terminated key. Its position, or 0 if it cannot be written (reported).
  std::uint32_t insert(const char* data, std::size_t length);
  /// Rewrites key and value of the record at `pos`, and its link if `set_next`. `pos`, or 0 if it
  /// cannot be written.
  std::uint32_t update(std::uint32_t pos, const char* data, std::size_t length, std::uint32_t next,
                       bool set_next);
  /// Walks the chain from `pos` and aborts the process, after "out of bound" or "invalid header",
  /// at a link that is not to a record.
  void check_chain(std::uint32_t pos) const;
  void check_all() const;
  /// How many buckets have a chain of each length, on the error stream; lengths from `max` on count
  /// as `max`.
  void print_profile(int max) const;
  /// Puts each chain in ascending order of positions, then syncs.
  void sort_links();
  /// The same without the sync.
  void sort_chains();

  std::uint32_t bucket_count() const { return size_; }

 private:
  bool start_file(long buckets, const char* function_name);
  bool load_file(std::string& function_name);
  void find_function(const std::string& name);
  enum class Match { yes, no, unknown };
  /// Compares a key with that of the record at `pos`, and gives the next record's position.
  Match compare_in_place(std::uint32_t pos, const char* key, std::uint32_t& next) const;

  const NamedObjects& functions_;
  Compare compare_ = nullptr;
  std::uint32_t buckets_pos_ = 0;
  std::uint32_t size_ = 0;  // number of buckets
};

/// A walk along a chain: `for (ChainWalk at(hash, pos); at.pos() != 0; at.next())`. It ends, after
/// "Invalid magic number!", where a link is not to a record or back to where the walk came by.
class ChainWalk {
 public:
  ChainWalk(const QHash& hash, std::uint32_t pos) : hash_(hash), pos_(pos), mark_(pos) {}
  std::uint32_t pos() const { return pos_; }
  bool damaged() const { return damaged_; }
  void next();
  /// The same where the next position has been read already.
  void go_to(std::uint32_t next_pos);
  /// The same without a message: false where the walk goes in a circle.
  bool advance(std::uint32_t next_pos);

 private:
  void give_up();

  const QHash& hash_;
  std::uint32_t pos_;
  std::uint32_t
      mark_;  // a place passed, moved on ever more rarely: who comes back goes in a circle
  std::uint32_t steps_ = 0;
  std::uint32_t next_mark_ = 1;
  bool damaged_ = false;
};

}  // namespace torvane
