#include "lex/match.h"

#include <algorithm>

#include "lex/chart_fixture.h"

namespace torvane {
namespace {

Ref<Match> row(Anchor anchor, int n) {
  Ref<Match> chain;
  for (int i = 1; i <= n; ++i) {
    int at = anchor == Anchor::end ? i : n + 1 - i;
    chain = Match::join(anchor, Match::make(nullptr, at, at), chain);
  }
  return chain;
}

TEST(Match, ComponentsStandLeftToRightWhicheverEndTheyWereJoinedFrom) {
  for (Anchor anchor : {Anchor::end, Anchor::start}) {
    Ref<Match> match = row(anchor, 4);
    EXPECT_EQ(match->low, 1);
    EXPECT_EQ(match->high, 4);
    for (int n = 1; n <= 4; ++n) {
      EXPECT_EQ(match->component(n)->low, n);
      EXPECT_EQ(match->component(-n)->low, 5 - n);
    }
    for (int n : {0, 5, -5}) EXPECT_EQ(match->component(n), nullptr);
    std::vector<Ref<Match>> parts;
    match->append_components(parts);
    ASSERT_EQ(parts.size(), 4u);
    EXPECT_EQ(parts[2]->low, 3);
  }
}

TEST(Match, PartsCanBePutTogetherAnew) {
  std::vector<Ref<Match>> parts;
  row(Anchor::start, 2)->append_components(parts);
  row(Anchor::end, 3)->append_components(parts);
  Ref<Match> match = Match::of_parts(nullptr, 7, 9, nullptr, parts);
  std::ostringstream out;
  match->print(out);
  EXPECT_EQ(out.str(), "[7,9] ([1,1] [2,2] [1,1] [2,2] [3,3])");
}

TEST(Match, LongAndDeepOnesGoWithoutRecursion) {
  Ref<Match> deep = Match::make(nullptr, 1, 1);
  for (int i = 0; i < 1000000; ++i) deep = Match::join(Anchor::end, deep, Ref<Match>());
  deep.reset();
  row(Anchor::end, 1000000).reset();
}

TEST(MatchList, FinishKeepsEqualsInTheirOrder) {
  for (int n : {5, 500}) {
    MatchList list;
    std::vector<Match*> added;
    for (int i = 0; i < n; ++i) {
      int low = 3 - i % 3;
      list.add(i % 5 == 4 ? Match::make(nullptr, 10, 9) : Match::make(nullptr, low, 9));
      added.push_back(list[i].get());
    }
    list.finish();
    std::stable_sort(added.begin(), added.end(),
                     [](Match* a, Match* b) { return match_before(*a, *b); });
    for (int i = 0; i < n; ++i) EXPECT_EQ(list[i].get(), added[static_cast<std::size_t>(i)]);
  }
}

TEST(MatchList, OnePerSpanKeepsTheFirst) {
  MatchList list(MatchList::Keep::one_per_span);
  Ref<Match> first = Match::make(nullptr, 1, 3);
  list.add(Match::make(nullptr, 2, 3));
  list.add(first);
  list.add(Match::make(nullptr, 1, 2));
  list.add(Match::make(nullptr, 1, 3));
  list.finish();
  ASSERT_EQ(list.size(), 3);
  EXPECT_EQ(list[0], first);
  EXPECT_EQ(list[1]->high, 2);
  EXPECT_EQ(list[2]->low, 2);
}

}  // namespace
}  // namespace torvane
