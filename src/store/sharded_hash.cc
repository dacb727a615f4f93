#include "store/sharded_hash.h"

#include <algorithm>

#include "store/header_file.h"
#include "support/big_endian.h"
#include "support/hash.h"
#include "support/messages.h"
#include "support/str_bufs.h"

namespace torvane {

namespace {

constexpr std::uint32_t kMarkBytes = 12;

std::string store_path(const std::string& first, std::size_t number) {
  return number == 0 ? first : first + '.' + std::to_string(number);
}

}  // namespace

int ShardedHash::open_header(HeaderFile& header) {
  if (!header.is_open()) return -1;
  use_stores(1);
  StoreHeader wanted;
  if (!header.next(wanted)) return 0;
  if (wanted.stores < 1 || wanted.stores > kMostStores) {
    messages() << "Can't open " << wanted.path << std::endl;
    return 0;
  }
  use_stores(static_cast<std::size_t>(wanted.stores));
  int existing = open_stores(wanted);
  if (!is_open()) use_stores(1);
  return existing;
}

void ShardedHash::use_stores(std::size_t count) {
  stores_.clear();
  sync_number_ = 0;
  while (stores_.size() < count) {
    stores_.push_back(std::make_unique<QHash>(functions_, mode_));
    stores_.back()->cached_pages = cached_pages / count;
  }
}

int ShardedHash::open_stores(const StoreHeader& wanted) {
  auto open = [&](std::size_t i) {
    return stores_[i]->open_file(store_path(wanted.path, i).c_str(), wanted.block_size,
                                 wanted.buckets,
                                 wanted.comparison.empty() ? nullptr : wanted.comparison.c_str());
  };
  const int existing = open(0);
  if (!first().is_open() || stores_.size() == 1) return existing;
  bool sound = existing == 0 || read_mark(0, sync_number_);
  for (std::size_t i = 1; i < stores_.size() && sound; ++i) {
    stores_[i]->last_commit = sync_number_;
    const int found = open(i);
    if (!stores_[i]->is_open()) return 0;
    std::uint32_t changed_by = 0;
    sound = found == existing &&
            (existing == 0 || (read_mark(i, changed_by) && changed_by <= sync_number_));
  }
  if (sound) return existing;
  messages() << "Can't open " << wanted.path << std::endl;
  stores_.back()->close();
  return 0;
}

std::uint32_t ShardedHash::mark_pos(std::size_t number) const {
  const QHash& store = *stores_[number];
  return number == 0 ? store.extent_end(store.data_start()) : store.data_start();
}

bool ShardedHash::read_mark(std::size_t number, std::uint32_t& sync_number) const {
  StrBufs bytes;
  if (stores_[number]->read_record(mark_pos(number), bytes) != kMarkBytes ||
      load_be32(bytes.object()) != number || load_be32(bytes.object() + 4) != stores_.size())
    return false;
  sync_number = load_be32(bytes.object() + 8);
  return true;
}

bool ShardedHash::write_mark(std::size_t number, bool is_new) {
  char bytes[kMarkBytes];
  store_be32(bytes, static_cast<std::uint32_t>(number));
  store_be32(bytes + 4, static_cast<std::uint32_t>(stores_.size()));
  store_be32(bytes + 8, sync_number_);
  const std::uint32_t pos = mark_pos(number);
  return stores_[number]->write_record(is_new ? 0 : pos, bytes, kMarkBytes) == pos;
}

void ShardedHash::started() {
  for (std::size_t i = 0; i < stores_.size() && stores_.size() > 1; ++i) write_mark(i, true);
}

// What one store has refused is still to be synced, there and in the first one, which says what
// counts.
void ShardedHash::sync() {
  if (stores_.size() == 1) {
    first().sync();
    return;
  }
  if (!is_open() || read_only() || !is_changed()) return;
  ++sync_number_;
  first().mark_changed();
  for (std::size_t i = stores_.size(); i-- > 0;)
    if (QHash& store = *stores_[i]; store.is_changed())
      if (!write_mark(i, false) || !store.sync_as(sync_number_)) return;
  for (const auto& store : stores_) store->confirm();
}

void ShardedHash::sort_links() {
  for (const auto& store : stores_) store->sort_chains();
  sync();
}

bool ShardedHash::is_open() const {
  return std::all_of(stores_.begin(), stores_.end(),
                     [](const auto& store) { return store->is_open(); });
}

bool ShardedHash::is_changed() const {
  return std::any_of(stores_.begin(), stores_.end(),
                     [](const auto& store) { return store->is_changed(); });
}

bool ShardedHash::is_full() const {
  return std::any_of(stores_.begin(), stores_.end(),
                     [](const auto& store) { return store->is_full(); });
}

QHash& ShardedHash::of(const char* key) const {
  const std::uint64_t hash = int_hash(string_hash(key));
  return *stores_[static_cast<std::size_t>(hash * stores_.size() >> 32)];
}

}  // namespace torvane
