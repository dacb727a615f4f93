#include "support/lifetime.h"

#include <algorithm>
#include <cstring>

#include "support/sanitizer.h"

namespace torvane {

namespace {

// The address sanitizer is to see each text end: there each has a block of its own.
constexpr std::size_t kBlock = kAddressSanitizer ? 0 : 32768;
constexpr std::size_t kMostWaiting = 16;

}  // namespace

const char* TextStack::push(std::string_view text) {
  char* copy = room_for(text.size() + 1);
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = 0;
  return copy;
}

char* TextStack::room_for(std::size_t bytes) {
  Block* block = in_use_ > 0 ? &blocks_[in_use_ - 1] : nullptr;
  if (!block || block->base + block->size - top_ < bytes) {
    std::size_t base = block ? block->base + block->size : 0;
    if (in_use_ == blocks_.size()) blocks_.emplace_back();
    block = &blocks_[in_use_++];
    if (block->size < bytes) {
      block->size = std::max(kBlock, bytes);
      block->chars = std::make_unique_for_overwrite<char[]>(block->size);
    }
    block->base = top_ = base;
  }
  char* room = block->chars.get() + (top_ - block->base);
  top_ += bytes;
  return room;
}

// A block of unusual size does not wait for another text of that size.
void TextStack::drop_to(std::size_t top) {
  while (in_use_ > 0 && blocks_[in_use_ - 1].base >= top) {
    Block& block = blocks_[--in_use_];
    if (block.size > kBlock) block = Block();
  }
  if (blocks_.size() > in_use_ + kMostWaiting) blocks_.resize(in_use_ + kMostWaiting);
  top_ = top;
}

std::size_t TextStack::place_of(const char* text) const {
  for (std::size_t i = in_use_; i-- > 0;) {
    const Block& block = blocks_[i];
    if (!std::less<>()(text, block.chars.get()) &&
        std::less<>()(text, block.chars.get() + block.size))
      return block.base + static_cast<std::size_t>(text - block.chars.get());
  }
  return top_;
}

void Lifetimes::end_retired(std::uint64_t from_birth, std::size_t from) {
  std::size_t kept = from;
  // What ends may let go of more.
  for (std::size_t i = from; i < retired_.size(); ++i) {
    Retired thing = retired_[i];
    if (thing.birth < from_birth) {
      retired_[kept++] = thing;
    } else {
      thing.end(thing.word);
    }
  }
  retired_.resize(kept);
}

void Lifetimes::free_all() {
  if (!retired_.empty()) end_retired(0, 0);
  texts_.cut(0);
  for (Open& open : open_) {
    open.turn = ++clock_;
    open.retired = open.texts = 0;
  }
}

Lifetimes::Turn Lifetimes::turn_of_kept(const char* text) const {
  std::size_t place = texts_.place_of(text);
  std::size_t depth = open_.size() - 1;
  while (depth > 0 && open_[depth].texts > place) --depth;
  return {static_cast<std::uint32_t>(depth), open_[depth].turn};
}

}  // namespace torvane
