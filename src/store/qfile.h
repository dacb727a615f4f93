// A file of variable-length records, allocated in whole blocks, with a sorted list of free extents
// that is saved in the file itself.
//
// A record keeps its position for life: what outgrows its blocks goes to a separate overflow
// extent. So chains and entries in memory can hold plain positions; 0 means none. Nothing reaches
// the disk for good before `sync`: the file then goes from one synced state to the next in one
// step, also when the process is killed or the machine stops (see page_file.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "store/free_list.h"
#include "support/big_endian.h"
#include "support/str_bufs.h"

namespace torvane {

class PageFile;

enum class OpenMode : unsigned char { read, write };

/// The 8 bytes at a record's position. `blocks` has 16 bits in the file.
struct RecordHeader {
  static constexpr std::uint32_t kBytes = 8;
  static constexpr std::uint16_t kMagic = 0x5554;
  static constexpr std::uint16_t kContiguous = 1;

  std::uint32_t size = 0;    ///< payload bytes
  std::uint32_t blocks = 0;  ///< length of the primary extent
  std::uint16_t flags = 1;   ///< magic and state

  void load(const char* bytes) {
    size = load_be32(bytes);
    blocks = load_be16(bytes + 4);
    flags = load_be16(bytes + 6);
  }
  bool valid() const { return (flags & 0x7ffe) == kMagic; }
  bool contiguous() const { return (flags & kContiguous) != 0; }
};

/// Where the rest of a spilled record lies.
struct OverflowRef {
  static constexpr std::uint32_t kBytes = 8;

  std::uint32_t overflow_pos = 0;
  std::uint32_t overflow_blocks = 0;
};

class QFile {
 public:
  explicit QFile(OpenMode mode);
  QFile(const QFile&) = delete;
  QFile& operator=(const QFile&) = delete;
  /// What was not synced is dropped.
  ~QFile();
  /// Writes the free list and the header, and makes all changes since the last sync permanent.
  /// Nothing on a file that is read-only, not open or unchanged.
  void sync() { sync_as(0); }
  /// The same as one of several files that are synced together, by the number of that sync (not 0):
  /// what is permanent then counts only if `confirm` follows, or if the next `open` takes commits
  /// up to that number. False, after a message, if it failed.
  bool sync_as(std::uint32_t number);
  void confirm();

  /// 1 for an existing file with content, whose own block size holds; 0 for a new one, and after
  /// "Can't open NAME" (it is not open then). Open again, the object starts afresh, and what was
  /// not synced is dropped.
  int open(const char* name, long block_size);
  bool read_only() const { return mode_ == OpenMode::read; }
  bool is_open() const { return file_ != nullptr; }
  /// Of the open file.
  const std::string& path() const;
  /// Drops the file, and what was not synced.
  void close();

  /// The position of enough fresh blocks for `size` bytes, their count in `hdr.blocks`; 0 on a
  /// read-only file, and where the file would outgrow its positions (reported).
  std::uint32_t alloc(std::uint32_t size, RecordHeader& hdr);
  /// Gives an extent back; with 0 blocks as many as the record header at `pos` says.
  void release(std::uint32_t pos, std::uint32_t blocks);
  /// Makes room for a payload of `size` bytes in the record at `pos` (0: a new one) and writes its
  /// header. False, with nothing changed in the record, if that cannot be done.
  bool reserve(std::uint32_t& pos, std::uint32_t size, RecordHeader& hdr, OverflowRef& ovf);
  /// Writes a whole record; its position, which is `pos` unless that was 0. 0 on failure.
  std::uint32_t write_record(std::uint32_t pos, const char* data, std::size_t size);
  /// Adds the payload bytes that lie in the primary extent to `buf` (over its last object if that
  /// is finished); how many there were. At a place that holds no record 0, after "Invalid magic
  /// number!", and a header that is not valid.
  std::uint32_t read_head(std::uint32_t pos, StrBufs& buf, RecordHeader& hdr);
  /// After `read_head` on a spilled record: `count` payload bytes from its overflow extent.
  bool read_tail(char* dest, std::uint32_t count);
  /// The whole payload in `buf`, which is finished then (a zero byte stands after the payload);
  /// its size.
  std::uint32_t read_record(std::uint32_t pos, StrBufs& buf);
  /// "Free list: (POS, LENGTH) ...", on the error stream.
  void print_free_list() const;

