#include "store/plhash.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "store/header_file.h"
#include "support/big_endian.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

// A table of more buckets than any store has entries would only cost memory.
constexpr long kMostBuckets = 1L << 26;
constexpr int kGlobalChunk = 1024;
constexpr int kEntryChunk = 20000;
constexpr int kReconstructChunk = 10000;

int compare_key(const PLHashEntry* entry, const char* key) {
  // Kept: memory-folds-case
  return stricmp(entry->key, key);
}

void not_defined(const char* operation) {
  messages() << "PLHash::" << operation << " must be defined by a subclass.\n";
}

}  // namespace

LHashTable::LHashTable(DeleteEntry drop_entry, std::size_t bucket_count)
    : delete_entry_(drop_entry),
      size_(bucket_count),
      buckets_(std::make_unique<PLHashEntry*[]>(bucket_count)) {}

PLHashEntry* LHashTable::find_in_memory(const char* key, Slot& slot) const {
  slot = nullptr;
  if (!key) return nullptr;
  slot = &buckets_[string_hash(key) % size_];
  for (; *slot; slot = &(*slot)->next) {
    int order = compare_key(*slot, key);
    if (order == 0) return *slot;
    if (order > 0) break;
  }
  return nullptr;
}

bool LHashTable::unlink(PLHashEntry* entry) {
  Slot slot;
  if (find_in_memory(entry->key, slot) != entry) return false;
  *slot = entry->next;
  entry->next = nullptr;
  return true;
}

void LHashTable::delete_all() {
  for_each(delete_entry_);
  std::fill_n(buckets_.get(), size_, nullptr);
}

PLHash::PLHash(DeleteEntry drop_entry, long buckets)
    : LHashTable(drop_entry, static_cast<std::size_t>(std::clamp(buckets, 1L, kMostBuckets))),
      missing_(
          static_cast<int>(bucket_count()), [](const char* key) { return string_hash(key); },
          stricmp) {}

// Kept: unsynced-is-lost
PLHash::~PLHash() = default;

bool PLHash::has_file() const {
  return file && file->is_open();
}

bool PLHash::is_writable() const {
  return has_file() && !file->read_only();
}

bool PLHash::save_global(std::int32_t pos) {
  StrBufs buf(kGlobalChunk);
  pack_global(buf);
  return is_writable() && file->first().write_record(static_cast<std::uint32_t>(pos), buf.object(),
                                                     buf.object_size()) > 0;
}

bool PLHash::load_global() {
  StrBufs buf(kGlobalChunk);
  return has_file() && file->first().read_record(file->first().data_start(), buf) > 0 &&
         unpack_global(buf);
}

void PLHash::pack_global(StrBufs& buf) {
  total_ += pending_;
  pending_ = 0;
  buf.add_float(total_);
}

bool PLHash::unpack_global(StrBufs& buf) {
  if (buf.object_size() < sizeof(std::uint32_t)) return false;
  total_ = std::bit_cast<float>(load_be32(buf.object()));
  return true;
}

int PLHash::link_file(const NamedObjects& functions, HeaderFile& header, OpenMode mode) {
  if (!header.is_open()) return -1;
  if (has_file()) {
    // Entries know their places in the file that is linked now.
    sync();
    clear();
  }
  if (!file) file = std::make_unique<ShardedHash>(functions, mode);
  int result = file->open_header(header);
  bool usable = file->is_open();
  if (usable && result == 0) {
    save_global(0);
    file->started();
  }
  if (usable && result > 0) usable = load_global();
  global_changed_ = pending_ != 0;  // counted before there was a file
  if (usable) return result;
  // A store without its global data cannot be read, and must not be written.
  file.reset();
  return 0;
}

void PLHash::unlink_file() {
  sync();
  clear_total();
  file.reset();
}

void PLHash::v_pack_entry(PLHashEntry*, StrBufs&) {
  not_defined("v_pack_entry");
}

PLHashEntry* PLHash::v_unpack_entry(StrBufs&) {
  not_defined("v_unpack_entry");
  return nullptr;
}

// Kept: merge-of-triples
void PLHash::combine(PLHashEntry*, PLHashEntry*) {
  not_defined("combine");
}

void PLHash::print_entry(PLHashEntry*, std::ostream&) {
  not_defined("print_entry");
}

void PLHash::read_entry(std::istream&, StrBufs&) {
  not_defined("read_entry");
}

void PLHash::populate(std::istream&) {
  messages() << "PLHash::populate(istream& istrm) is not implemented\n";
}

void PLHash::reconstruct(std::istream& in) {
  StrBufs buf(kReconstructChunk);
  while (in.good()) {
    buf.reset();
    read_entry(in, buf);
    if (buf.object_size() == 0) break;
    if (is_writable()) file->of(buf.object()).insert(buf.object(), buf.object_size());
  }
  if (is_writable()) file->sort_links();
  sync();
}

void PLHash::save_entry(PLHashEntry* entry) {
  if (!has_file() || file->is_full()) return;
  record_.reset();
  v_pack_entry(entry, record_);
  if (record_.object_size() == 0) return;
  QHash& store = file->of(entry->key);
  std::uint32_t pos = entry->pos == 0
                          ? store.insert(record_.object(), record_.object_size())
                          : store.update(static_cast<std::uint32_t>(std::abs(entry->pos)),
                                         record_.object(), record_.object_size(), 0, false);
  if (pos > 0) entry->pos = static_cast<std::int32_t>(pos);
}

