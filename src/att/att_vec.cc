#include "att/att_vec.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "att/att_interpreter_list.h"
#include "support/messages.h"
#include "support/pool.h"
#include "support/step_counts.h"

namespace torvane {

namespace {

std::size_t block_words(int longs, int chars) {
  return static_cast<std::size_t>(longs) + BlockPool::words_for(static_cast<std::size_t>(chars)) +
         1;
}

// Counts a vector for the length of a walk over it, so that a nested value which is the vector
// itself is copied before it is changed. Vectors that nobody counts are in no value.
class Hold {
 public:
  explicit Hold(const AttVec& vec) : vec_(vec.refcount > 0 ? &vec : nullptr) {
    if (vec_) vec_->retain();
  }
  ~Hold() {
    if (vec_) vec_->drop();
  }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

 private:
  const AttVec* vec_;
};

// Sets are worked on by pairs of their words: 64 attributes at once.
constexpr int kPair = 64;

inline std::uint64_t masked(const LBitSet& set, const LBitSet* mask, int p) {
  return mask ? set.pair(p) & mask->pair(p) : set.pair(p);
}

Ref<AttVec> copy_of(const AttVec& vec) {
  return make_ref<AttVec>(vec);
}

Ref<AttVecList> copy_of(const AttVecList& list) {
  Ref<AttVecList> copy = AttVecList::make();
  copy->vecs = list.vecs;
  return copy;
}

Ref<TraceChain> copy_of(const TraceChain& chain) {
  Ref<TraceChain> copy = TraceChain::make();
  copy->records = chain.records;
  return copy;
}

bool nothing_in(const LBitSet& set, const LBitSet* mask) {
  for (int p = 0; p < set.pair_count(); ++p)
    if (masked(set, mask, p)) return false;
  return true;
}

}  // namespace

AttVec::AttVec(AttInterpreterList* type) : interpreters(type) {
  if (!type) {
    messages() << "Creating AttVec with nil Interpreter\n";
    return;
  }
  defined = LBitSet(type->count());
  bin_values = LBitSet(type->count());
}

AttVec::AttVec(const AttVec& other) : Counted(other), interpreters(other.interpreters) {
  take_values(other, nullptr);
}

AttVec::AttVec(IRSlist* form, AttInterpreterList* type) : AttVec(type) {
  read(form);
}

AttVec::~AttVec() {
  if (interpreters) drop_values();
  BlockPool::give(long_values, block_words(laid_out_long, laid_out_char));
}

void AttVec::drop_values() {
  for (int p = 0; p < defined.pair_count(); ++p)
    for (std::uint64_t bits = defined.pair(p) & interpreters->counted_atts.pair(p); bits;
         bits &= bits - 1) {
      int index = p * kPair + std::countr_zero(bits);
      const AttSlot& slot = interpreters->slots[index];
      if (slot.at < laid_out_long)
        interpreters->atts[index]->drop(std::exchange(long_values[slot.at], 0));
    }
}

void* AttVec::operator new(std::size_t bytes) {
  return BlockPool::take(BlockPool::words_for(bytes));
}

void AttVec::operator delete(void* block, std::size_t bytes) {
  BlockPool::give(block, BlockPool::words_for(bytes));
}

// Vectors nest as deep as a grammar lets them grow, far deeper than the stack: below a certain
// depth they wait until the outer ones are freed. Depth and list are a thread's own, since they
// limit the use of its stack.
void AttVec::end(AttVec* vec) {
  constexpr int kMostNested = 100;
  static thread_local int depth = 0;
  static thread_local Array<AttVec*> waiting;
  if (depth == kMostNested) {
    waiting.append(vec);
    return;
  }
  ++depth;
  delete vec;
  while (depth == 1 && !waiting.empty()) {
    AttVec* next = waiting.back();
    waiting.pop_back();
    delete next;
  }
  --depth;
}

void AttVec::lay_out() {
  if (!interpreters) return;
  int longs = interpreters->long_count;
  int chars = interpreters->char_count;
  std::size_t words = block_words(longs, chars);
  auto* block = static_cast<AttWord*>(BlockPool::take(words));
  std::fill_n(block, words, AttWord{0});
  auto* bytes = reinterpret_cast<unsigned char*>(block + longs);
  if (long_values) {
    std::copy_n(long_values, laid_out_long, block);
    std::copy_n(small_values, laid_out_char, bytes);
    BlockPool::give(long_values, block_words(laid_out_long, laid_out_char));
  }
  long_values = block;
  small_values = bytes;
  laid_out_long = static_cast<std::int16_t>(longs);
  laid_out_char = static_cast<std::int16_t>(chars);
}

void AttVec::set(int index, AttWord value) {
  AttInterpreter* att = interpreters ? interpreters->at(index) : nullptr;
  if (!att) return;
  att->set(this, value);
  defined.set(index);
}

void AttVec::undefine(int index) {
  if (!has(index)) return;
  defined.clear(index);
  if (interpreters->slots[index].counted()) interpreters->atts[index]->clear(this);
}

// The counted value in the slot of a defined attribute, with no other owner.
template <class T>
T* AttVec::own_value(int index, Holds what) {
  if (!has(index) || interpreters->slots[index].holds != what) return nullptr;
  AttWord& slot = long_values[interpreters->slots[index].at];
  auto* value = reinterpret_cast<T*>(slot);
  if (!value || !value->shared()) return value;
  Ref<T> copy = copy_of(*value);
  value->drop();
  value = copy.leak();
  slot = reinterpret_cast<AttWord>(value);
  return value;
}

AttVec* AttVec::own_vec(int index) {
  return own_value<AttVec>(index, Holds::vec);
}
AttVecList* AttVec::own_list(int index) {
  return own_value<AttVecList>(index, Holds::list);
}
TraceChain* AttVec::own_trace(int index) {
  return own_value<TraceChain>(index, Holds::trace);
}

// The vector is empty and of the other's type. It takes all attributes, or those of the mask.
void AttVec::take_values(const AttVec& other, const LBitSet* mask) {
  count(Step::vector_copied);
  defined = other.defined;
  if (mask) defined &= *mask;
  bin_values = other.bin_values;
  if (!other.long_values) return;
  const std::size_t words = block_words(other.laid_out_long, other.laid_out_char);
  if (!long_values || laid_out_long != other.laid_out_long ||
      laid_out_char != other.laid_out_char) {
    auto* block = static_cast<AttWord*>(BlockPool::take(words));
    BlockPool::give(long_values, block_words(laid_out_long, laid_out_char));
    long_values = block;
    laid_out_long = other.laid_out_long;
    laid_out_char = other.laid_out_char;
    small_values = reinterpret_cast<unsigned char*>(block + laid_out_long);
  }
  std::memcpy(long_values, other.long_values, words * sizeof(AttWord));
  count(Step::byte_copied, words * sizeof(AttWord));
  for (int p = 0; p < other.defined.pair_count(); ++p) {
    const std::uint64_t taken = defined.pair(p);
    for (std::uint64_t bits = other.defined.pair(p) & interpreters->counted_atts.pair(p); bits;
         bits &= bits - 1) {
      const int bit = std::countr_zero(bits);
      const int index = p * kPair + bit;
      AttWord& value = long_values[interpreters->slots[index].at];
      value = (taken >> bit) & 1 ? interpreters->atts[index]->share(value) : 0;
    }
  }
}

void AttVec::clear_all() {
  if (!interpreters) return;
  drop_values();
  defined.reset();
}

void AttVec::show(const AttVec& other, const LBitSet& mask) {
  defined = other.defined;
  defined &= mask;
  bin_values = other.bin_values;
  long_values = other.long_values;
  small_values = other.small_values;
  laid_out_long = other.laid_out_long;
  laid_out_char = other.laid_out_char;
}

void AttVec::show_nothing() {
  defined.reset();
  long_values = nullptr;
  small_values = nullptr;
  laid_out_long = laid_out_char = 0;
}

void AttVec::copy_from(const AttVec& other) {
  if (this == &other) return;
  Hold hold(other);
  clear_all();
  if (interpreters != other.interpreters) {
    BlockPool::give(long_values, block_words(laid_out_long, laid_out_char));
    long_values = nullptr;
    small_values = nullptr;
    laid_out_long = laid_out_char = 0;
    interpreters = other.interpreters;
  }
  take_values(other, nullptr);
}

// One attribute of `other` that is not binary.
inline bool AttVec::unify_slot(const AttVec& other, int index, bool is_defined, bool store) {
  const AttSlot& slot = interpreters->slots[index];
  AttWord value = other.word_at(slot);
  if (is_defined) {
    if (slot.plain && word_at(slot) == value) return true;
  } else if (!slot.counted()) {
    if (slot.storage == Storage::byte)
      small_values[slot.at] = static_cast<unsigned char>(value);
    else
      long_values[slot.at] = value;
    return true;
  } else {
    interpreters->atts[index]->set(this, value);
    return true;
  }
  return interpreters->atts[index]->unify(this, index, value, store) != 0;
}

// The attributes `bits` of pair p. The binary ones are one operation, but what stands behind the
// first failure in index order must stay as it is.
template <bool store>
inline bool AttVec::unify_pair(const AttVec& other, int p, std::uint64_t bits) {
  const std::uint64_t mine = defined.pair(p);
  const std::uint64_t binary = bits & interpreters->binary_atts.pair(p);
  const std::uint64_t clash = binary & mine & (bin_values.pair(p) ^ other.bin_values.pair(p));
  if (clash && !store) return false;
  std::uint64_t reached = clash ? (clash & -clash) - 1 : ~std::uint64_t{0};
  std::uint64_t rest = bits & ~binary & reached;
  if (!store) rest &= mine;
  bool ok = clash == 0;
  if (store && rest &&
      (laid_out_long < interpreters->long_count || laid_out_char < interpreters->char_count))
    lay_out();
  for (; rest; rest &= rest - 1) {
    int bit = std::countr_zero(rest);
    if (unify_slot(other, p * kPair + bit, (mine >> bit) & 1, store)) continue;
    reached = (std::uint64_t{1} << bit) - 1;
    ok = false;
    break;
  }
  if (store) {
    std::uint64_t fresh = bits & ~mine & reached;
    if (fresh & binary) bin_values.put_pair(p, fresh & binary, other.bin_values.pair(p));
    if (fresh) defined.put_pair(p, fresh, fresh);
  }
  return ok;
}

template <bool store>
inline bool AttVec::unify_pairs(const AttVec& other, const LBitSet* mask) {
  for (int p = 0; p < other.defined.pair_count(); ++p) {
    std::uint64_t bits = masked(other.defined, mask, p);
    if (bits && !unify_pair<store>(other, p, bits)) return false;
  }
  return true;
}

// Kept: failed-unify-stays
bool AttVec::unify(const AttVec& other, const LBitSet* mask, bool store) {
  if (interpreters != other.interpreters || !interpreters) return nothing_in(other.defined, mask);
  if (store && defined.is_empty()) {
    if (this != &other) take_values(other, mask);
    return true;
  }
  if (!store) return unify_pairs<false>(other, mask);
  Hold hold(other);
  return unify_pairs<true>(other, mask);
}

// Visits what `other` defines (within the mask); nothing if the types differ.
template <class Visit>
void AttVec::for_each_in(const AttVec& other, const LBitSet* mask, Visit visit) const {
  if (interpreters != other.interpreters || !interpreters) return;
  Hold hold(other);
  for (int p = 0; p < other.defined.pair_count(); ++p)
    for (std::uint64_t bits = masked(other.defined, mask, p); bits; bits &= bits - 1) {
      int index = p * kPair + std::countr_zero(bits);
      visit(*interpreters->atts[index], index);
    }
}

void AttVec::force_unify(const AttVec& other, const LBitSet* mask) {
  for_each_in(other, mask, [&](const AttInterpreter& att, int index) {
    att.unify(this, index, other.get(index), true);
  });
}

void AttVec::modify(const AttVec& other, const LBitSet* mask) {
  for_each_in(other, mask, [&](const AttInterpreter& att, int index) {
    att.modify(this, index, other.get(index));
  });
}

void AttVec::subtract(const AttVec& other, const LBitSet* mask) {
  for_each_in(other, mask, [&](const AttInterpreter& att, int) { att.subtract(this, &other); });
}

void AttVec::generalize(const AttVec& other, const LBitSet* mask) {
  if (!interpreters) return;
  for_each_in(other, mask, [&](const AttInterpreter& att, int) { att.generalize(this, &other); });
  bool same_type = interpreters == other.interpreters;
  for (int p = 0; p < defined.pair_count(); ++p) {
    std::uint64_t lost = masked(defined, mask, p);
    if (same_type) lost &= ~other.defined.pair(p);
    for (; lost; lost &= lost - 1) undefine(p * kPair + std::countr_zero(lost));
  }
}

Subsumption AttVec::compare(const AttVec& other, const LBitSet* mask) const {
  const int pairs = std::max(defined.pair_count(), other.defined.pair_count());
  std::uint64_t outside = 0;        // what this defines and the other does not
  std::uint64_t other_outside = 0;  // and the reverse
  for (int p = 0; p < pairs; ++p) {
    std::uint64_t differing = defined.pair(p) ^ other.defined.pair(p);
    if (mask) differing &= mask->pair(p);
    outside |= differing & defined.pair(p);
    other_outside |= differing & other.defined.pair(p);
  }
  if (outside && other_outside) return Subsumption::incomparable;
  Subsumption result = outside         ? Subsumption::more_specific
                       : other_outside ? Subsumption::more_general
                                       : Subsumption::equal;
  for (int p = 0; p < pairs; ++p) {
    std::uint64_t common = masked(defined, mask, p) & other.defined.pair(p);
    if (!common) continue;
    if (interpreters != other.interpreters) return Subsumption::incomparable;
    const std::uint64_t binary = common & interpreters->binary_atts.pair(p);
    if (binary & (bin_values.pair(p) ^ other.bin_values.pair(p))) return Subsumption::incomparable;
    for (common &= ~binary; common; common &= common - 1) {
      int index = p * kPair + std::countr_zero(common);
      const AttSlot& slot = interpreters->slots[index];
      AttWord mine = word_at(slot);
      AttWord theirs = other.word_at(slot);
      if (mine == theirs) continue;
      Subsumption code = interpreters->atts[index]->compare(mine, theirs);
      if (code == Subsumption::equal) continue;
      if (code == Subsumption::incomparable || (result != Subsumption::equal && result != code))
        return Subsumption::incomparable;
      result = code;
    }
  }
  return result;
}

bool AttVec::equals(const AttVec& other, const LBitSet& mask) const {
  const int pairs = std::max(defined.pair_count(), other.defined.pair_count());
  for (int p = 0; p < pairs; ++p) {
    const std::uint64_t mine = masked(defined, &mask, p);
    if (mine != masked(other.defined, &mask, p)) return false;
    if (!mine) continue;
    if (interpreters != other.interpreters) return false;
    const std::uint64_t binary = mine & interpreters->binary_atts.pair(p);
    if (binary & (bin_values.pair(p) ^ other.bin_values.pair(p))) return false;
  }
  for (int p = 0; p < pairs; ++p) {
    std::uint64_t rest = masked(defined, &mask, p);
    if (!rest) continue;
    for (rest &= ~interpreters->binary_atts.pair(p); rest; rest &= rest - 1) {
      const int index = p * kPair + std::countr_zero(rest);
      const AttSlot& slot = interpreters->slots[index];
      const AttWord a = word_at(slot);
      const AttWord b = other.word_at(slot);
      if (a != b && interpreters->atts[index]->compare(a, b) != Subsumption::equal) return false;
    }
  }
  return true;
}

}  // namespace torvane
