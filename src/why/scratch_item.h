// A copy of an item that may be tried out: what a condition does to it stays with it.
#pragma once

#include "parser/chart/p_item.h"

namespace torvane {

class ScratchItem {
 public:
  explicit ScratchItem(const PItem& like) : item_(like) {
    item_._atts = make_ref<AttVec>(*like._atts);
    item_._atts->era = like._atts->era;
    item_._next = nullptr;
    item_.stored_in = nullptr;
    item_.chain = nullptr;
    item_.forest = 0;
  }
  PItem& operator*() { return item_; }
  PItem* operator->() { return &item_; }

 private:
  PItem item_;
};

}  // namespace torvane
