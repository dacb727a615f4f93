// The disk hash behind one header, in one store or in several: a key stands in the store that its
// hash tells, and positions are of that store. Several go from one synced state to the next
// together.
//
// For that, each of several stores has a mark, a record that no chain reaches: its number, how many
// there are, and the number of the last sync that changed it. The mark of the first store, which is
// behind its first record, tells the last sync of all. A sync commits the first store last; the
// others keep what they were until that is done, in their logs, and whoever opens them takes no
// commit of a later sync.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "store/page_file.h"
#include "store/qhash.h"

namespace torvane {

struct StoreHeader;

class ShardedHash {
 public:
  static constexpr long kMostStores = 256;

  /// As for a QHash.
  ShardedHash(const NamedObjects& functions, OpenMode mode) : functions_(functions), mode_(mode) {
    use_stores(1);
  }

  /// Opens what a header names, as `QHash::open_header` does. Of several stores all are new, or
  /// all have content and are of the same state; else none is open, after "Can't open NAME".
  int open_header(HeaderFile& header);
  /// To be called when the owner has written the first record of a new hash.
  void started();

  bool is_open() const;
  bool read_only() const { return mode_ == OpenMode::read; }
  bool is_changed() const;
  void mark_changed() { first().mark_changed(); }
  /// A store has refused to grow beyond its limit.
  bool is_full() const;
  void sync();
  /// As `QHash::sort_links`.
  void sort_links();

  /// Where the key stands, or belongs.
  QHash& of(const char* key) const;
  /// The one that holds the owner's global data.
  QHash& first() const { return *stores_.front(); }
  const std::vector<std::unique_ptr<QHash>>& stores() const { return stores_; }

  /// How much of all stores together stays in memory; counts from the next `open_header` on.
  std::size_t cached_pages = PageFile::usual_cached_pages();

 private:
  int open_stores(const StoreHeader& wanted);
  void use_stores(std::size_t count);
  std::uint32_t mark_pos(std::size_t number) const;
  bool read_mark(std::size_t number, std::uint32_t& sync_number) const;
  bool write_mark(std::size_t number, bool is_new);

  const NamedObjects& functions_;
  OpenMode mode_;
  std::vector<std::unique_ptr<QHash>> stores_;  // at least one
  std::uint32_t sync_number_ = 0;               // of the last one that was begun
};

}  // namespace torvane
