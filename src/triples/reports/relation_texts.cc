#include "triples/reports/relation_texts.h"

#include <algorithm>
#include <memory>

namespace torvane {

RelationTexts::RelationTexts(TripleDb& db, IRSlist& form) : db_(db) {
  std::unique_ptr<IRSlist> codes = form.take_keyword_node(":codes");
  if (!codes) return;
  for (const IRSlist* pair : codes->items) {
    int id = db.feature_id(pair->nth_str_val(0), false);
    if (id == 0) continue;
    ids_.push_back(id);
    texts_.emplace_back(or_empty(pair->nth_str_val(1)));
  }
}

std::string RelationTexts::text_of(int id) const {
  auto found = std::find(ids_.begin(), ids_.end(), id);
  if (found == ids_.end()) return name_of(id);
  return texts_[static_cast<std::size_t>(found - ids_.begin())];
}

std::string RelationTexts::name_of(int id) const {
  StrBufs buf;
  return or_empty(db_.feature_name(id, buf));
}

}  // namespace torvane
