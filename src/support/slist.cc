#include "support/slist.h"

namespace torvane::slist_detail {

Cell* take_cell() {
  constexpr int kBlock = 1000;
  Cell* block = new Cell[kBlock];
  for (int i = 1; i < kBlock; ++i) free_cell(&block[i]);
  return &block[0];
}

}  // namespace torvane::slist_detail
