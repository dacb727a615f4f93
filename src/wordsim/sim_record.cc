#include "wordsim/sim_record.h"

#include <algorithm>
#include <limits>

#include "support/text.h"

namespace torvane {

int pos_index(const char* text) {
  // Kept: part-of-speech-by-letter
  switch (text ? *text : 0) {
    case 'N':
    case '_':
      return 0;
    case 'V':
      return 1;
    case 'A':
      return 2;
    default:
      return -1;
  }
}

int exact_pos_index(const char* text) {
  return text && text[0] != '_' && text[0] != 0 && text[1] == 0 ? pos_index(text) : -1;
}

SimRecord::~SimRecord() {
  for (const Slist<LBitSet*>& list : groups)
    for (LBitSet* group : list) delete group;
}

float SimRecord::find_sim(int id, int pos) const {
  if (pos < 0 || pos >= kPartsOfSpeech)
    return std::max({find_sim(id, 0), find_sim(id, 1), find_sim(id, 2)});
  for (const SimPair& pair : sims[pos])
    if (pair.word == id) return pair.sim;
  return 0;
}

void SimInserter::open(SimRecord& record, int pos) {
  record_ = &record;
  pos_ = pos;
  ++list_;
  pairs_.clear();
  for (const SimPair& pair : record.sims[pos])
    pairs_.push_back({pair, static_cast<int>(pairs_.size()), pair.sim});
  float most = -std::numeric_limits<float>::infinity();
  for (auto placed = pairs_.rbegin(); placed != pairs_.rend(); ++placed) {
    placed->rank = most = std::max(placed->rank, most);
    note(placed->pair.word, most);
  }
}

bool SimInserter::note(int id, float rank) {
  auto index = static_cast<std::size_t>(id);
  if (index >= least_.size()) least_.resize(index + index / 4 + 64);
  Least& least = least_[index];
  if (least.list == list_ && least.rank <= rank) return false;
  least = {list_, rank};
  return true;
}

bool SimInserter::insert_sim(int id, float sim) {
  if (!note(id, sim)) return false;
  pairs_.push_back({{id, sim}, static_cast<int>(pairs_.size()), sim});
  return true;
}

void SimInserter::close() {
  auto descends = [](const Placed& a, const Placed& b) { return a.rank > b.rank; };
  bool moved = !std::is_sorted(pairs_.begin(), pairs_.end(), descends);
  if (moved) std::stable_sort(pairs_.begin(), pairs_.end(), descends);

  Array<SimPair> list(static_cast<int>(pairs_.size()));
  for (const Placed& placed : pairs_) list.append(placed.pair);
  record_->sims[pos_].swap(list);
  if (!moved || record_->groups[pos_].empty()) return;

  std::vector<int> new_place(pairs_.size());
  for (std::size_t i = 0; i < pairs_.size(); ++i)
    new_place[static_cast<std::size_t>(pairs_[i].place)] = static_cast<int>(i);
  for (LBitSet* group : record_->groups[pos_]) {
    LBitSet here(static_cast<int>(pairs_.size()) + 1);
    LBitSetIterator old(*group);
    for (int bit = old.next(); bit >= 0 && bit < list.count(); bit = old.next())
      here.set(new_place[static_cast<std::size_t>(bit)]);
    *group = here;
  }
}

}  // namespace torvane
