#include "parser/forest/dist_table.h"

#include <algorithm>
#include <cmath>

#include "support/messages.h"

namespace torvane {
namespace {

constexpr long kMostDistance = 32767;  // no sentence is longer
constexpr double kTrustPerCount = 0.005;

bool is_separator(char c) {
  return c == '\t' || c == '\n' || c == '\r';
}

}  // namespace

void DistTable::read(std::istream& in) {
  std::string fields[4];
  int n = 0;
  for (char c; in.get(c);) {
    if (!is_separator(c)) {
      fields[n] += c;
    } else if (!fields[n].empty() && ++n == 4) {
      add(fields[0].c_str(), fields[1].c_str(), fields[3].c_str());
      for (std::string& field : fields) field.clear();
      n = 0;
    }
  }
  if (n == 3 && !fields[3].empty()) {
    add(fields[0].c_str(), fields[1].c_str(), fields[3].c_str());
  } else if (n > 0 || !fields[0].empty()) {
    messages() << "dist.txt: the last record is cut off\n";
  }
}

void DistTable::add(const char* relation, const char* distance, const char* count) {
  long d = -1;
  float seen = -1;
  if (!scan_long(distance, d) || d < 0 || d > kMostDistance || !scan_float(count, seen) ||
      !std::isfinite(seen) || seen < 0) {
    messages() << "dist.txt: a bad record: " << relation << ' ' << distance << ' ' << count << '\n';
    return;
  }
  if (!last_ || last_relation_ != relation) {
    auto entry = std::make_shared<Entry>();
    last_ = entry.get();
    last_relation_ = relation;
    // Kept: dist-relation-begins-anew
    relations_.replace(relation, std::move(entry));
  }
  last_->counts[d] = seen;
  last_->total += seen;
}

double DistTable::Entry::count(long distance) const {
  auto found = counts.find(distance);
  return found == counts.end() ? 1.0 : found->second;
}

double DistTable::probability(const char* relation, int distance) const {
  long d = std::max(distance, 1);
  const auto* found = relations_.find(relation);
  if (!found || found->value->total <= 0) return 1.0 / static_cast<double>(d);
  const Entry& entry = *found->value;
  long last = entry.counts.rbegin()->first;
  double count = entry.count(std::min(d, last));
  double a = entry.total * kTrustPerCount;
  if (a > 1.0) return count / entry.total;
  double size = static_cast<double>(last + 1);
  // Kept: dist-prior-of-counts
  return (1 - a) * entry.total / size + a * count / entry.total;
}

}  // namespace torvane
