#include "support/lifetime.h"

#include <algorithm>
#include <functional>

#include "support/sanitizer.h"

namespace torvane {

namespace {

// The address sanitizer is to see each text end: there each has a block of its own.
constexpr std::size_t kBlock = kAddressSanitizer ? 0 : 32768;
constexpr std::size_t kMostWaiting = 16;

}  // namespace

void TextStack::take_block(std::size_t bytes) {
  if (in_use_ == blocks_.size()) blocks_.emplace_back();
  Block& block = blocks_[in_use_++];
  if (block.size < bytes) {
    block.size = std::max(kBlock, bytes);
    block.chars = std::make_unique_for_overwrite<char[]>(block.size);
  }
  top_ = block.base = end_;
  stand_on_top();
}

// A block of unusual size does not wait for another text of that size.
void TextStack::drop_blocks(std::size_t top) {
  while (in_use_ > 0 && blocks_[in_use_ - 1].base >= top) {
    Block& block = blocks_[--in_use_];
    if (block.size > kBlock) block = Block();
  }
  if (blocks_.size() > in_use_ + kMostWaiting) blocks_.resize(in_use_ + kMostWaiting);
  stand_on_top();
}

void TextStack::stand_on_top() {
  bool empty = in_use_ == 0;
  const Block* block = empty ? nullptr : &blocks_[in_use_ - 1];
  block_ = empty ? nullptr : block->chars.get();
  base_ = empty ? 0 : block->base;
  end_ = empty ? 0 : base_ + block->size;
  stays_from_ = !empty && block->size == kBlock ? base_ : base_ + 1;
}

std::size_t TextStack::place_of(const char* text) const {
  for (std::size_t i = in_use_; i-- > 0;) {
    const Block& block = blocks_[i];
    if (!std::less<>()(text, block.chars.get()) &&
        std::less<>()(text, block.chars.get() + block.size))
      return block.base + static_cast<std::size_t>(text - block.chars.get());
  }
  return top();
}

Lifetimes::~Lifetimes() {
  LivesIn here(*this);
  end_all();
}

void Lifetimes::end_dropped(std::uint64_t from_birth, std::size_t from) {
  std::size_t kept = from;
  // What ends may drop more.
  for (std::size_t i = from; i < dropped_.size(); ++i) {
    Dropped thing = dropped_[i];
    if (thing.birth < from_birth) {
      dropped_[kept++] = thing;
    } else {
      thing.end(thing.word);
    }
  }
  dropped_.resize(kept);
  dropped_count_ = kept;
}

void Lifetimes::end_things() {
  if (dropped_count_ != open_.dropped) end_dropped(open_.start, open_.dropped);
  open_.dropped = dropped_count_;
  drop_texts(open_.texts);
}

// Texts of the turn are no more: whoever remembers it must not look at them.
void Lifetimes::drop_texts(std::size_t top) {
  texts_.cut(top);
  open_.turn = ++clock_;
}

void Lifetimes::end_all() {
  if (!dropped_.empty()) end_dropped(0, 0);
  for (Open& open : outer_) {
    open.turn = ++clock_;
    open.dropped = open.texts = 0;
  }
  open_.dropped = open_.texts = 0;
  drop_texts(0);
}

Lifetimes::Turn Lifetimes::turn_of_kept(const char* text) const {
  std::size_t place = texts_.place_of(text);
  std::size_t depth = outer_.size();
  while (depth > 0 && at(depth).texts > place) --depth;
  return {static_cast<std::uint32_t>(depth), at(depth).turn};
}

}  // namespace torvane
