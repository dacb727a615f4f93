#include "wordsim/triple_features.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include "support/text.h"
#include "triples/db/mutual_info.h"

namespace torvane {
namespace {

FeatureOverlap::Feature feature_of(int relation, int word) {
  return FeatureOverlap::Feature{static_cast<std::uint32_t>(relation)} << 32 |
         static_cast<std::uint32_t>(word);
}

/// By part of speech, in the order in which these come up.
std::vector<WordFeatures> features_of(TripleDbInfo& entry, int number, TripleDb& db,
                                      float least_information) {
  std::vector<WordFeatures> words;
  for (const RelInfo& rel : entry.rels) {
    const char* name = db.id_to_string(std::abs(rel.id));
    const int pos = name ? relation_end_pos(name, rel.id > 0) : -1;
    if (pos < 0) continue;
    for (WordCount& other : rel) {
      const float information = other.word ? known_mutinfo(other, rel, db) : 0;
      if (!(information >= least_information)) continue;
      auto word = std::find_if(words.begin(), words.end(),
                               [pos](const WordFeatures& one) { return one.pos == pos; });
      if (word == words.end())
        word = words.insert(word, {quoted(entry.key, QuoteComma::yes), number, pos, 0, {}});
      word->total += information;
      word->features.push_back({feature_of(rel.id, db.ids.get_id(other.word, false)), information});
    }
  }
  for (WordFeatures& word : words)
    std::sort(word.features.begin(), word.features.end(),
              [](const auto& a, const auto& b) { return a.feature < b.feature; });
  return words;
}

}  // namespace

int relation_end_pos(std::string_view relation, bool at_head) {
  std::size_t last = relation.rfind(':');
  if (last == std::string_view::npos) return 0;
  std::string category(at_head ? relation.substr(0, relation.find(':'))
                               : relation.substr(last + 1));
  for (char& c : category) c = lower(c);
  if (category == "n") return 0;
  if (category == "v") return 1;
  return category == "a" || category == "adv" ? 2 : -1;
}

void read_features(TripleDb& db, float least_information,
                   const std::function<void(const WordFeatures& word)>& take) {
  int entries = 0;
  for (PLHashIterator walk(db); !walk.done(); walk.next()) {
    auto& entry = static_cast<TripleDbInfo&>(*walk.current());
    db.load_details(entry);
    for (const WordFeatures& word : features_of(entry, entries, db, least_information)) take(word);
    ++entries;
  }
}

}  // namespace torvane
