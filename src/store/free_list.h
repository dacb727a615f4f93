// The free extents of a block file: ascending, no two touching, and the first that is large enough
// found without a walk over all that are not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace torvane {

struct FreeExtent {
  std::uint32_t pos;
  std::uint32_t length;  ///< in bytes

  std::uint32_t end() const { return pos + length; }
};

class FreeList {
 public:
  bool empty() const { return count_ == 0; }
  std::size_t count() const { return count_; }
  FreeExtent front() const { return chunks_.front().extents.front(); }
  FreeExtent back() const { return chunks_.back().extents.back(); }
  void clear();
  /// Takes the place of what was there, as it is.
  void assign(std::span<const FreeExtent> extents);
  /// At the end, as it is.
  void append(FreeExtent extent);
  /// Takes the front of the first extent that is long enough; its position, 0 if there is none.
  std::uint32_t take(std::uint32_t length);
  /// Takes a stretch out of the extent that it lies in.
  void take_at(std::uint32_t pos, std::uint32_t length);
  /// Gives a stretch back that overlaps none; it is joined with those that it touches.
  void add(std::uint32_t pos, std::uint32_t length);
  bool overlaps(std::uint32_t pos, std::uint32_t length) const;
  /// Calls `visit(extent)` in order.
  template <class Visit>
  void for_each(Visit visit) const {
    for (const Chunk& chunk : chunks_)
      for (const FreeExtent& extent : chunk.extents) visit(extent);
  }

 private:
  // Extents in short rows, so that none is far to move, each row with the length of its longest.
  struct Chunk {
    std::vector<FreeExtent> extents;
    std::uint32_t longest = 0;
  };
  struct Place {
    std::size_t chunk;
    std::size_t index;
  };
  static constexpr std::size_t kMostInChunk = 256;

  /// Of the first extent that ends beyond `pos`; after the last one if there is none.
  Place place_of(std::uint32_t pos) const;
  void insert(Place at, FreeExtent extent);
  void drop(Place at);
  void resize(Place at, FreeExtent extent);
  void measure(std::size_t chunk);

  std::vector<Chunk> chunks_;  // none empty
  std::size_t count_ = 0;
};

}  // namespace torvane
