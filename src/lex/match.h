// A place in the sentence where a lexical pattern fits: a span, the item it is about, and the matches of
// the pattern's parts.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>

#include "lex/lex_analyzer.h"

namespace torvane {

class Match {
 public:
  Match(LexAnalyzer* in, int from, int to, LexItem* about = nullptr)
      : item(about), low(from), high(to), analyzer(in) {}
  Match(const Match& other);
  Match& operator=(const Match&) = delete;
  ~Match();

  void print(std::ostream& out) const;
  /// Component n: from 1 at the left, from -1 at the right; null for 0 or out of range.
  Match* component(int n) const;

  Slist<Match*> components;  ///< owned
  LexItem* item;             ///< may be null
  std::int32_t low, high;    ///< an empty match has high = low - 1
  LexAnalyzer* analyzer;
};

namespace tags {
inline constexpr TypeTag match{"Match*", nullptr, Life::transient};
}
template <>
struct ValueTraits<Match> : TagOf<Match, tags::match> {};

}  // namespace torvane
