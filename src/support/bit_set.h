// A copy-on-write set of small numbers that may be infinite: every bit beyond the words has the
// value of the tail, so the complement of a finite set is exact.
#pragma once

#include <cstdint>
#include <utility>

#include "support/str_bufs.h"

namespace torvane {

/// The shared part of a large LBitSet. Reps are pooled: making and dropping sets of the usual sizes
/// does not reach the allocator.
struct LBitSetRep {
  std::int32_t refcount;
  std::uint32_t* words;   ///< bit i is bit i & 31 of word i >> 5
  std::int32_t capacity;  ///< words that the block holds; for the pool
};

/// Two words stand in the set itself, which is what attribute types usually need: a vector's sets
/// are read without another look at memory, and both words at once.
class LBitSet {
 public:
  LBitSet() = default;  ///< the empty set
  explicit LBitSet(int nbits);
  LBitSet(const LBitSet& other)
      : part_(other.part_), word_count_(other.word_count_), complement_(other.complement_) {
    if (has_rep()) ++part_.rep->refcount;
  }
  LBitSet(LBitSet&& other) noexcept
      : part_(other.part_), word_count_(other.word_count_), complement_(other.complement_) {
    other.part_ = {{0, 0}};
    other.word_count_ = 0;
    other.complement_ = false;
  }
  LBitSet& operator=(const LBitSet& other) {
    if (has_rep() || other.has_rep()) {
      LBitSet(other).swap(*this);
    } else {
      part_ = other.part_;
      word_count_ = other.word_count_;
      complement_ = other.complement_;
    }
    return *this;
  }
  LBitSet& operator=(LBitSet&& other) noexcept {
    swap(other);
    return *this;
  }
  ~LBitSet() {
    if (has_rep()) drop_rep();
  }

  bool test(int i) const { return i >= 0 && ((word(i >> 5) >> (i & 31)) & 1); }
  void set(int i) {
    if (i >= 0 && !test(i)) own((i >> 5) + 1)[i >> 5] |= 1u << (i & 31);
  }
  void clear(int i) {
    if (i >= 0 && test(i)) own((i >> 5) + 1)[i >> 5] &= ~(1u << (i & 31));
  }
  /// The bits lo..hi; with hi below lo a message and no change.
  void set(int lo, int hi);
  // Part of the interface; nothing in the engine calls it yet.
  void clear(int lo, int hi);
  /// Empties a set sized for nbits and sets the bits of `list`, which ends at the first value
  /// outside 0..nbits-1.
  // Part of the interface; nothing in the engine calls it yet.
  void init(int nbits, const int* list);
  /// The empty set.
  void reset() {
    if (has_rep()) drop_rep();
    part_ = {{0, 0}};
    word_count_ = 0;
    complement_ = false;
  }

  LBitSet complement() const;
  LBitSet operator&(const LBitSet& other) const;
  LBitSet operator|(const LBitSet& other) const;
  LBitSet& operator&=(const LBitSet& other) {
    if (has_rep() || other.has_rep() || complement_ || other.is_none()) {
      intersect(other);
    } else {
      part_.within[0] &= other.part_.within[0];
      part_.within[1] &= other.part_.within[1];
    }
    return *this;
  }
  LBitSet& operator|=(const LBitSet& other);
  bool operator==(const LBitSet& other) const;
  bool subset_of(const LBitSet& other) const {
    if (has_rep() || other.has_rep() || complement_) return is_within(other);
    return (pair(0) & ~other.pair(0)) == 0;
  }
  /// 0 equal; 1 this is a proper superset; -1 a proper subset (the empty set is one of every
  /// other); -2 disjoint; 2 overlapping without inclusion.
  // Part of the interface; nothing in the engine calls it yet.
  int compare(const LBitSet& other) const;
  /// The number of set bits within the words.
  // Part of the interface; nothing in the engine calls it yet.
  int count() const;
  bool is_empty() const { return has_rep() ? has_no_words() : !complement_ && pair(0) == 0; }
  int word_count() const { return word_count_; }
  std::uint32_t word(int w) const {
    if (w < kWithin && !has_rep()) return part_.within[w];
    return w < word_count_ ? part_.rep->words[w] : (complement_ ? ~0u : 0u);
  }
  bool has_tail() const { return complement_; }
  /// Makes the bits of `mask` in word w as they are in `bits`, for work on many bits at once.
  void put_word(int w, std::uint32_t mask, std::uint32_t bits) {
    if (((word(w) ^ bits) & mask) == 0) return;
    std::uint32_t* mine = own(w + 1);
    mine[w] = (mine[w] & ~mask) | (bits & mask);
  }

  /// Two words as one number, for work on many bits at once: words 2p and, above it, 2p + 1.
  std::uint64_t pair(int p) const {
    if (p == 0 && !has_rep()) return part_.within[0] | std::uint64_t{part_.within[1]} << 32;
    return word(2 * p) | std::uint64_t{word(2 * p + 1)} << 32;
  }
  /// The pairs that the words fill.
  int pair_count() const { return (word_count_ + 1) >> 1; }
  void put_pair(int p, std::uint64_t mask, std::uint64_t bits) {
    put_word(2 * p, static_cast<std::uint32_t>(mask), static_cast<std::uint32_t>(bits));
    if (mask >> 32)
      put_word(2 * p + 1, static_cast<std::uint32_t>(mask >> 32),
               static_cast<std::uint32_t>(bits >> 32));
  }

  /// 16-bit word count and the words, big-endian. The tail is not written.
  void pack(StrBufs& out) const;
  /// Reads from `p`, never past `end`; advances `p`. False if the bytes run out.
  bool unpack(const char*& p, const char* end);

 private:
  static constexpr int kWithin = 2;

  bool has_rep() const { return word_count_ > kWithin; }
  const std::uint32_t* words() const { return has_rep() ? part_.rep->words : part_.within; }
  bool is_none() const { return word_count_ == 0 && !complement_; }
  bool same_rep(const LBitSet& other) const {
    return has_rep() && other.has_rep() && part_.rep == other.part_.rep;
  }
  void swap(LBitSet& other) noexcept {
    std::swap(part_, other.part_);
    std::swap(word_count_, other.word_count_);
    std::swap(complement_, other.complement_);
  }
  void drop_rep();
  void intersect(const LBitSet& other);
  bool is_within(const LBitSet& other) const;
  bool has_no_words() const;
  void set_tail(bool tail);
  /// The words, at least so many, of no other set.
  std::uint32_t* own(int words) {
    return words <= word_count_ && !has_rep() ? part_.within : grow(words);
  }
  std::uint32_t* grow(int words);

  union {
    std::uint32_t within[kWithin];  // those beyond the words are as the tail
    LBitSetRep* rep;
  } part_ = {{0, 0}};
  std::int32_t word_count_ = 0;
  bool complement_ = false;  // the value of every bit beyond the words
};

/// Yields the set bits within the words, ascending, then -1. It walks the set as it was at the
/// start.
class LBitSetIterator {
 public:
  explicit LBitSetIterator(const LBitSet& set) : set_(set), bits_(set.word(0)) {
    if (set_.word_count() == 0) bits_ = 0;
  }
  int next() {
    while (bits_ == 0) {
      if (++word_ >= set_.word_count()) return -1;
      bits_ = set_.word(word_);
    }
    int bit = __builtin_ctz(bits_);
    bits_ &= bits_ - 1;
    return word_ * 32 + bit;
  }

 private:
  LBitSet set_;
  int word_ = 0;
  std::uint32_t bits_;
};

}  // namespace torvane
