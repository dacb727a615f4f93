// The items of a sentence, used again for the next one.
#pragma once

#include <memory>
#include <vector>

#include "parser/chart/p_item.h"

namespace torvane {

class ItemPool {
 public:
  static constexpr int kPoolLimit = 40000;  ///< items a sentence

  ItemPool();
  ItemPool(const ItemPool&) = delete;
  ItemPool& operator=(const ItemPool&) = delete;

  /// A cleared item with a vector of the type; null when the pool is exhausted.
  PItem* new_item(AttInterpreterList* att_type);
  /// The sentence can have no more items.
  bool is_exhausted() const { return items_made_ >= kPoolLimit; }
  /// Counts an item as made that need not be.
  void count() { ++items_made_; }
  /// How many the sentence has; and to forget that there were more, of which none is in use.
  int made() const { return items_made_; }
  void forget_after(int made) { items_made_ = made; }
  /// Takes the item back that was made last, if nobody can have got hold of it. It counts as made.
  void give_back(PItem* item);
  /// Takes all items back. Those that an expression may still have stay what they are until it has
  /// ended.
  void reset() {
    if (lifetimes().expression_waits()) set_aside();
    free_ = static_cast<int>(pool_.size());
    eras_.renew();
    items_made_ = 0;
  }

 private:
  struct Dropped;
  void fetch_ahead() const;
  void set_aside();
  void take_back(std::vector<std::unique_ptr<PItem>>& items);

  std::vector<std::unique_ptr<PItem>> pool_;  // the free ones first
  int free_ = 0;
  int items_made_ = 0;  // of this sentence
  Eras eras_;
};

}  // namespace torvane
