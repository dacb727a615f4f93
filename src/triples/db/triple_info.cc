#include "triples/db/triple_info.h"

#include <algorithm>

#include "triples/db/triple_db.h"

namespace torvane {

namespace {

constexpr int kFirstWords = 4;

int upper_byte(char c) {
  return static_cast<unsigned char>(is_lower(c) ? c - ('a' - 'A') : c);
}

}  // namespace

int compare_words(const char* a, const char* b) {
  for (; *a && *b; ++a, ++b)
    if (int difference = upper_byte(*a) - upper_byte(*b)) return difference;
  return static_cast<unsigned char>(*a) - static_cast<unsigned char>(*b);
}

WordCount* RelInfo::find_word(const char* word, int& index) const {
  int low = 0, high = word_count();
  while (low < high) {
    int middle = low + (high - low) / 2;
    WordCount& count = words->data()[middle];
    int order = compare_words(count.word, word);
    if (order == 0) {
      index = middle;
      return &count;
    }
    if (order < 0)
      low = middle + 1;
    else
      high = middle;
  }
  index = low;
  return nullptr;
}

Array<WordCount>& RelInfo::word_list() {
  if (!words) words = std::make_unique<Array<WordCount>>(kFirstWords);
  return *words;
}

RelInfo* TripleDbInfo::find_rel(int id, int& index) {
  RelInfo* found = std::lower_bound(rels.begin(), rels.end(), id,
                                    [](const RelInfo& rel, int wanted) { return rel.id < wanted; });
  index = static_cast<int>(found - rels.begin());
  return found != rels.end() && found->id == id ? found : nullptr;
}

void TripleDbInfo::add_feature(int id, int word_id, float count, TripleDb& db) {
  (id < 1 ? invFreq : freq) += count;
  int place;
  RelInfo* rel = find_rel(id, place);
  if (!rel) {
    rels.insert_at(place, RelInfo(id));
    rel = rels.data() + place;
    rel->word_list();
  }
  const char* word = word_id > 0 ? db.id_to_string(word_id) : nullptr;
  // Kept: half-triple-has-no-count
  if (!word) return;
  if (WordCount* known = rel->find_word(word, place))
    known->freq += count;
  else
    rel->word_list().insert_at(place, WordCount{word, count, WordCount::kUnknown});
  rel->freq += count;
}

void TripleDbInfo::drop_details() {
  if (detail_pos <= 0 || pos <= 0) return;
  for (RelInfo& rel : rels) rel.words.reset();
  detail_pos = -detail_pos;
}

}  // namespace torvane
