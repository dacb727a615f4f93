// How probable it is that one word depends on another by a relation: what the parser asks.
#include <algorithm>
#include <limits>

#include "triples/db/mutual_info.h"

namespace torvane {
namespace {

constexpr double kPriorCount = 1000.0;
constexpr float kLeastProbability = 1e-18F;  // costs as much as the worst link

double share(double a, double b) {
  return b > 0 ? a / b : 0;
}

float probability(double p) {
  if (!(p > kLeastProbability)) return kLeastProbability;
  return static_cast<float>(std::min<double>(p, std::numeric_limits<float>::max()));
}

const WordCount* find_word(TripleDb& db, TripleDbInfo& entry, const RelInfo& rel,
                           const char* word) {
  db.load_details(entry);
  return word ? rel.find_word(word) : nullptr;
}

}  // namespace

void TripleDb::note_use(std::initializer_list<TripleDbInfo*> entries) {
  for (TripleDbInfo* entry : entries)
    if (entry) entry->last_used = serial_;
  if (clean_up_after > 0 && serial_++ >= clean_up_after) CleanUp();
}

float TripleDb::dependency_probability(const char* word1, const char* relation, const char* word2) {
  TripleDbInfo* e1 = find(word1);
  TripleDbInfo* er = find(relation);
  TripleDbInfo* e2 = find(word2);
  double n = total_count();
  if (!er) return probability(share(1, n));

  int id = ids.get_id(relation, false);
  const RelInfo* up = e2 ? e2->find_rel(-id) : nullptr;
  const RelInfo* down = e1 ? e1->find_rel(id) : nullptr;
  const WordCount* pair = down ? find_word(*this, *e1, *down, word2) : nullptr;
  if (down && up && !pair) pair = find_word(*this, *e2, *up, word1);

  double r = id > 0 ? er->freq : er->invFreq;
  double a = kPriorCount + (e2 ? e2->invFreq : 0);
  double b = kPriorCount + (e1 ? e1->freq : 0);
  double c = down ? down->freq : 0;
  double d = up ? up->freq : 0;
  double t = share(a * b, n);
  double p = 0.7 * share(pair ? pair->freq : 0, b) + 0.1 * share(d + 1, n) +
             0.2 * share((t + c) * (t + d), b * r);

  note_use({e1, er, e2});
  return probability(p);
}

}  // namespace torvane