  std::uint32_t block_size() const { return block_size_; }
  /// Where the allocated area ends, and where that of records begins.
  std::uint32_t end_pos() const { return end_pos_; }
  std::uint32_t data_start() const { return data_start_; }
  const FreeList& free_list() const;
  /// Where the blocks of the record at `pos` end that begin there; 0 if there is none.
  std::uint32_t extent_end(std::uint32_t pos) const;
  /// The file has refused to grow beyond `most_bytes`.
  bool is_full() const { return full_; }
  /// No record was ever written.
  bool has_no_records() const { return data_start_ == end_pos_; }
  /// What was changed since the last sync; `mark_changed` says that something else is to be synced.
  bool is_changed() const { return dirty_; }
  void mark_changed() { dirty_ = true; }

  /// How much of the file stays in memory; counts from the next `open` on.
  std::size_t cached_pages;
  /// The number of the last sync whose changes the next `open` takes.
  std::uint32_t last_commit = UINT32_MAX;
  /// How far the file may grow.
  std::uint32_t most_bytes;

 protected:
  static constexpr std::uint32_t kHeaderBytes = 12;

  /// "Can't open NAME"; closed then. 0.
  int refuse(const char* name);
  /// "Invalid magic number!"; false.
  static bool complain_of_record();
  /// Whether an extent of records lies in the allocated area, apart from all free ones.
  bool extent_is_sound(std::uint32_t pos, std::uint64_t length) const;
  bool read_header(std::uint32_t pos, RecordHeader& hdr) const;
  bool write_word(std::uint32_t pos, std::uint32_t word);
  /// Writes payload bytes after the first `skip` ones, over both extents.
  bool write_payload(std::uint32_t pos, const RecordHeader& hdr, const OverflowRef& ovf,
                     std::uint32_t skip, const char* data, std::uint32_t size);
  /// How many payload bytes fit the primary extent; below 0 if that cannot hold a record.
  std::int64_t head_room(const RecordHeader& hdr) const {
    std::int64_t bytes = std::int64_t{hdr.blocks} * block_size_ - RecordHeader::kBytes;
    return hdr.contiguous() ? bytes : bytes - OverflowRef::kBytes;
  }

  std::unique_ptr<PageFile> file_;
  std::uint32_t block_size_ = 0;
  std::uint32_t end_pos_ = 0;
  std::uint32_t data_start_ = 0;
  bool dirty_ = false;
  bool full_ = false;
  mutable FreeList free_list_;  // of a file for reading it is empty until somebody asks for it

 private:
  static constexpr std::uint32_t kMostBlocks = 0xffff;  // of a primary extent
  static constexpr std::uint32_t kGrowth = 4096;

  bool load_header();
  void find_free_list(std::uint32_t pos);
  void load_free_list() const;
  bool add_free(std::uint32_t pos, std::uint32_t blocks) const;
  std::uint32_t save_free_list();
  std::uint32_t grow(std::uint64_t bytes);
  bool alloc_overflow(std::uint64_t bytes, RecordHeader& hdr, OverflowRef& ovf);
  bool alloc_record(std::uint32_t& pos, std::uint32_t size, RecordHeader& hdr, OverflowRef& ovf);
  bool fit_record(std::uint32_t pos, std::uint32_t size, RecordHeader& hdr, OverflowRef& ovf);
  bool refit_overflow(std::int64_t excess, std::uint32_t ref_pos, RecordHeader& hdr,
                      OverflowRef& ovf);
  bool read_overflow_ref(std::uint32_t pos, OverflowRef& ovf) const;
  bool write_header(std::uint32_t pos, const RecordHeader& hdr);

  OpenMode mode_;
  mutable std::uint32_t unread_list_ = 0;  // the record with the list; 0: it is read
  std::uint32_t tail_ref_pos_ = 0;         // of the overflow reference that `read_head` came to
};

}  // namespace torvane
