#include "support/bit_set.h"

#include <algorithm>
#include <bit>

#include "support/big_endian.h"
#include "support/messages.h"
#include "support/pool.h"

namespace torvane {

namespace {

std::size_t block_words(int capacity) {
  return BlockPool::words_for(sizeof(LBitSetRep) +
                              sizeof(std::uint32_t) * static_cast<std::size_t>(capacity));
}

// The capacity comes in steps of four words, so that few sizes of blocks wait in the pool.
LBitSetRep* take_rep(int words) {
  int capacity = (words + 3) & ~3;
  auto* rep = static_cast<LBitSetRep*>(BlockPool::take(block_words(capacity)));
  rep->words = reinterpret_cast<std::uint32_t*>(rep + 1);
  rep->capacity = capacity;
  rep->refcount = 1;
  return rep;
}

void give_rep(LBitSetRep* rep) {
  BlockPool::give(rep, block_words(rep->capacity));
}

std::uint32_t tail_word(bool tail) {
  return tail ? ~0u : 0u;
}

// Bits lo..hi of one word, both within 0..31.
std::uint32_t run_of_bits(int lo, int hi) {
  return (~0u << lo) & (~0u >> (31 - hi));
}

}  // namespace

LBitSet::LBitSet(int nbits) {
  if (nbits > 0) own(((nbits - 1) >> 5) + 1);
}

// Of a set that has few words, those that it does not have are as the tail.
void LBitSet::set_tail(bool tail) {
  complement_ = tail;
  if (!has_rep()) std::fill(part_.within + word_count_, part_.within + kWithin, tail_word(tail));
}

void LBitSet::drop_rep() {
  if (--part_.rep->refcount == 0) give_rep(part_.rep);
}

// The words beyond the old ones take the value of the tail.
std::uint32_t* LBitSet::grow(int words) {
  const int had = word_count_;
  words = std::max(words, had);
  const bool fits =
      words <= kWithin || (has_rep() && part_.rep->refcount == 1 && part_.rep->capacity >= words);
  if (!fits) {
    LBitSetRep* fresh = take_rep(words);
    std::copy_n(this->words(), had, fresh->words);
    if (has_rep()) drop_rep();
    part_.rep = fresh;
  }
  word_count_ = words;
  std::uint32_t* mine = has_rep() ? part_.rep->words : part_.within;
  std::fill(mine + had, mine + words, tail_word(complement_));
  return mine;
}

void LBitSet::set(int lo, int hi) {
  if (hi < lo) {
    messages() << "LBitSetRep::set(" << lo << ", " << hi << ")\n";
    return;
  }
  lo = std::max(lo, 0);
  if (has_tail()) hi = std::min(hi, word_count() * 32 - 1);
  if (hi < lo) return;
  std::uint32_t* mine = own((hi >> 5) + 1);
  for (int w = lo >> 5; w <= hi >> 5; ++w)
    mine[w] |= run_of_bits(w == lo >> 5 ? lo & 31 : 0, w == hi >> 5 ? hi & 31 : 31);
}

void LBitSet::clear(int lo, int hi) {
  if (hi < lo) {
    messages() << "LBitSetRep::clear(" << lo << ", " << hi << ")\n";
    return;
  }
  lo = std::max(lo, 0);
  if (!has_tail()) hi = std::min(hi, word_count() * 32 - 1);
  if (hi < lo) return;
  std::uint32_t* mine = own((hi >> 5) + 1);
  for (int w = lo >> 5; w <= hi >> 5; ++w)
    mine[w] &= ~run_of_bits(w == lo >> 5 ? lo & 31 : 0, w == hi >> 5 ? hi & 31 : 31);
}

void LBitSet::init(int nbits, const int* list) {
  *this = LBitSet(nbits);
  for (; *list >= 0 && *list < nbits; ++list) set(*list);
}

LBitSet LBitSet::complement() const {
  LBitSet result;
  std::uint32_t* theirs = result.own(word_count());
  for (int w = 0; w < word_count(); ++w) theirs[w] = ~words()[w];
  result.set_tail(!complement_);
  return result;
}

LBitSet LBitSet::operator&(const LBitSet& other) const {
  LBitSet result = *this;
  result &= other;
  return result;
}

LBitSet LBitSet::operator|(const LBitSet& other) const {
  LBitSet result = *this;
  result |= other;
  return result;
}

void LBitSet::intersect(const LBitSet& other) {
  if (is_none() || same_rep(other)) return;
  if (other.is_none()) return reset();
  // Words beyond a finite set can only be zero: they need no room.
  bool changes = has_tail() && (!other.has_tail() || other.word_count() > word_count());
  for (int w = 0; w < word_count() && !changes; ++w) changes = (words()[w] & ~other.word(w)) != 0;
  if (!changes) return;
  std::uint32_t* mine = own(has_tail() ? other.word_count() : 0);
  for (int w = 0; w < word_count(); ++w) mine[w] &= other.word(w);
  set_tail(complement_ && other.has_tail());
}

LBitSet& LBitSet::operator|=(const LBitSet& other) {
  if (other.is_none() || same_rep(other)) return *this;
  if (is_none()) return *this = other;
  bool changes = !has_tail() && (other.has_tail() || other.word_count() > word_count());
  for (int w = 0; w < word_count() && !changes; ++w) changes = (other.word(w) & ~words()[w]) != 0;
  if (!changes) return *this;
  std::uint32_t* mine = own(has_tail() ? 0 : other.word_count());
  for (int w = 0; w < word_count(); ++w) mine[w] |= other.word(w);
  set_tail(complement_ || other.has_tail());
  return *this;
}

bool LBitSet::operator==(const LBitSet& other) const {
  if (same_rep(other)) return true;
  if (has_tail() != other.has_tail()) return false;
  int words = std::max(word_count(), other.word_count());
  for (int w = 0; w < words; ++w)
    if (word(w) != other.word(w)) return false;
  return true;
}

bool LBitSet::is_within(const LBitSet& other) const {
  if (has_tail() && !other.has_tail()) return false;
  int words = std::max(word_count(), other.word_count());
  for (int w = 0; w < words; ++w)
    if (word(w) & ~other.word(w)) return false;
  return true;
}

int LBitSet::compare(const LBitSet& other) const {
  if (same_rep(other)) return 0;
  bool outside = has_tail() && !other.has_tail();        // bits of this outside the other
  bool other_outside = other.has_tail() && !has_tail();  // and the reverse
  bool common = has_tail() && other.has_tail();
  int words = std::max(word_count(), other.word_count());
  for (int w = 0; w < words; ++w) {
    std::uint32_t mine = word(w);
    std::uint32_t theirs = other.word(w);
    outside |= (mine & ~theirs) != 0;
    other_outside |= (theirs & ~mine) != 0;
    common |= (mine & theirs) != 0;
    if (outside && other_outside && common) return 2;
  }
  if (!outside) return other_outside ? -1 : 0;
  if (!other_outside) return 1;
  return common ? 2 : -2;
}

int LBitSet::count() const {
  int n = 0;
  for (int w = 0; w < word_count(); ++w) n += std::popcount(words()[w]);
  return n;
}

bool LBitSet::has_no_words() const {
  if (has_tail()) return false;
  for (int w = 0; w < word_count(); ++w)
    if (words()[w]) return false;
  return true;
}

void LBitSet::pack(StrBufs& out) const {
  out.add_be16(static_cast<std::uint16_t>(word_count()));
  int words = word_count() & 0xffff;
  for (int w = 0; w < words; ++w) out.add_be32(this->words()[w]);
}

bool LBitSet::unpack(const char*& p, const char* end) {
  reset();
  if (end - p < 2) return false;
  int words = load_be16(p);
  if ((end - p - 2) / 4 < words) return false;
  p += 2;
  std::uint32_t* mine = own(words);
  for (int w = 0; w < words; ++w, p += 4) mine[w] = load_be32(p);
  return true;
}

}  // namespace torvane
