// What counts of dependencies add to the prices of a grammar.
//
// A grammar's prices know kinds of words; counts know words. So what counts say is how a head
// differs from others of its category (V, N, A): of all that depends on verbs, c(m) / n are the
// word m by the relation r; of what depends on this verb, which has h modifiers, c of them are.
//
//   association = ln( ((c + k * c(m) / n) / (h + k)) / (c(m) / n) )
//
// The k modifiers that are put to each head, distributed as everywhere, keep words that are seldom
// seen near 0. Below 0 it is cut early: that two words were not seen together tells little.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include "support/text.h"
#include "triples/db/triple_db.h"

namespace torvane {
namespace {

constexpr double kBorrowed = 1000;
constexpr float kLeast = -0.3F;
constexpr float kMost = 5.0F;

/// V of V:obj:N; empty for a word.
std::string head_category(std::string_view name) {
  const std::size_t end = name.find(':');
  if (end == 0 || end == name.npos || name.find(':', end + 1) == name.npos) return {};
  std::string category(name.substr(0, end));
  std::transform(category.begin(), category.end(), category.begin(), lower);
  return category;
}

}  // namespace

void TripleDb::find_categories() {
  std::map<std::string, std::uint16_t> numbers;
  category_of_.assign(static_cast<std::size_t>(ids.count()), 0);
  modifiers_.assign(1, 0);
  for (int id = 1; id < ids.count(); ++id) {
    const char* name = ids.get_string(id);
    const std::string category = head_category(or_empty(name));
    if (category.empty() || modifiers_.size() > UINT16_MAX) continue;
    const TripleDbInfo* relation = find(name);
    if (!relation) continue;
    const auto [at, is_new] =
        numbers.try_emplace(category, static_cast<std::uint16_t>(modifiers_.size()));
    if (is_new) modifiers_.push_back(0);
    category_of_[static_cast<std::size_t>(id)] = at->second;
    modifiers_[at->second] += relation->freq;
  }
}

float TripleDb::association(const char* head, const char* relation, const char* modifier) {
  if (category_of_.empty()) find_categories();
  TripleDbInfo* above = find(head);
  TripleDbInfo* below = find(modifier);
  const int id = ids.get_id(relation, false);
  const auto category_of = [&](int relation_id) {
    const auto at = static_cast<std::size_t>(relation_id);
    return relation_id > 0 && at < category_of_.size() ? category_of_[at] : 0;
  };
  const int category = category_of(id);
  const RelInfo* up = above && below && category > 0 ? below->find_rel(-id) : nullptr;
  const double share = up ? up->freq / modifiers_[static_cast<std::size_t>(category)] : 0;
  if (!(share > 0)) return 0;

  double modifiers = 0;
  for (const RelInfo& rel : above->rels)
    if (category_of(rel.id) == category) modifiers += rel.freq;
  double together = 0;
  if (const RelInfo* down = above->find_rel(id)) {
    load_details(*above);
    if (const WordCount* pair = down->find_word(modifier)) together = pair->freq;
  }
  note_use({above, below});
  const double ratio = (together + kBorrowed * share) / (modifiers + kBorrowed) / share;
  return ratio > 0 ? std::clamp(static_cast<float>(std::log(ratio)), kLeast, kMost) : kLeast;
}

}  // namespace torvane
