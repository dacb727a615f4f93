#include "lex/patterns/match.h"

#include <algorithm>
#include <climits>
#include <numeric>
#include <utility>

namespace torvane {

namespace tags {
constinit const TypeTag match =
    counted_tag<Match>("Match*", [](const Match& its) { return its.analyzer->era(); });
}  // namespace tags

namespace {

// Storage of lists that waits for later ones.
using SpareStorage = Spares<std::vector<Ref<Match>>, 64>;

constexpr std::size_t kFewMatches = 32;

bool before(const Ref<Match>& a, const Ref<Match>& b) {
  return match_before(*a, *b);
}

}  // namespace

// Nested matches go one by one, however deep they are.
void Match::end(Match* match) {
  match->next_ = nullptr;
  while (match) {
    Match* dead = std::exchange(match, match->next_);
    for (Match* child : {dead->part_.leak(), dead->rest_.leak()}) {
      if (!child || --child->refcount > 0) continue;
      child->next_ = match;
      match = child;
    }
    delete dead;
  }
}

Ref<Match> Match::make(LexAnalyzer* in, int from, int to, LexItem* about) {
  return Ref<Match>(new Match(in, from, to, about));
}

Ref<Match> Match::empty_at(LexAnalyzer* in, Anchor anchor, int pos) {
  return anchor == Anchor::end ? make(in, pos + 1, pos) : make(in, pos, pos - 1);
}

Ref<Match> Match::join(Anchor anchor, const Ref<Match>& part, const Ref<Match>& rest) {
  const Match& left = anchor == Anchor::end && rest ? *rest : *part;
  const Match& right = anchor == Anchor::start && rest ? *rest : *part;
  Ref<Match> match = make(part->analyzer, left.low, right.high);
  match->part_ = part;
  match->rest_ = rest;
  match->part_first_ = anchor == Anchor::start;
  match->count_ = 1 + (rest ? rest->count_ : 0);
  return match;
}

Ref<Match> Match::of_parts(LexAnalyzer* in, int from, int to, LexItem* about,
                           const std::vector<Ref<Match>>& parts) {
  Ref<Match> chain;
  for (const Ref<Match>& part : parts) chain = join(Anchor::end, part, chain);
  Ref<Match> match = make(in, from, to, about);
  if (!chain) return match;
  match->part_ = chain->part_;
  match->rest_ = chain->rest_;
  match->part_first_ = false;
  match->count_ = chain->count_;
  return match;
}

Match* Match::component(int n) const {
  int wanted = n > 0 ? n - 1 : count_ + n;
  if (n == 0 || wanted < 0 || wanted >= count_) return nullptr;
  int first = 0;
  int last = count_ - 1;
  for (const Match* m = this; m && m->part_; m = m->rest_.get()) {
    if (wanted == (m->part_first_ ? first++ : last--)) return m->part_.get();
  }
  return nullptr;
}

void Match::append_components(std::vector<Ref<Match>>& out) const {
  std::vector<const Ref<Match>*> right_ones;
  for (const Match* m = this; m && m->part_; m = m->rest_.get()) {
    if (m->part_first_) {
      out.push_back(m->part_);
    } else {
      right_ones.push_back(&m->part_);
    }
  }
  for (auto i = right_ones.rbegin(); i != right_ones.rend(); ++i) out.push_back(**i);
}

void Match::print(std::ostream& out) const {
  out << '[' << low << ',' << high << ']';
  if (count_ == 0) return;
  std::vector<Ref<Match>> parts;
  append_components(parts);
  const char* gap = " (";
  for (const Ref<Match>& part : parts) {
    out << std::exchange(gap, " ");
    part->print(out);
  }
  out << ')';
}

bool match_before(const Match& a, const Match& b) {
  if (a.is_empty() != b.is_empty()) return b.is_empty();
  return !a.is_empty() && a.low < b.low;
}

MatchList::MatchList(Keep keep) : matches_(SpareStorage::take()), keep_(keep) {}

MatchList::~MatchList() {
  if (matches_.capacity() == 0) return;
  matches_.clear();
  SpareStorage::give(std::move(matches_));
}

bool MatchList::has_span(int low, int high) const {
  return std::any_of(begin(), end(),
                     [=](const Ref<Match>& m) { return m->low == low && m->high == high; });
}

// By counting, since many matches start at few places.
void MatchList::sort_by_start() {
  int first = INT_MAX;
  int last = INT_MIN;
  for (const Ref<Match>& match : matches_) {
    if (match->is_empty()) continue;
    first = std::min(first, match->low);
    last = std::max(last, match->low);
  }
  auto place = [=](const Match& m) {
    return static_cast<std::size_t>(m.is_empty() ? last - first + 1 : m.low - first);
  };
  std::vector<std::size_t> next(static_cast<std::size_t>(last - first) + 3);
  for (const Ref<Match>& match : matches_) ++next[place(*match) + 1];
  std::partial_sum(next.begin(), next.end(), next.begin());
  std::vector<Ref<Match>> sorted = SpareStorage::take();
  sorted.resize(matches_.size());
  for (Ref<Match>& match : matches_) sorted[next[place(*match)]++].swap(match);
  matches_.swap(sorted);
  sorted.clear();
  SpareStorage::give(std::move(sorted));
}

void MatchList::finish() {
  if (!std::is_sorted(begin(), end(), before)) {
    if (matches_.size() <= kFewMatches) {
      for (auto i = matches_.begin() + 1; i != matches_.end(); ++i)
        if (before(*i, i[-1]))
          std::rotate(std::upper_bound(matches_.begin(), i, *i, before), i, i + 1);
    } else {
      sort_by_start();
    }
  }
  if (keep_ == Keep::all) return;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < matches_.size(); ++i) {
    auto same = [&](const Ref<Match>& m) {
      return m->low == matches_[i]->low && m->high == matches_[i]->high;
    };
    auto kept_end = matches_.begin() + static_cast<std::ptrdiff_t>(kept);
    if (std::none_of(matches_.begin(), kept_end, same)) matches_[kept++].swap(matches_[i]);
  }
  matches_.resize(kept);
}

}  // namespace torvane
