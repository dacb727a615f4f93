// The walk over all entries of a cached store.
#include "store/plhash.h"

namespace torvane {

PLHashIterator::PLHashIterator(PLHash& table) : table_(table), on_disk_(table.has_file()) {
  if (on_disk_)
    for (const auto& store : table_.file->stores())
      steps_left_ += store->end_pos() / store->block_size();
  next();
}

void PLHashIterator::next() {
  if (on_disk_)
    next_on_disk();
  else
    next_in_memory();
}

void PLHashIterator::next_in_memory() {
  entry_ = entry_ ? entry_->next : nullptr;
  while (!entry_ && bucket_ < table_.size_) entry_ = table_.buckets_[bucket_++];
}

// A record cannot be in two chains, so there are at most as many steps as blocks, however a damaged
// file links them.
void PLHashIterator::next_on_disk() {
  drop();
  const auto& stores = table_.file->stores();
  while (!entry_ && steps_left_ > 0) {
    while (!chain_ || chain_->pos() == 0) {
      if (bucket_ == stores[store_]->bucket_count()) {
        if (store_ + 1 == stores.size()) return;
        ++store_;
        bucket_ = 0;
        continue;
      }
      chain_.emplace(*stores[store_], stores[store_]->get_bucket(bucket_));
      ++bucket_;
    }
    --steps_left_;
    read(*stores[store_], chain_->pos());
    chain_->next();
  }
}

void PLHashIterator::read(QHash& hash, std::uint32_t pos) {
  std::uint32_t size = hash.read_record(pos, whole_);
  if (size <= QHash::kNextBytes) return;
  record_.reset();
  record_.add_bytes(whole_.object() + QHash::kNextBytes, size - QHash::kNextBytes);
  record_.finish();
  entry_ = table_.v_unpack_entry(record_);
  if (entry_) entry_->pos = static_cast<std::int32_t>(pos);
}

void PLHashIterator::drop() {
  if (on_disk_ && entry_) table_.delete_entry(entry_);
  entry_ = nullptr;
}

}  // namespace torvane
