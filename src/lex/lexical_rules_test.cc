#include "lex/lexical_rules.h"

#include "lex/chart_fixture.h"
#include "shell/named_objects.h"

namespace torvane {
namespace {

LexRuleList* rules(const char* name) {
  return find_object_as<LexRuleList>(name, "LexRuleList", true);
}

void run(const std::string& command) {
  register_rule_modules();
  interpreter().prompt = false;
  interpreter().load_string(command.c_str());
}

std::string names(const LexRuleList& list) {
  std::string text;
  for (const auto& rule : list.rules) text += rule->name + " ";
  return text;
}

/// What the rules print on standard output.
std::string fired(LexRuleList& list, LexAnalyzer& analyzer) {
  testing::internal::CaptureStdout();
  list.apply(analyzer);
  std::cout.flush();
  return testing::internal::GetCapturedStdout();
}

constexpr const char* kPrintSpan =
    "(comp (format (comp (low) (int2str)) - (comp (high) (int2str))) (print-str :suffix \" \"))";

TEST(LexicalRules, DefinedSetsGrowAndTakeRulesBeforeAnAnchor) {
  run("(def-rules grow (a x) (b x))");
  run("(def-rules GROW (c x))");
  run("(insert-lex-rules grow B (d x) (e x))");
  EXPECT_EQ(names(*rules("grow")), "a d e b c ");
  run("(insert-lex-rules grow nobody (f x))");
  EXPECT_EQ(names(*rules("grow")), "a d e b c ");
  EXPECT_EQ(errors_of([] { run("(insert-lex-rules grow () (g x))"); }),
            "expecting an atom. This is found instead:\n()\n");
  EXPECT_EQ(names(*rules("grow")), "a d e b c g ");
  EXPECT_EQ(errors_of([] { run("(insert-lex-rules nothing a (g x))"); }),
            "(insert-lex-rules ...): the lexical rule set 'nothing' is not defined\n");
}

TEST(LexicalRules, DebuggingIsToggledForRulesThatMatchAtTheirFront) {
  run("(def-rules dbg (np1 x) (np2 x) (xnp x))");
  auto flags = [] {
    std::string text;
    for (const auto& rule : rules("dbg")->rules) text += rule->debug ? '1' : '0';
    return text;
  };
  run("(debug-rules dbg np)");
  EXPECT_EQ(flags(), "110");
  run("(debug-rules dbg ^np2)");
  EXPECT_EQ(flags(), "100");
  run("(debug-rules dbg)");
  EXPECT_EQ(flags(), "011");
  EXPECT_EQ(errors_of([] { run("(debug-rules none 1)"); }),
            "the lexical rules `none' are not found\n");
}

TEST(LexicalRules, DebuggingShowsRulesAndAllTheirMatches) {
  run("(def-rules shown (two (seq x (? y))) (none z)) (debug-rules shown)");
  Chart chart("x y");
  EXPECT_EQ(errors_of([&] { rules("shown")->apply(chart.analyzer); }),
            "\nLexical Rule: two\n[1,2] ([1,1] [2,2])\n\nLexical Rule: none\n");
}

TEST(LexicalRules, OfMatchesWithOneEndTheFirstAndItsLikesFire) {
  run(std::string("(def-rules first (r (lexitem (t)) ") + kPrintSpan + "))");
  run(std::string("(def-rules every (r (:Act-On-All-Matches) (lexitem (t)) ") + kPrintSpan + "))");
  Chart chart("a b c");
  chart.add(1, 2, "ab");
  chart.add(1, 2, "other ab");
  chart.add(2, 2, "b");
  chart.add(3, 3, "c");
  EXPECT_EQ(fired(*rules("first"), chart.analyzer), "3-3 1-2 1-2 ");
  EXPECT_EQ(fired(*rules("every"), chart.analyzer), "3-3 1-2 1-2 2-2 ");
}

TEST(LexicalRules, PreconditionsAndHalfRules) {
  run(std::string("(def-rules half (no (:precondition (nil)) x ") + kPrintSpan +
      ") (noact x) (yes " + "(:precondition (is-mixed-case)) x " + kPrintSpan + " (ignored)))");
  EXPECT_EQ(errors_of([] { run("(def-rules half (empty) ((odd) x) atom (bad (bogus) (t)))"); }),
            "The lexical rule 'empty' has no pattern\n"
            "expecting an atom. This is found instead:\n(odd)\n"
            "The pattern bogus is not defined\n");
  Chart chart("x");
  EXPECT_EQ(fired(*rules("half"), chart.analyzer), "1-1 ");
}

TEST(LexicalRules, ASetMayGrowWhileItRuns) {
  run("(def-rules self (r x (exec-commands (insert-lex-rules self r (s x (nil))) "
      "(def-rules self (t x (nil)))))");
  Chart chart("x x");
  rules("self")->apply(chart.analyzer);
  EXPECT_EQ(names(*rules("self")), "s s r t t ");
  rules("self")->apply(chart.analyzer);
  EXPECT_EQ(rules("self")->rules.size(), 9u);
}

TEST(LexicalRules, LaterMatchesSeeWhatTheEarlierOnesDeleted) {
  run("(def-rules del (r (:act-on-all-matches) (lexitem (t)) (comp (if (comp (litem) (is-deleted)) "
      "(str gone) (str kept)) (print-str :suffix \" \")) ))");
  run("(def-rules del2 (r (:act-on-all-matches) (lexitem (t)) (prog (comp (if (comp (litem) "
      "(is-deleted)) (str gone) (str kept)) (print-str :suffix \" \")) (delete-if (int 1) (int 2) "
      "(pred (t))))))");
  Chart chart("a b");
  chart.add(1, 1, "a");
  chart.add(2, 2, "b");
  EXPECT_EQ(fired(*rules("del"), chart.analyzer), "kept kept ");
  EXPECT_EQ(fired(*rules("del2"), chart.analyzer), "kept gone ");
  EXPECT_EQ(chart.items(), "");
}

}  // namespace
}  // namespace torvane
