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
LBitSetRep* take_rep(int words, bool tail) {
  int capacity = std::max(4, (words + 3) & ~3);
  auto* rep = static_cast<LBitSetRep*>(BlockPool::take(block_words(capacity)));
  rep->words = reinterpret_cast<std::uint32_t*>(rep + 1);
  rep->capacity = capacity;
  rep->refcount = 1;
  rep->word_count = words;
  rep->complement = tail;
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
  if (nbits < 1) return;
  int words = ((nbits - 1) >> 5) + 1;
  rep_ = take_rep(words, false);
  std::fill_n(rep_->words, words, 0u);
}

LBitSet& LBitSet::operator=(const LBitSet& other) {
  return *this = LBitSet(other);
}

LBitSet& LBitSet::operator=(LBitSet&& other) noexcept {
  std::swap(rep_, other.rep_);
  return *this;
}

void LBitSet::drop_rep() {
  if (rep_ && --rep_->refcount == 0) give_rep(rep_);
}

// The words beyond the old ones take the value of the tail.
void LBitSet::own(int words) {
  int had = word_count();
  words = std::max(words, had);
  if (rep_ && rep_->refcount == 1 && rep_->capacity >= words) {
    std::fill(rep_->words + had, rep_->words + words, tail_word(rep_->complement));
    rep_->word_count = words;
    return;
  }
  bool tail = has_tail();
  LBitSetRep* fresh = take_rep(words, tail);
  if (had > 0) std::copy_n(rep_->words, had, fresh->words);
  std::fill(fresh->words + had, fresh->words + words, tail_word(tail));
  drop_rep();
  rep_ = fresh;
}

void LBitSet::set(int i) {
  if (i < 0 || test(i)) return;
  own((i >> 5) + 1);
  rep_->words[i >> 5] |= 1u << (i & 31);
}

void LBitSet::clear(int i) {
  if (i < 0 || !test(i)) return;
  own((i >> 5) + 1);
  rep_->words[i >> 5] &= ~(1u << (i & 31));
}

void LBitSet::set(int lo, int hi) {
  if (hi < lo) {
    messages() << "LBitSetRep::set(" << lo << ", " << hi << ")\n";
    return;
  }
  lo = std::max(lo, 0);
  if (has_tail()) hi = std::min(hi, word_count() * 32 - 1);
  if (hi < lo) return;
  own((hi >> 5) + 1);
  for (int w = lo >> 5; w <= hi >> 5; ++w)
    rep_->words[w] |= run_of_bits(w == lo >> 5 ? lo & 31 : 0, w == hi >> 5 ? hi & 31 : 31);
}

void LBitSet::clear(int lo, int hi) {
  if (hi < lo) {
    messages() << "LBitSetRep::clear(" << lo << ", " << hi << ")\n";
    return;
  }
  lo = std::max(lo, 0);
  if (!has_tail()) hi = std::min(hi, word_count() * 32 - 1);
  if (hi < lo) return;
  own((hi >> 5) + 1);
  for (int w = lo >> 5; w <= hi >> 5; ++w)
    rep_->words[w] &= ~run_of_bits(w == lo >> 5 ? lo & 31 : 0, w == hi >> 5 ? hi & 31 : 31);
}

void LBitSet::init(int nbits, const int* list) {
  *this = LBitSet(nbits);
  for (; *list >= 0 && *list < nbits; ++list) set(*list);
}

void LBitSet::reset() {
  drop_rep();
  rep_ = nullptr;
}

LBitSet LBitSet::complement() const {
  LBitSet result;
  result.rep_ = take_rep(word_count(), !has_tail());
  for (int w = 0; w < word_count(); ++w) result.rep_->words[w] = ~rep_->words[w];
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

LBitSet& LBitSet::operator&=(const LBitSet& other) {
  if (!rep_ || rep_ == other.rep_) return *this;
  if (!other.rep_) {
    reset();
    return *this;
  }
  // Words beyond a finite set can only be zero: they need no room.
  bool changes = has_tail() && (!other.has_tail() || other.word_count() > word_count());
  for (int w = 0; w < word_count() && !changes; ++w)
    changes = (rep_->words[w] & ~other.word(w)) != 0;
  if (!changes) return *this;
  own(has_tail() ? other.word_count() : 0);
  for (int w = 0; w < rep_->word_count; ++w) rep_->words[w] &= other.word(w);
  rep_->complement = rep_->complement && other.has_tail();
  return *this;
}

LBitSet& LBitSet::operator|=(const LBitSet& other) {
  if (!other.rep_ || rep_ == other.rep_) return *this;
  if (!rep_) return *this = other;
  bool changes = !has_tail() && (other.has_tail() || other.word_count() > word_count());
  for (int w = 0; w < word_count() && !changes; ++w)
    changes = (other.word(w) & ~rep_->words[w]) != 0;
  if (!changes) return *this;
  own(has_tail() ? 0 : other.word_count());
  for (int w = 0; w < rep_->word_count; ++w) rep_->words[w] |= other.word(w);
  rep_->complement = rep_->complement || other.has_tail();
  return *this;
}

bool LBitSet::operator==(const LBitSet& other) const {
  if (rep_ == other.rep_) return true;
  if (has_tail() != other.has_tail()) return false;
  int words = std::max(word_count(), other.word_count());
  for (int w = 0; w < words; ++w)
    if (word(w) != other.word(w)) return false;
  return true;
}

bool LBitSet::subset_of(const LBitSet& other) const {
  if (has_tail() && !other.has_tail()) return false;
  int words = std::max(word_count(), other.word_count());
  for (int w = 0; w < words; ++w)
    if (word(w) & ~other.word(w)) return false;
  return true;
}

int LBitSet::compare(const LBitSet& other) const {
  if (rep_ == other.rep_) return 0;
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
  for (int w = 0; w < word_count(); ++w) n += std::popcount(rep_->words[w]);
  return n;
}

bool LBitSet::is_empty() const {
  if (has_tail()) return false;
  for (int w = 0; w < word_count(); ++w)
    if (rep_->words[w]) return false;
  return true;
}

void LBitSet::pack(StrBufs& out) const {
  out.add_be16(static_cast<std::uint16_t>(word_count()));
  int words = word_count() & 0xffff;
  for (int w = 0; w < words; ++w) out.add_be32(rep_->words[w]);
}

bool LBitSet::unpack(const char*& p, const char* end) {
  reset();
  if (end - p < 2) return false;
  int words = load_be16(p);
  if ((end - p - 2) / 4 < words) return false;
  p += 2;
  if (words == 0) return true;
  rep_ = take_rep(words, false);
  for (int w = 0; w < words; ++w, p += 4) rep_->words[w] = load_be32(p);
  return true;
}

}  // namespace torvane
