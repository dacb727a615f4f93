// The walk over all entries of a cached store.
#include "store/plhash.h"

namespace torvane {

PLHashIterator::PLHashIterator(PLHash& table) : table_(table), on_disk_(table.has_file()) {
  if (on_disk_ && table_.file->block_size() > 0)
    steps_left_ = table_.file->end_pos() / table_.file->block_size();
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
  QHash& hash = *table_.file;
  while (!entry_ && steps_left_ > 0) {
    while (!chain_ || chain_->pos() == 0) {
      if (bucket_ == hash.bucket_count()) return;
      chain_.emplace(hash, hash.get_bucket(bucket_++));
    }
    --steps_left_;
    read(chain_->pos());
    chain_->next();
  }
}

void PLHashIterator::read(std::uint32_t pos) {
  std::uint32_t size = table_.file->read_record(pos, whole_);
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
