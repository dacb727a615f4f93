#include "wordsim/group_scores.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace torvane {

SimRecordTable::SimRecordTable(int size)
    : THashTableWithOrd(
          size, [](long key) { return int_hash(static_cast<std::uint32_t>(key)); },
          [](SimScore* item, long key) { return item->word < key ? -1 : item->word > key; }) {}

SimScore& SimRecordTable::item(int word) {
  if (SimScore* known = find(word)) return *known;
  items.push_back({word, 1.0F, 1.0F});
  insert_at_cursor(&items.back());
  return items.back();
}

std::vector<SimScore> group_scores(SimWordDb& db, const LBitSet* scope, int pos,
                                   const Slist<char*>& words) {
  if (pos < 0 || pos >= kPartsOfSpeech) return {};
  std::vector<const Array<SimPair>*> lists;
  int pairs = 0;
  for (const char* word : words)
    if (const SimRecord* record = db.find_record(word)) {
      lists.push_back(&record->sims[pos]);
      pairs += record->sims[pos].count();
    }

  SimRecordTable table(pairs);
  for (const Array<SimPair>* list : lists)
    for (const SimPair& pair : *list)
      if (!scope || scope->test(pair.word)) table.item(pair.word).score *= 2.0F * pair.sim + 1.0F;

  auto weight = 2.0F * static_cast<float>(words.length());
  for (SimScore& item : table.items) {
    // A negative similarity, of a source, may leave no logarithm.
    item.score = item.score > 0 ? std::log(item.score) : -std::numeric_limits<float>::infinity();
    item.weight = weight;
  }
  std::vector<SimScore> sorted(table.items.begin(), table.items.end());
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const SimScore& a, const SimScore& b) { return a.ratio() > b.ratio(); });
  return sorted;
}

}  // namespace torvane
