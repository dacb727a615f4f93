#include "lex/pattern.h"

#include "lex/chart_fixture.h"

namespace torvane {
namespace {

// "big dog barks" with "big dog" as one item too.
class PatternTest : public testing::Test {
 protected:
  PatternTest() : chart("big dog barks") {
    chart.add(1, 1, "big");
    chart.add(2, 2, "dog");
    chart.add(1, 2, "bigdog");
    chart.add(2, 2, "hound");
  }
  Chart chart;
};

TEST_F(PatternTest, AtomsGiveTheirSpans) {
  EXPECT_EQ(chart.matches("(word (str= DOG))"), "[2,2]");
  EXPECT_EQ(chart.matches("dog"), "[2,2]");
  EXPECT_EQ(chart.matches("(.)"), "[3,3] [2,2] [1,1]");
  EXPECT_EQ(chart.matches("."), "") << "a bare atom is a word";
  EXPECT_EQ(chart.matches("(not-in-lexicon)"), "[3,3]");
  EXPECT_EQ(chart.matches_at(Anchor::start, 2, "(not-in-lexicon)"), "");
  EXPECT_EQ(chart.matches("(word-seq BIG Dog)"), "[1,2]");
  EXPECT_EQ(chart.matches("(word-seq dog barks loudly)"), "");
  EXPECT_EQ(chart.matches("(word-seq)"), "");
  EXPECT_EQ(chart.matches("(whole-sentence)"), "[0,3]");
  EXPECT_EQ(chart.matches_at(Anchor::start, 0, "(whole-sentence)"), "[0,3]");
}

TEST_F(PatternTest, ItemsOfOneEndStandLongestFirstThenAsInTheChart) {
  EXPECT_EQ(chart.matches("(lexitem (t))"), "[1,2] [2,2] [2,2] [1,1]");
  auto found = pattern_of("(lexitem (not (comp (root) (str= bigdog))))");
  MatchList list;
  MatchRun run(chart.analyzer);
  found->match_end(run, 2, list);
  ASSERT_EQ(list.size(), 2);
  EXPECT_STREQ(list[0]->item->root, "dog");
  EXPECT_STREQ(list[1]->item->root, "hound");
}

TEST_F(PatternTest, EmptyItemsStandLast) {
  chart.add(3, 2, "trace");
  EXPECT_EQ(chart.matches_at(Anchor::end, 2, "(lexitem (t))"), "[1,2] [2,2] [2,2] [3,2]");
}

TEST_F(PatternTest, EdgesOfTheSentence) {
  EXPECT_EQ(chart.matches("(^)"), "");
  EXPECT_EQ(chart.matches("($)"), "");
  EXPECT_EQ(chart.matches("(seq barks ($))"), "[3,4] ([3,3] [4,4])");
  EXPECT_EQ(chart.matches("(seq (^) big)"), "[0,1] ([0,0] [1,1])");
  EXPECT_EQ(chart.matches("(seq :front-to-back (^) big)"), "[1,1] ([1,0] [1,1])");
  EXPECT_EQ(chart.matches("(seq :front-to-back barks ($))"), "[3,4] ([3,3] [4,4])");
}

TEST_F(PatternTest, SequencesGiveEveryWayInOrder) {
  EXPECT_EQ(chart.matches("(seq (lexitem (t)) barks)"),
            "[1,3] ([1,2] [3,3]) [2,3] ([2,2] [3,3]) [2,3] ([2,2] [3,3])");
  EXPECT_EQ(chart.matches("(seq big (? small) dog)"), "[1,2] ([1,1] [2,1] [2,2])");
  EXPECT_EQ(chart.matches("(seq :front-to-back big (? small) dog)"), "[1,2] ([1,1] [2,1] [2,2])");
  EXPECT_EQ(chart.matches("(seq)"), "");
}

TEST_F(PatternTest, OneOfSeveralAndAllOfThem) {
  EXPECT_EQ(chart.matches_at(Anchor::end, 2, "(! cat (word (t)) (lexitem (t)))"), "[2,2]");
  EXPECT_EQ(chart.matches_at(Anchor::end, 2, "(& (lexitem (t)) (word (t)))"), "[2,2] [2,2]");
  EXPECT_EQ(chart.matches_at(Anchor::end, 2, "(& (lexitem (t)) barks)"), "");
  EXPECT_EQ(chart.matches("(or-pat)"), "");
  EXPECT_EQ(chart.matches("(and-pat)"), "");
}

TEST_F(PatternTest, AbsenceIsOfWordsOnly) {
  EXPECT_EQ(chart.matches("(no dog)"), "[3,3] [1,1]");
  EXPECT_EQ(chart.matches_at(Anchor::end, 0, "(no dog)"), "");
  EXPECT_EQ(chart.matches_at(Anchor::end, 4, "(no dog)"), "");
}

TEST_F(PatternTest, RepetitionTakesTheFirstMatchOfEachStep) {
  EXPECT_EQ(chart.matches_at(Anchor::end, 2, "(+ (lexitem (t)))"), "[1,2] ([1,2])");
  EXPECT_EQ(chart.matches_at(Anchor::end, 3, "(+ (.))"), "[1,3] ([1,1] [2,2] [3,3])");
  EXPECT_EQ(chart.matches_at(Anchor::start, 1, "(+ (.))"), "[1,3] ([1,1] [2,2] [3,3])");
  EXPECT_EQ(chart.matches_at(Anchor::end, 3, "(* dog)"), "[4,3]");
  EXPECT_EQ(chart.matches_at(Anchor::start, 3, "(* dog)"), "[3,2]");
  EXPECT_EQ(chart.matches_at(Anchor::end, 0, "(+ (.))"), "");
  // A part that may be empty ends the row with its empty match.
  EXPECT_EQ(chart.matches_at(Anchor::end, 2, "(+ (? dog))"), "[2,2] ([2,1] [2,2])");
}

TEST_F(PatternTest, ConstraintsFilterFinishedMatches) {
  const char* from_2 = "(+ (.) (constraint (int-eq (low) (int 1))))";
  EXPECT_EQ(chart.matches_at(Anchor::end, 3, from_2), "[1,3] ([1,1] [2,2] [3,3])");
  EXPECT_EQ(chart.matches_at(Anchor::end, 3, "(+ (.) (constraint (int-eq (high) (int 2))))"), "");
  EXPECT_EQ(chart.matches_at(Anchor::end, 3, "(* (.) (constraint (int-gt (low) (high))))"),
            "[4,3]");
  EXPECT_EQ(chart.matches("(seq (constraint (int-eq (low) (int 2))) (lexitem (t)) barks)"),
            "[2,3] ([2,2] [3,3]) [2,3] ([2,2] [3,3])");
  EXPECT_EQ(chart.matches_at(Anchor::end, 2, "(? dog (constraint (int-gt (low) (high))))"),
            "[3,2]");
}

TEST_F(PatternTest, ScansSkipWhatTheyFoundUnlessOverlapping) {
  Chart row("x x x x x");
  EXPECT_EQ(row.matches("(seq x x)"), "[4,5] ([4,4] [5,5]) [2,3] ([2,2] [3,3])");
  EXPECT_EQ(row.matches("(seq :front-to-back x x)"), "[1,2] ([1,1] [2,2]) [3,4] ([3,3] [4,4])");
  EXPECT_EQ(row.matches("(! :overlapping (word-seq x x))"), "[4,5] [3,4] [2,3] [1,2]");
  EXPECT_EQ(row.matches("(seq x :overlapping :FRONT-TO-BACK (? y))"),
            "[1,1] ([1,1] [2,1]) [2,2] ([2,2] [3,2]) [3,3] ([3,3] [4,3]) [4,4] ([4,4] [5,4]) "
            "[5,5] ([5,5] [6,5])");
}

TEST_F(PatternTest, CollectedItemsTileFromTheRight) {
  chart.add(2, 1, "trace");
  EXPECT_EQ(chart.matches("(collect-lexitems)"), "[1,3] ([1,1] [2,2])");
  EXPECT_EQ(chart.matches("(collect-lexitems (comp (root) (str= bigdog)))"), "[1,3] ([1,2])");
  EXPECT_EQ(chart.matches("(seq (collect-lexitems))"), "");
  EXPECT_EQ(chart.matches("(collect-lexitems (comp (root) (str= trace)))"), "[1,3]")
      << "an empty item covers no word";
}

TEST_F(PatternTest, BadFormsAreReportedAndMatchNothing) {
  EXPECT_EQ(errors_of([] { EXPECT_EQ(pattern_of("(bogus x)"), nullptr); }),
            "The pattern bogus is not defined\n");
  EXPECT_EQ(errors_of([] { EXPECT_EQ(pattern_of("((a) b)"), nullptr); }),
            "Unable to make pattern: ((a) b)\n");
  EXPECT_EQ(errors_of([] { EXPECT_EQ(pattern_of("()"), nullptr); }),
            "Unable to make pattern: ()\n");
  errors_of([&] {
    EXPECT_EQ(chart.matches("(seq big (bogus) dog)"), "");
    EXPECT_EQ(chart.matches("(& (bogus) dog)"), "");
    EXPECT_EQ(chart.matches_at(Anchor::end, 2, "(! (bogus) dog)"), "[2,2]");
  });
  EXPECT_EQ(chart.matches("(+)"), "");
  EXPECT_EQ(chart.matches("(no)"), "[3,3] [2,2] [1,1]");
  EXPECT_EQ(chart.matches("(word)"), "[3,3] [2,2] [1,1]") << "no condition passes";
  EXPECT_EQ(chart.matches("(? :min 1 :max 2 dog extra)"), "[4,3] [2,2] [3,2] [2,1]");
  EXPECT_EQ(chart.matches("(seq dog :nonsense barks)"), "[2,3] ([2,2] [3,3])");
}

TEST(Patterns, NothingMatchesInAnEmptySentence) {
  Chart chart("");
  for (const char* pattern : {"(.)", "(^)", "($)", "(whole-sentence)", "(no x)", "(? x)",
                              "(seq ($))", "(seq (^) ($))", "(! (? x))", "(+ (.))"})
    EXPECT_EQ(chart.matches(pattern), "") << pattern;
}

TEST(Patterns, ConditionsMayChangeTheChart) {
  Chart chart("a b");
  LexItem* first = chart.add(2, 2, "one");
  chart.add(2, 2, "two");
  chart.add(1, 1, "three");
  EXPECT_EQ(chart.matches("(lexitem (comp (set-cate (str x)) (t)))"), "[2,2] [2,2] [1,1]");
  std::unique_ptr<LExp> killer = compile("(delete (litem))");
  auto match = chart.match(2, 2, first);
  killer->eval(Value::of(match.get()), type_id_of<Match>());
  EXPECT_EQ(chart.matches("(lexitem (t))"), "[2,2] [1,1]");
}

// Every word has readings of one and of two words, so that there are ever more ways through the
// sentence.
class AmbiguousSentence : public testing::Test {
 protected:
  static constexpr int kWords = 40;
  AmbiguousSentence() : chart(words()) {
    for (int i = 1; i <= kWords; ++i) {
      chart.add(i, i, "noun");
      chart.add(i, i, "verb");
      if (i < kWords) chart.add(i, i + 1, "phrase");
    }
  }
  static std::string words() {
    std::string text;
    for (int i = 0; i < kWords; ++i) text += "w ";
    return text;
  }
  static std::string parts(int n) {
    std::string text;
    for (int i = 0; i < n; ++i) text += " (lexitem (t))";
    return text;
  }
  Chart chart;
};

TEST_F(AmbiguousSentence, WaysThatFailAreTriedOnce) {
  EXPECT_EQ(chart.matches("(seq nowhere" + parts(25) + ")"), "");
  EXPECT_EQ(chart.matches("(seq :front-to-back" + parts(25) + " nowhere)"), "");
}

TEST_F(AmbiguousSentence, OnlyTheSpansOfAPartAreWorkedOutWhereTheyAreAllThatCounts) {
  EXPECT_EQ(chart.matches_at(Anchor::end, 40, "(no (seq" + parts(25) + "))"), "");
  EXPECT_EQ(chart.matches_at(Anchor::end, 40, "(& (word-seq w) (! (seq" + parts(25) + ") (.)))"),
            "");
  auto plus = pattern_of("(+ (seq" + parts(20) + "))");
  MatchList list;
  MatchRun run(chart.analyzer);
  plus->match_end(run, 40, list);
  ASSERT_EQ(list.size(), 1);
  EXPECT_EQ(list.front()->low, 1);
  EXPECT_EQ(list.front()->component_count(), 1);
  EXPECT_EQ(list.front()->component(1)->component_count(), 20);
}

TEST_F(AmbiguousSentence, TooManyMatchesAreCutAndReported) {
  std::string errors = errors_of([&] {
    auto pattern = pattern_of("(seq" + parts(25) + ")");
    MatchList list;
    MatchRun run(chart.analyzer);
    pattern->match(run, list);
    EXPECT_LE(list.size(), MatchRun::kMostMatches);
  });
  EXPECT_EQ(
      errors,
      "A lexical pattern has more than 262144 matches in a sentence. The rest is left out.\n");
}

TEST(Patterns, RowsOverALongSentenceShareTheirParts) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += "x ";
  Chart chart(text);
  auto pattern = pattern_of("(+ (not-in-lexicon))");
  MatchList list;
  MatchRun run(chart.analyzer);
  pattern->match(run, list);
  ASSERT_EQ(list.size(), 5000);
  EXPECT_EQ(list.front()->component_count(), 5000);
  EXPECT_EQ(list.front()->component(1)->low, 1);
  EXPECT_EQ(list.front()->component(-1)->low, 5000);
}

TEST(Patterns, NestingIsBounded) {
  register_rule_modules();
  std::string text;
  for (int i = 0; i < 100000; ++i) text += "(? ";
  text.append(100000, ')');
  EXPECT_EQ(errors_of([&] { pattern_of(text); }),
            "make_pattern: the patterns are nested too deeply\n");
}

}  // namespace
}  // namespace torvane
