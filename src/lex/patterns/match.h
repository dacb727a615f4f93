// A place in the sentence where a lexical pattern fits: a span, the item it is about, and the
// matches of the pattern's parts.
//
// Matches never change. A match of several parts is one part and the match of the others, so that
// alternatives share what they have in common, and a chain of n parts costs n.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <vector>

#include "lex/chart/lex_analyzer.h"
#include "support/pool.h"
#include "support/ref.h"

namespace torvane {

/// The end of a match that is given: all matches that end there, or that start there.
enum class Anchor : std::uint8_t { end, start };

class Match : public Counted<Match>, public Pooled<Match> {
 public:
  /// A match without parts.
  static Ref<Match> make(LexAnalyzer* in, int from, int to, LexItem* about = nullptr);
  /// The empty match at a position.
  static Ref<Match> empty_at(LexAnalyzer* in, Anchor anchor, int pos);
  /// A match of `part`, which holds the anchored end, and of the parts of `rest` (null: none)
  /// beyond it.
  static Ref<Match> join(Anchor anchor, const Ref<Match>& part, const Ref<Match>& rest);
  /// A match of these parts, left to right.
  static Ref<Match> of_parts(LexAnalyzer* in, int from, int to, LexItem* about,
                             const std::vector<Ref<Match>>& parts);
  static void end(Match* match);

  bool is_empty() const { return high < low; }
  /// Component n: from 1 at the left, from -1 at the right; null for 0 or out of range.
  Match* component(int n) const;
  int component_count() const { return count_; }
  /// Appends the components, left to right.
  void append_components(std::vector<Ref<Match>>& out) const;
  /// "[low,high]", with the components after it in parentheses.
  void print(std::ostream& out) const;

  LexItem* const item;           ///< may be null
  const std::int32_t low, high;  ///< an empty match has high = low - 1
  LexAnalyzer* const analyzer;

 private:
  Match(LexAnalyzer* in, int from, int to, LexItem* about)
      : item(about), low(from), high(to), analyzer(in) {}

  Ref<Match> part_;
  Ref<Match> rest_;
  std::int32_t count_ = 0;
  bool part_first_ = false;  ///< the part stands left of the rest
  Match* next_ = nullptr;    ///< in the row of those to be freed
};

namespace tags {
extern const TypeTag match;  // counted; its items are of the sentence
}
template <>
struct ValueTraits<Match> : TagOf<Match, tags::match> {};

/// Whether `a` stands before `b` in a list of matches: empty ones last, the others by where they
/// start.
bool match_before(const Match& a, const Match& b);

/// The matches that a pattern gives, in order.
class MatchList {
 public:
  /// What the list is for: every match, or of each span only the first. Who needs but the latter
  /// says so, since the matches of one span can be very many.
  enum class Keep : std::uint8_t { all, one_per_span };

  explicit MatchList(Keep keep = Keep::all);
  ~MatchList();
  MatchList(const MatchList&) = delete;
  MatchList& operator=(const MatchList&) = delete;

  Keep keep() const { return keep_; }
  bool empty() const { return matches_.empty(); }
  int size() const { return static_cast<int>(matches_.size()); }
  const Ref<Match>& operator[](int i) const { return matches_[static_cast<std::size_t>(i)]; }
  const Ref<Match>& front() const { return matches_.front(); }
  auto begin() const { return matches_.begin(); }
  auto end() const { return matches_.end(); }

  void add(Ref<Match> match) { matches_.push_back(std::move(match)); }
  void append(const MatchList& other) {
    matches_.insert(matches_.end(), other.begin(), other.end());
  }
  void clear() { matches_.clear(); }
  /// Keeps the first `n`.
  void cut(int n) { matches_.resize(static_cast<std::size_t>(n)); }
  template <class Test>
  void keep_if(Test test) {
    std::erase_if(matches_, [&](const Ref<Match>& m) { return !test(*m); });
  }
  bool has_span(int low, int high) const;
  /// Puts the matches of one position in order, equals as they came, and drops what `keep` does not
  /// want.
  void finish();

 private:
  void sort_by_start();

  std::vector<Ref<Match>> matches_;  // its storage is used again by later lists
  Keep keep_;
};

}  // namespace torvane
