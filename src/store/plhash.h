// A hash table of entries in memory laid over a hash on disk.
//
// A look-up that misses in memory falls through to the disk; what it finds there is unpacked and
// stays in memory. Changed and new entries are written back by `sync`. What an entry is and how it
// is packed is a subclass's.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "store/sharded_hash.h"
#include "support/hash_table.h"
#include "support/str_bufs.h"
#include "support/value.h"

namespace torvane {

class HeaderFile;
class NamedObjects;
class PLHashIterator;

/// What every entry begins with.
struct PLHashEntry {
  PLHashEntry* next = nullptr;
  const char* key = nullptr;  ///< lives at least as long as the entry
  /// Above 0: clean, the record is there; 0: never written; below 0: changed, the record is at
  /// -pos.
  std::int32_t pos = 0;

  /// Says that memory and record differ.
  void mark_changed() {
    if (pos > 0) pos = -pos;
  }
};

/// Entries chained through their own link, each chain ascending without regard to case. The table
/// owns its entries.
class LHashTable {
 public:
  using DeleteEntry = void (*)(PLHashEntry* entry);
  /// The link at which a chain goes on: where a missing entry belongs.
  using Slot = PLHashEntry**;

  LHashTable(DeleteEntry drop_entry, std::size_t bucket_count);
  LHashTable(const LHashTable&) = delete;
  LHashTable& operator=(const LHashTable&) = delete;

  /// The entry of a key in memory, or null; `slot` is where it belongs (null for a null key).
  PLHashEntry* find_in_memory(const char* key, Slot& slot) const;
  void link(Slot slot, PLHashEntry* entry) {
    entry->next = *slot;
    *slot = entry;
  }
  /// Takes an entry out of its chain; the caller owns it then. False if it is not in the table.
  bool unlink(PLHashEntry* entry);
  /// The same for every entry of which `test(entry)` holds, in bucket order.
  template <class Test>
  void unlink_if(Test test) {
    for (std::size_t i = 0; i < size_; ++i)
      for (Slot slot = &buckets_[i]; *slot;) {
        PLHashEntry* entry = *slot;
        PLHashEntry* next = entry->next;
        if (test(entry))
          *slot = next;
        else
          slot = &entry->next;
      }
  }
  void delete_entry(PLHashEntry* entry) const { delete_entry_(entry); }
  void delete_all();
  /// Calls `visit(entry)` in bucket order; it may change the entry, not the chain.
  template <class Visit>
  void for_each(Visit visit) const {
    for (std::size_t i = 0; i < size_; ++i)
      for (PLHashEntry* entry = buckets_[i]; entry;) {
        PLHashEntry* next = entry->next;
        visit(entry);
        entry = next;
      }
  }

  std::size_t bucket_count() const { return size_; }

 protected:
  ~LHashTable() { delete_all(); }

 private:
  friend class PLHashIterator;

  DeleteEntry delete_entry_;
  std::size_t size_;
  std::unique_ptr<PLHashEntry*[]> buckets_;
};

class PLHash : public LHashTable {
 public:
  /// How many changed entries are gathered before they are written.
  static constexpr std::size_t kBatch = 20000;
  /// Beyond this sum counts that are pending go to the total.
  static constexpr float kMostPending = 10000.0F;

  /// With at least 1 bucket, and at most a sane number.
  PLHash(DeleteEntry drop_entry, long bucket_count);
  PLHash(const PLHash&) = delete;
  PLHash& operator=(const PLHash&) = delete;

  // Those that give a bool say whether all went well (a message tells what did not).

  /// Writes the global data as the record at `pos`; 0: as a new record.
  bool save_global(std::int32_t pos);
  /// Reads it from the first record. False if it is damaged.
  bool load_global();
  virtual void pack_global(StrBufs& buf);
  virtual bool unpack_global(StrBufs& buf);
  /// Opens the disk file that a header names; `functions` as for a QHash. Above 0: an existing
  /// file; 0: a new one, or failure; -1: the header is not open.
  int link_file(const NamedObjects& functions, HeaderFile& header, OpenMode mode);
  /// Writes what changed and drops the disk file.
  virtual void unlink_file();
  /// An empty buffer means that the entry cannot be written now.
  virtual void v_pack_entry(PLHashEntry* entry, StrBufs& buf);
  /// A new entry from a record's value, which starts with the key; null if the record is damaged.
  virtual PLHashEntry* v_unpack_entry(StrBufs& buf);
  virtual void combine(PLHashEntry* target, PLHashEntry* other);
  virtual void print_entry(PLHashEntry* entry, std::ostream& out);
  /// Reads the next record of a text into the buffer, packed; nothing at the end.
  virtual void read_entry(std::istream& in, StrBufs& buf);
  virtual void populate(std::istream& in);
  void reconstruct(std::istream& in);
  /// Writes an entry and leaves it clean; without a writable file, or on failure, it stays as it
  /// is.
  void save_entry(PLHashEntry* entry);
  void merge(PLHash& other);
  void copy(PLHash& other);
  /// Nothing becomes permanent, after a message, if a store was full at some time since it was
  /// linked.
  void sync();
  void clear();
  virtual ~PLHash();

