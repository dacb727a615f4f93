// A copy-on-write set of small numbers that may be infinite: every bit beyond the words has the
// value of the tail, so the complement of a finite set is exact.
#pragma once

#include <cstdint>

#include "support/str_bufs.h"

namespace torvane {

/// The shared part of an LBitSet. Reps are pooled: making and dropping sets of the usual sizes does
/// not reach the allocator.
struct LBitSetRep {
  std::int32_t refcount;
  std::uint32_t* words;  ///< bit i is bit i & 31 of word i >> 5
  std::int32_t word_count;
  std::uint8_t complement;  ///< the value of every bit beyond the words
  std::int32_t capacity;    ///< words that the block holds; for the pool
};

class LBitSet {
 public:
  LBitSet() = default;  ///< the empty set, no rep
  explicit LBitSet(int nbits);
  LBitSet(const LBitSet& other) : rep_(other.rep_) {
    if (rep_) ++rep_->refcount;
  }
  LBitSet(LBitSet&& other) noexcept : rep_(other.rep_) { other.rep_ = nullptr; }
  LBitSet& operator=(const LBitSet& other);
  LBitSet& operator=(LBitSet&& other) noexcept;
  ~LBitSet() { drop_rep(); }

  bool test(int i) const {
    if (!rep_ || i < 0) return false;
    return (i >> 5) < rep_->word_count ? (rep_->words[i >> 5] >> (i & 31)) & 1
                                       : rep_->complement != 0;
  }
  void set(int i);
  void clear(int i);
  /// The bits lo..hi; with hi below lo a message and no change.
  void set(int lo, int hi);
  // Part of the interface; nothing in the engine calls it yet.
  void clear(int lo, int hi);
  /// Empties a set sized for nbits and sets the bits of `list`, which ends at the first value
  /// outside 0..nbits-1.
  // Part of the interface; nothing in the engine calls it yet.
  void init(int nbits, const int* list);
  void reset();  ///< the empty set

  LBitSet complement() const;
  LBitSet operator&(const LBitSet& other) const;
  LBitSet operator|(const LBitSet& other) const;
  LBitSet& operator&=(const LBitSet& other);
  LBitSet& operator|=(const LBitSet& other);
  bool operator==(const LBitSet& other) const;
  bool subset_of(const LBitSet& other) const;
  /// 0 equal; 1 this is a proper superset; -1 a proper subset (the empty set is one of every
  /// other); -2 disjoint; 2 overlapping without inclusion.
  // Part of the interface; nothing in the engine calls it yet.
  int compare(const LBitSet& other) const;
  /// The number of set bits within the words.
  // Part of the interface; nothing in the engine calls it yet.
  int count() const;
  bool is_empty() const;
  int word_count() const { return rep_ ? rep_->word_count : 0; }
  std::uint32_t word(int w) const {
    if (!rep_) return 0;
    return w < rep_->word_count ? rep_->words[w] : (rep_->complement ? ~0u : 0u);
  }
  bool has_tail() const { return rep_ && rep_->complement; }
  /// Makes the bits of `mask` in word w as they are in `bits`, for work on many bits at once.
  void put_word(int w, std::uint32_t mask, std::uint32_t bits) {
    if (((word(w) ^ bits) & mask) == 0) return;
    if (rep_ == nullptr || rep_->refcount > 1 || w >= rep_->word_count) own(w + 1);
    rep_->words[w] = (rep_->words[w] & ~mask) | (bits & mask);
  }

  /// 16-bit word count and the words, big-endian. The tail is not written.
  void pack(StrBufs& out) const;
  /// Reads from `p`, never past `end`; advances `p`. False if the bytes run out.
  bool unpack(const char*& p, const char* end);

 private:
  void drop_rep();
  void own(int words);  // a private rep of at least so many words

  LBitSetRep* rep_ = nullptr;
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
