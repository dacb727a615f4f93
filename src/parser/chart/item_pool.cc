#include "parser/chart/item_pool.h"

#include <iterator>
#include <utility>

namespace torvane {
namespace {

constexpr int kPoolReserve = 2000;

}  // namespace

ItemPool::ItemPool() {
  pool_.reserve(kPoolReserve);
}

// A sentence's items come in the order in which those of the last one were given back, too many to
// have stayed in the near caches. So their memory is sent for some items ahead: first an item, then
// the vector that it leads to, then the vector's block.
void ItemPool::fetch_ahead() const {
  if (free_ < 4) return;
  auto fetch = [](const void* block, std::size_t lines) {
    for (std::size_t i = 0; i < lines; ++i)
      __builtin_prefetch(static_cast<const char*>(block) + 64 * i, 1);
  };
  const auto next = pool_.begin() + free_ - 1;
  fetch(next[-3].get(), 2);
  fetch(next[-2]->_atts.get(), 2);
  if (const AttVec* atts = next[-1]->_atts.get()) fetch(atts->long_values, 3);
}

PItem* ItemPool::new_item(AttInterpreterList* att_type) {
  bool reused = free_ > 0;
  // Kept: items-run-out-silently
  if (is_exhausted()) return nullptr;
  if (!reused) pool_.push_back(std::make_unique<PItem>());
  PItem* item = reused ? pool_[--free_].get() : pool_.back().get();
  fetch_ahead();
  Ref<AttVec> atts = std::move(item->_atts);
  *item = PItem();
  // A vector that a variable still holds stays with it.
  if (atts && !atts->shared() && atts->interpreters == att_type) {
    atts->clear_all();
  } else {
    atts = make_ref<AttVec>(att_type);
  }
  if (atts->era.get() != eras_.now()) atts->era = Ref<Era>(eras_.now());
  item->_atts = std::move(atts);
  item->order = ++items_made_;
  return item;
}

void ItemPool::give_back(PItem* item) {
  if (eras_.now()->is_held()) return;
  if (pool_[static_cast<std::size_t>(free_)].get() == item) {
    ++free_;
  } else if (free_ == 0 && pool_.back().get() == item) {
    pool_.front().swap(pool_.back());
    ++free_;
  }
}

// Items that an expression may still have, as they were.
struct ItemPool::Dropped {
  ItemPool& pool;
  std::vector<std::unique_ptr<PItem>> items;

  ~Dropped() { pool.take_back(items); }
};

void ItemPool::set_aside() {
  auto used = pool_.begin() + free_;
  std::unique_ptr<Dropped> dropped(new Dropped{*this, {}});
  dropped->items.assign(std::move_iterator(used), std::move_iterator(pool_.end()));
  pool_.erase(used, pool_.end());
  drop(std::move(dropped), eras_.birth());
}

void ItemPool::take_back(std::vector<std::unique_ptr<PItem>>& items) {
  for (std::unique_ptr<PItem>& item : items) {
    pool_.push_back(std::move(item));
    pool_.back().swap(pool_[static_cast<std::size_t>(free_++)]);
  }
}

}  // namespace torvane
