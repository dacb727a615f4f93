#include "lex/patterns/pattern.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "lex/chart/offers.h"
#include "lex/lexicon/offers.h"
#include "lex/patterns/offers.h"
#include "lexp/offers.h"
#include "support/test_support.h"

namespace torvane {
namespace {

/// The chart of "the big red dog": an item for each word but "the", two for "red", one for "big
/// red".
class PatternTest : public testing::Test {
 protected:
  PatternTest() {
    using namespace offers;
    enter_all(world_, {&control_forms, &constants, &string_forms, &meaning, &lexicon_commands,
                       &match_accessors, &item_forms, &offers::pattern, &atom_patterns,
                       &multi_patterns, &repeat_patterns});
    world_.interpreter.prompt = false;
    world_.interpreter.load_string("(make-str-meaning-proto g)");
    std::istringstream in("(big (g a)) (red (g a) (g n)) (dog (g n)) (big red (g a))");
    lexicon_.load(in, 0);
    for (const char* word : {"the", "big", "red", "dog"}) {
      chart_.add_gap(" ");
      chart_.add_word(word);
    }
    chart_.analyze();
  }

  std::string matches(const char* pattern, Anchor anchor, int pos) {
    auto parsed = make_pattern(world_, reader_.start_string((std::string(pattern) + " ").c_str()));
    if (!parsed) return "no pattern";
    MatchRun run(chart_);
    MatchList found;
    if (anchor == Anchor::end)
      parsed->match_end(run, pos, found);
    else
      parsed->match_start(run, pos, found);
    std::ostringstream out;
    for (const Ref<Match>& match : found) {
      if (out.tellp() > 0) out << ' ';
      match->print(out);
    }
    return out.str();
  }

 private:
  World world_{World::Console::of_process()};
  WorldScope here_{world_};
  Lexicon lexicon_{world_, 11};
  LexAnalyzer chart_{&lexicon_, 10};
  IRSlistReader reader_{false};
};

// The pictures of docs/patterns.md show whole scans; here one position, from its right and its left
// end.
TEST_F(PatternTest, MatchesFromEitherEnd) {
  struct Case {
    const char* pattern;
    int pos;
    const char* ending_there;
    const char* starting_there;
  };
  for (const auto& [pattern, pos, ending_there, starting_there] : {
           Case{"RED", 3, "[3,3]", "[3,3]"},
           {"(lexitem (t))", 2, "[2,2]", "[2,3] [2,2]"},
           {"(lexitem (t))", 3, "[2,3] [3,3] [3,3]", "[3,3] [3,3]"},
           {"(not-in-lexicon)", 1, "[1,1]", "[1,1]"},
           {"(not-in-lexicon)", 2, "", ""},
           {"(word-seq big red)", 3, "[2,3]", ""},
           {"(^)", 0, "[0,0]", "[0,-1]"},
           {"(^)", 1, "", "[1,0]"},
           {"(whole-sentence)", 0, "", "[0,4]"},
           {"(seq (lexitem (t)) (lexitem (t)))", 3, "[2,3] ([2,2] [3,3]) [2,3] ([2,2] [3,3])",
            "[3,4] ([3,3] [4,4]) [3,4] ([3,3] [4,4])"},
           {"(seq (^) the (lexitem (t)))", 3, "[0,3] ([0,0] [1,1] [2,3])", ""},
           {"(seq (^) the (lexitem (t)))", 1, "",
            "[1,3] ([1,0] [1,1] [2,3]) [1,2] ([1,0] [1,1] [2,2])"},
           {"(seq dog ($))", 5, "[4,5] ([4,4] [5,5])", ""},
           {"(seq dog ($))", 4, "", "[4,5] ([4,4] [5,5])"},
           {"(seq (? big) red)", 3, "[2,3] ([2,2] [3,3]) [3,3] ([3,2] [3,3])",
            "[3,3] ([3,2] [3,3])"},
           {"(seq (? big) red)", 2, "", "[2,3] ([2,2] [3,3])"},
           {"(+ (.))", 3, "[1,3] ([1,1] [2,2] [3,3])", "[3,4] ([3,3] [4,4])"},
           {"(* big)", 4, "[5,4]", "[4,3]"},
           {"(* big)", 2, "[2,2] ([2,2])", "[2,2] ([2,2])"},
           {"(! (word-seq big red) red)", 3, "[2,3]", "[3,3]"},
           {"(& (lexitem (t)) (no big))", 3, "[3,3] [3,3]", "[3,3] [3,3]"},
           {"(no big)", 2, "", ""},
           {"(seq (lexitem (t)) dog (constraint (comp ($ 1) (litem) (root) (str= red))))", 4,
            "[3,4] ([3,3] [4,4]) [3,4] ([3,3] [4,4])", ""},
       }) {
    EXPECT_EQ(matches(pattern, Anchor::end, pos), ending_there) << pattern << " ends at " << pos;
    EXPECT_EQ(matches(pattern, Anchor::start, pos), starting_there) << pattern << " from " << pos;
  }
}

}  // namespace
}  // namespace torvane
