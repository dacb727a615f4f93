#include "wordsim/triple_features.h"

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

void TripleFeatures::read(TripleDb& db, float least_information) {
  for (PLHashIterator walk(db); !walk.done(); walk.next()) {
    auto& entry = static_cast<TripleDbInfo&>(*walk.current());
    db.load_details(entry);
    read_entry(entry, db, least_information);
  }
  overlap_.build_index();
}

void TripleFeatures::read_entry(TripleDbInfo& entry, TripleDb& db, float least_information) {
  int item_of_pos[kPartsOfSpeech] = {-1, -1, -1};
  for (const RelInfo& rel : entry.rels) {
    const char* name = db.id_to_string(std::abs(rel.id));
    int pos = name ? relation_end_pos(name, rel.id > 0) : -1;
    if (pos < 0) continue;
    int& item = item_of_pos[pos];
    for (WordCount& other : rel) {
      float information = other.word ? known_mutinfo(other, rel, db) : 0;
      if (!(information >= least_information)) continue;
      if (item < 0) {
        item = static_cast<int>(items_.size());
        items_.push_back({quoted(entry.key, QuoteComma::yes), entries_, pos});
      }
      overlap_.add(item, feature_of(rel.id, db.ids.get_id(other.word, false)), information);
    }
  }
  ++entries_;
}

void TripleFeatures::write_list(std::ostream& out, int item, std::size_t most) {
  const Item& self = items_[static_cast<std::size_t>(item)];
  out << " (" << kPartOfSpeechNames[self.pos] << ' ' << float_text(overlap_.total(item)) << " (";
  const char* before = "";
  for (const SimPair& pair : overlap_.neighbours(item, most)) {
    out << before << items_[static_cast<std::size_t>(pair.word)].word << ' '
        << float_text(pair.sim);
    before = " ";
  }
  out << "))";
}

void TripleFeatures::write_source(std::ostream& out, std::size_t most) {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    bool begins = i == 0 || items_[i - 1].entry != items_[i].entry;
    bool ends = i + 1 == items_.size() || items_[i + 1].entry != items_[i].entry;
    if (begins) out << '(' << items_[i].word;
    write_list(out, static_cast<int>(i), most);
    if (ends) out << ")\n";
  }
}

}  // namespace torvane