void PLHash::write_in_order(std::vector<PLHashEntry*>& entries) {
  std::sort(entries.begin(), entries.end(), [](const PLHashEntry* a, const PLHashEntry* b) {
    return std::abs(a->pos) < std::abs(b->pos);
  });
  for (PLHashEntry* entry : entries) save_entry(entry);
}

void PLHash::flush_entries(std::vector<PLHashEntry*>& entries, bool delete_after) {
  write_in_order(entries);
  if (delete_after)
    for (PLHashEntry* entry : entries) delete_entry(entry);
  entries.clear();
}

void PLHash::merge(PLHash& other) {
  // Kept: merge-adds-totals-first
  total_ += other.total_;
  pending_ += other.pending_;
  if (!has_file()) {
    messages() << "PLHash::merge cannot open disk file\n";
    return;
  }
  mark_global_changed();
  std::vector<PLHashEntry*> changed;
  StrBufs found(kEntryChunk);
  for (PLHashIterator walk(other); !walk.done(); walk.next()) {
    std::uint32_t pos = file->of(walk.current()->key).find(walk.current()->key, found);
    if (pos == 0) {
      insert_raw(walk, other);
      continue;
    }
    PLHashEntry* target = v_unpack_entry(found);
    if (!target) continue;
    target->pos = static_cast<std::int32_t>(pos);
    combine(target, walk.current());
    changed.push_back(target);
    if (changed.size() >= kBatch) flush_entries(changed, true);
  }
  flush_entries(changed, true);
  sync();
}

void PLHash::copy(PLHash& other) {
  if (&other == this) return;
  total_ = other.total_;
  pending_ = other.pending_;
  if (is_writable()) {
    mark_global_changed();
    // Kept: copy-does-not-look
    for (PLHashIterator walk(other); !walk.done(); walk.next()) insert_raw(walk, other);
  }
  sync();
}

void PLHash::insert_raw(PLHashIterator& walk, PLHash& other) {
  if (file->is_full()) return;
  StrBufs packed(kEntryChunk);
  StrBufs& record = walk.from_disk() ? walk.record() : packed;
  if (!walk.from_disk()) {
    other.v_pack_entry(walk.current(), packed);
    if (packed.object_size() == 0) return;
    packed.finish();
  }
  file->of(record.object()).insert(record.object(), record.object_size() - 1);
}

void PLHash::sync() {
  clear_missing();
  if (!is_writable()) return;
  std::vector<PLHashEntry*> changed;
  for_each([&](PLHashEntry* entry) {
    if (entry->pos > 0) return;
    if (entry->pos == 0) {
      save_entry(entry);
      return;
    }
    changed.push_back(entry);
    if (changed.size() >= kBatch) flush_entries(changed, false);
  });
  flush_entries(changed, false);
  if (!file->is_changed() && !global_changed_) return;
  const auto global_pos = static_cast<std::int32_t>(file->first().data_start());
  if (!file->is_full() && save_global(global_pos)) global_changed_ = false;
  if (file->is_full()) {
    messages() << "The file " << file->first().path() << " stays as it was last synced: it cannot "
               << "hold all that was to be written, but more files can (\"shards\" in its header)"
               << std::endl;
    return;
  }
  file->sync();
}

void PLHash::clear() {
  delete_all();
  clear_missing();
}

PLHashEntry* PLHash::find(const char* key, Slot& slot) {
  PLHashEntry* entry = find_in_memory(key, slot);
  if (entry || !key || !has_file() || missing_.find(key)) return entry;
  std::uint32_t pos = file->of(key).find(key, record_);
  if (pos == 0) {
    missing_.insert_at_cursor(missing_keys_.copy(key));
    return nullptr;
  }
  entry = v_unpack_entry(record_);
  if (!entry) return nullptr;
  entry->pos = static_cast<std::int32_t>(pos);
  link(slot, entry);
  return entry;
}

void PLHash::add_count(float count) {
  pending_ += count;
  mark_global_changed();
  if (pending_ <= kMostPending) return;
  total_ += pending_;
  pending_ = 0;
}

void PLHash::add_to_total(double count) {
  total_ = static_cast<float>(total_ + count);
  mark_global_changed();
}

void PLHash::print_all(std::ostream& out) {
  for (PLHashIterator walk(*this); !walk.done(); walk.next()) print_entry(walk.current(), out);
}

void PLHash::print_profile(int max) {
  if (!has_file()) return;
  for (const auto& store : file->stores()) store->print_profile(max);
}

void PLHash::check_all() {
  if (!has_file()) return;
  for (const auto& store : file->stores()) store->check_all();
}

void PLHash::sort_links() {
  if (has_file()) file->sort_links();
}

void PLHash::print_free_list() const {
  if (!has_file()) return;
  for (const auto& store : file->stores()) store->print_free_list();
}

void PLHash::clear_missing() {
  missing_.clear();
  missing_keys_.reset();
}

}  // namespace torvane