  /// The entry of a key, from memory or disk, or null; `slot` is where a new one goes.
  PLHashEntry* find(const char* key, Slot& slot);
  PLHashEntry* find(const char* key) {
    Slot slot;
    return find(key, slot);
  }
  void add_count(float count);
  /// Adds a count that is large at once.
  void add_to_total(double count);
  /// Says that the global data and their record differ.
  void mark_global_changed() {
    global_changed_ = true;
    if (file) file->mark_changed();
  }
  /// N: the grand total that is shown and that statistics use.
  float total_count() const { return total_ + pending_; }
  void print_all(std::ostream& out);
  void print_profile(int max);
  void check_all();
  void sort_links();
  void print_free_list() const;

  /// The disk file is there and open / may be written.
  bool has_file() const;
  bool is_writable() const;

  std::unique_ptr<ShardedHash> file;  ///< null until one is linked

 protected:
  void clear_missing();
  void clear_total() { total_ = pending_ = 0; }
  /// Writes the entries in file order, and sorts the list so. Those that could not be written stay
  /// as they are.
  void write_in_order(std::vector<PLHashEntry*>& entries);
  /// Writes the entries in file order; with `delete_after` they are deleted then. Empties the
  /// list.
  void flush_entries(std::vector<PLHashEntry*>& entries, bool delete_after);

 private:
  /// Adds the record that a walk over `other` stands on.
  void insert_raw(PLHashIterator& walk, PLHash& other);

  float total_ = 0;
  float pending_ = 0;            // not in `total_` yet: a small count is lost beside a large sum
  bool global_changed_ = false;  // the file's own flag goes when its links are sorted
  /// Keys known to be absent from the disk.
  THashTableWithOrd<const char*, const char*> missing_;
  StrBufs missing_keys_{4096};
  // Of the entry that is written or looked up; kept, since there are many.
  StrBufs record_{20000};
};

/// The typed face of a table whose entries are Ts.
template <class T>
class TPLHash : public PLHash {
 public:
  explicit TPLHash(long bucket_count)
      : PLHash([](PLHashEntry* entry) { delete static_cast<T*>(entry); }, bucket_count) {}
  T* find(const char* key, Slot& slot) { return static_cast<T*>(PLHash::find(key, slot)); }
  T* find(const char* key) { return static_cast<T*>(PLHash::find(key)); }
  using PLHash::find_in_memory;
  T* find_in_memory(const char* key) const {
    Slot slot;
    return static_cast<T*>(PLHash::find_in_memory(key, slot));
  }
};

/// A walk over all entries: with a disk file over its records (what memory holds unsaved is not
/// among them), each entry a temporary that goes with the next step; without one over the table.
/// The table must not lose entries during the walk.
class PLHashIterator {
 public:
  explicit PLHashIterator(PLHash& table);
  ~PLHashIterator() { drop(); }
  PLHashIterator(const PLHashIterator&) = delete;
  PLHashIterator& operator=(const PLHashIterator&) = delete;

  bool done() const { return entry_ == nullptr; }
  PLHashEntry* current() const { return entry_; }
  void next();
  /// The record that was read last; empty without a file.
  StrBufs& record() { return record_; }
  bool from_disk() const { return on_disk_; }

 private:
  void drop();
  void next_in_memory();
  void next_on_disk();
  void read(QHash& hash, std::uint32_t pos);

  PLHash& table_;
  bool on_disk_;
  PLHashEntry* entry_ = nullptr;
  std::size_t store_ = 0;
  std::uint32_t bucket_ = 0;  // the next one to visit
  std::optional<ChainWalk> chain_;
  std::uint64_t steps_left_ = 0;
  StrBufs whole_{20000};  // a record with its link
  StrBufs record_{20000};
};

namespace tags {
inline constexpr TypeTag plhash{"PLHash"};
}
template <>
struct ValueTraits<PLHash> : TagOf<PLHash, tags::plhash> {};

}  // namespace torvane
