#include "triples/db/mutual_info.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace torvane {
namespace {

constexpr float kNothingInCommon = -100.0F;
constexpr double kSmoothing = 2.0;

double quotient(double a, double b) {
  return b == 0 ? 0 : a / b;
}

/// Log likelihood of k hits in n trials of probability p.
double binomial(double p, double k, double n) {
  if (!(p > 0 && p < 1 && n > 0)) return 0;
  return k * std::log(p) + (n - k) * std::log(1 - p);
}

}  // namespace

float TripleDb::mutinfo(float f, float f1, float f2) const {
  double c = std::min(f1, f2);
  double n = total_count();
  if (!(c > 0 && f > 0 && n > 0)) return kNothingInCommon;
  double value = std::log(n * f / f1 / f2) * (c / (c + kSmoothing)) * (f / (f + kSmoothing));
  return std::isfinite(value) ? static_cast<float>(value) : kNothingInCommon;
}

float word_mutinfo(WordCount& word, const RelInfo& rel, TripleDb& db) {
  TripleDbInfo* other = db.find(word.word);
  const RelInfo* inverse = other ? other->find_rel(-rel.id) : nullptr;
  if (!inverse) return 0;
  return word.mi = db.mutinfo(word.freq, rel.freq, inverse->freq);
}

float relation_mutinfo(const TripleDbInfo& entry, const RelInfo& rel, TripleDb& db) {
  const TripleDbInfo* relation = db.find(db.id_to_string(std::abs(rel.id)));
  return db.mutinfo(rel.freq, rel.id < 0 ? entry.invFreq : entry.freq,
                    relation ? relation->freq : 0);
}

float log_likelihood(const WordCount& word, const RelInfo& rel, TripleDb& db) {
  TripleDbInfo* other = db.find(word.word);
  const TripleDbInfo* relation = db.find(db.id_to_string(std::abs(rel.id)));
  const RelInfo* inverse = other && relation ? other->find_rel(-rel.id) : nullptr;
  if (!inverse) return 0;
  double k1 = word.freq;
  double n1 = rel.freq;
  double k2 = inverse->freq - k1;
  double n2 = relation->freq - k1;
  double p1 = quotient(k1, n1);
  double p2 = quotient(k2, n2);
  double p = quotient(k1 + k2, n1 + n2);
  // Kept: likelihood-without-2
  return static_cast<float>(binomial(p1, k1, n1) + binomial(p2, k2, n2) - binomial(p, k1, n1) -
                            binomial(p, k2, n2));
}

float rel_info(RelInfo& rel, TripleDbInfo& entry, TripleDb& db) {
  if (rel.info > 0) return rel.info;
  db.load_details(entry);
  float sum = 0;
  for (WordCount& word : rel) sum += std::fabs(known_mutinfo(word, rel, db));
  return sum;
}

void TripleDb::recompute_info(TripleDbInfo& entry) {
  entry.info = 0;
  for (RelInfo& rel : entry.rels) entry.info += rel_info(rel, entry, *this);
}

}  // namespace torvane
