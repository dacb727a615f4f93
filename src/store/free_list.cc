#include "store/free_list.h"

#include <algorithm>

namespace torvane {

void FreeList::clear() {
  chunks_.clear();
  count_ = 0;
}

void FreeList::assign(std::span<const FreeExtent> extents) {
  clear();
  count_ = extents.size();
  for (; !extents.empty(); extents = extents.subspan(chunks_.back().extents.size())) {
    auto row = extents.first(std::min(extents.size(), kMostInChunk));
    chunks_.emplace_back().extents.assign(row.begin(), row.end());
    measure(chunks_.size() - 1);
  }
}

void FreeList::append(FreeExtent extent) {
  if (chunks_.empty()) {
    insert({0, 0}, extent);
  } else {
    insert({chunks_.size() - 1, chunks_.back().extents.size()}, extent);
  }
}

std::uint32_t FreeList::take(std::uint32_t length) {
  auto chunk = std::find_if(chunks_.begin(), chunks_.end(),
                            [length](const Chunk& c) { return c.longest >= length; });
  if (chunk == chunks_.end()) return 0;
  auto found = std::find_if(chunk->extents.begin(), chunk->extents.end(),
                            [length](const FreeExtent& e) { return e.length >= length; });
  std::uint32_t pos = found->pos;
  Place at{static_cast<std::size_t>(chunk - chunks_.begin()),
           static_cast<std::size_t>(found - chunk->extents.begin())};
  if (found->length == length)
    drop(at);
  else
    resize(at, {pos + length, found->length - length});
  return pos;
}

void FreeList::take_at(std::uint32_t pos, std::uint32_t length) {
  Place at = place_of(pos);
  FreeExtent extent = chunks_[at.chunk].extents[at.index];
  FreeExtent behind{pos + length, extent.end() - pos - length};
  extent.length = pos - extent.pos;
  if (extent.length == 0 && behind.length == 0) {
    drop(at);
    return;
  }
  resize(at, extent.length > 0 ? extent : behind);
  if (extent.length > 0 && behind.length > 0) insert({at.chunk, at.index + 1}, behind);
}

void FreeList::add(std::uint32_t pos, std::uint32_t length) {
  Place next = place_of(pos);
  bool has_next = next.chunk < chunks_.size();
  // Joined with the one after it, it may still touch the one in front.
  if (has_next && chunks_[next.chunk].extents[next.index].pos == pos + length) {
    length += chunks_[next.chunk].extents[next.index].length;
    drop(next);
    next = place_of(pos);
  }
  if (next.chunk == chunks_.size() && next.chunk > 0)
    next = {next.chunk - 1, chunks_.back().extents.size()};
  Place before = next;
  if (before.index == 0 && before.chunk > 0)
    before = {before.chunk - 1, chunks_[before.chunk - 1].extents.size()};
  if (before.index > 0) {
    --before.index;
    FreeExtent extent = chunks_[before.chunk].extents[before.index];
    if (extent.end() == pos) {
      resize(before, {extent.pos, extent.length + length});
      return;
    }
  }
  insert(next, {pos, length});
}

bool FreeList::overlaps(std::uint32_t pos, std::uint32_t length) const {
  Place next = place_of(pos);
  return next.chunk < chunks_.size() && chunks_[next.chunk].extents[next.index].pos < pos + length;
}

FreeList::Place FreeList::place_of(std::uint32_t pos) const {
  auto beyond = [](const FreeExtent& extent, std::uint32_t place) { return extent.end() <= place; };
  auto chunk = std::lower_bound(
      chunks_.begin(), chunks_.end(), pos,
      [&](const Chunk& c, std::uint32_t place) { return beyond(c.extents.back(), place); });
  if (chunk == chunks_.end()) return {chunks_.size(), 0};
  auto found = std::lower_bound(chunk->extents.begin(), chunk->extents.end(), pos, beyond);
  // An unsorted list, as a damaged file can have it, may mislead the search.
  if (found == chunk->extents.end()) --found;
  return {static_cast<std::size_t>(chunk - chunks_.begin()),
          static_cast<std::size_t>(found - chunk->extents.begin())};
}

void FreeList::insert(Place at, FreeExtent extent) {
  if (chunks_.empty()) chunks_.emplace_back();
  Chunk& chunk = chunks_[at.chunk];
  chunk.extents.insert(chunk.extents.begin() + static_cast<std::ptrdiff_t>(at.index), extent);
  chunk.longest = std::max(chunk.longest, extent.length);
  ++count_;
  if (chunk.extents.size() <= kMostInChunk) return;
  // Appended to, a row stays full; else it is cut in the middle.
  std::size_t keep = at.index == kMostInChunk ? kMostInChunk : kMostInChunk / 2;
  Chunk rest;
  rest.extents.assign(chunk.extents.begin() + static_cast<std::ptrdiff_t>(keep),
                      chunk.extents.end());
  chunk.extents.resize(keep);
  chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(at.chunk) + 1, std::move(rest));
  measure(at.chunk);
  measure(at.chunk + 1);
}

void FreeList::drop(Place at) {
  std::vector<FreeExtent>& extents = chunks_[at.chunk].extents;
  extents.erase(extents.begin() + static_cast<std::ptrdiff_t>(at.index));
  --count_;
  if (extents.empty())
    chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(at.chunk));
  else
    measure(at.chunk);
}

void FreeList::resize(Place at, FreeExtent extent) {
  chunks_[at.chunk].extents[at.index] = extent;
  measure(at.chunk);
}

void FreeList::measure(std::size_t chunk) {
  Chunk& row = chunks_[chunk];
  row.longest = 0;
  for (const FreeExtent& extent : row.extents) row.longest = std::max(row.longest, extent.length);
}

}  // namespace torvane
