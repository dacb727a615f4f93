#include "lex/patterns/match_run.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "support/hash.h"
#include "support/messages.h"

namespace torvane {

// An open table from places to runs of `kept`. A walk begins a new generation of slots, so that
// nothing has to be swept; the storage is used again by the next walk.
class MatchRun::Memory {
 public:
  struct Slot {
    Place place;
    std::uint32_t generation = 0;
    std::uint32_t first;
    std::uint32_t count;
  };

  void start() {
    kept.clear();
    used_ = 0;
    if (++generation_ == 0) {
      slots_.clear();
      generation_ = 1;
    }
  }
  const Slot* find(const Place& place) const {
    if (slots_.empty()) return nullptr;
    const Slot& slot = slots_[index_of(slots_, place)];
    return slot.generation == generation_ ? &slot : nullptr;
  }
  void add(const Place& place, std::uint32_t count) {
    if (used_ * 2 >= slots_.size()) grow();
    Slot& slot = slots_[index_of(slots_, place)];
    if (slot.generation == generation_) return;
    slot = {place, generation_, static_cast<std::uint32_t>(kept.size()) - count, count};
    ++used_;
  }

  std::vector<Ref<Match>> kept;

  static std::vector<std::unique_ptr<Memory>>& spare() {
    static thread_local std::vector<std::unique_ptr<Memory>> list;
    return list;
  }

 private:
  std::size_t index_of(const std::vector<Slot>& slots, const Place& place) const {
    auto address = reinterpret_cast<std::uintptr_t>(place.pattern);
    std::uint32_t mixed =
        int_hash(static_cast<std::uint32_t>(address >> 4)) ^
        static_cast<std::uint32_t>(place.part * 2 + (place.anchor == Anchor::end));
    mixed = int_hash(mixed) ^ static_cast<std::uint32_t>(place.pos);
    std::size_t mask = slots.size() - 1;
    std::size_t i = (int_hash(mixed) >> 7) & mask;
    while (slots[i].generation == generation_ && !(slots[i].place == place)) i = (i + 1) & mask;
    return i;
  }
  void grow() {
    std::vector<Slot> bigger(slots_.empty() ? 64 : slots_.size() * 2);
    for (const Slot& slot : slots_)
      if (slot.generation == generation_) bigger[index_of(bigger, slot.place)] = slot;
    slots_ = std::move(bigger);
  }

  std::vector<Slot> slots_;
  std::size_t used_ = 0;
  std::uint32_t generation_ = 0;
};

MatchRun::MatchRun(LexAnalyzer& chart) : analyzer(chart) {}

MatchRun::~MatchRun() {
  if (!memory_) return;
  memory_->kept.clear();
  Memory::spare().push_back(std::move(memory_));
}

bool MatchRun::recall(const Place& place, MatchList& out) const {
  const Memory::Slot* slot = memory_ ? memory_->find(place) : nullptr;
  if (!slot) return false;
  for (std::uint32_t i = 0; i < slot->count; ++i) out.add(memory_->kept[slot->first + i]);
  return true;
}

void MatchRun::remember(const Place& place, const MatchList& matches) {
  if (!memory_) {
    auto& spare = Memory::spare();
    if (spare.empty()) spare.push_back(std::make_unique<Memory>());
    memory_ = std::move(spare.back());
    spare.pop_back();
    memory_->start();
  }
  for (const Ref<Match>& match : matches) memory_->kept.push_back(match);
  memory_->add(place, static_cast<std::uint32_t>(matches.size()));
}

void MatchRun::limit(MatchList& results) {
  if (!is_full(results)) return;
  report_matches();
  results.cut(kMostMatches);
}

int MatchRun::cut_matches(const MatchList& list) {
  report_matches();
  return kMostMatches - list.size();
}

int MatchRun::cut_kept(int wanted) {
  report_steps();
  return std::min(wanted, steps_left_ / kKeptSteps);
}

void MatchRun::report_matches() {
  if (!std::exchange(reported_, true))
    messages() << "A lexical pattern has more than " << kMostMatches
               << " matches in a sentence. The rest is left out.\n";
}

bool MatchRun::report_steps() {
  steps_left_ = std::max(steps_left_, 0);
  if (!std::exchange(reported_, true))
    messages() << "A lexical pattern takes more than " << kMostSteps
               << " steps in a sentence. The rest is left out.\n";
  return false;
}

}  // namespace torvane
