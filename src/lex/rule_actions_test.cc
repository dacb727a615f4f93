#include "lex/rule_actions.h"

#include <cstdint>

#include "lex/chart_fixture.h"

namespace torvane {
namespace {

class ActionTest : public testing::Test {
 protected:
  ActionTest() : chart("a b c d") {
    a = chart.add(1, 1, "a");
    b = chart.add(2, 2, "b");
    c = chart.add(3, 3, "c");
    bc = chart.add(2, 3, "bc");
  }
  std::string root_of(Value value) {
    LexItem* item = value.as<LexItem>();
    return item ? or_empty(item->root) : "none";
  }
  std::string starting_at(int i) {
    std::string text;
    for (LexItem* item : chart.analyzer.starting_at(i)) text += std::string(item->root) + " ";
    return text;
  }
  LexItem* eval_item(const char* exp, LexItem* about) {
    return chart.eval(exp, chart.match(about->low, about->high, about)).as<LexItem>();
  }
  Chart chart;
  LexItem *a, *b, *c, *bc;
};

TEST_F(ActionTest, SettingTheHighEndMovesTheItem) {
  EXPECT_EQ(eval_item("(set-high (litem) (int 3))", a), a);
  EXPECT_EQ(chart.items(), "2-2 b, 3-3 c, 2-3 bc, 1-3 a");
  EXPECT_EQ(eval_item("(set-high (litem) (int 0))", a), a);
  EXPECT_EQ(chart.items(), "1-0 a, 2-2 b, 3-3 c, 2-3 bc");
}

TEST_F(ActionTest, AnItemThatMovesOntoItsLikeIsDeleted) {
  LexItem* long_b = chart.add(2, 3, "b");
  EXPECT_EQ(eval_item("(set-high (litem) (int 3))", b), long_b);
  EXPECT_TRUE(b->deleted);
  EXPECT_FALSE(long_b->deleted);
  EXPECT_EQ(chart.items(), "1-1 a, 3-3 c, 2-3 bc, 2-3 b");
}

TEST_F(ActionTest, SettingTheLowEndLeavesTheItemWhereItStands) {
  EXPECT_EQ(eval_item("(set-low (litem) (int 1))", bc), bc);
  EXPECT_EQ(bc->low, 1);
  EXPECT_EQ(starting_at(2), "bc b ");
  EXPECT_EQ(starting_at(1), "a ");
  eval_item("(delete (litem))", bc);
  EXPECT_EQ(starting_at(2), "b ");
  EXPECT_EQ(chart.items(), "1-1 a, 2-2 b, 3-3 c");
}

TEST_F(ActionTest, EndsOutsideTheSentenceAreRefused) {
  for (const char* exp : {"(set-high (litem) (int 5))", "(set-high (litem) (int 0))",
                          "(set-high (litem) (int 99999999999))", "(set-low (litem) (int 0))",
                          "(set-low (litem) (int 5))", "(set-low (litem) (int -70000))"})
    EXPECT_EQ(eval_item(exp, bc), nullptr) << exp;
  EXPECT_EQ(bc->low, 2);
  EXPECT_EQ(bc->high, 3);
  EXPECT_EQ(chart.items(), "1-1 a, 2-2 b, 3-3 c, 2-3 bc");
}

TEST_F(ActionTest, NullItemsAreReportedWhereThatIsLaidDown) {
  auto match = chart.match(1, 1);
  EXPECT_EQ(errors_of([&] {
              chart.eval("(set-high (litem) (int 2))", match);
              chart.eval("(set-low (litem) (int 2))", match);
              chart.eval("(comp (litem) (set-cate (str x)))", match);
            }),
            "Cannot set-high a nil lexitem.\nCannot set-low a nil lexitem.\n"
            "Cannot set-cate a nil lexitem.\n");
}

TEST_F(ActionTest, NumbersStayInTheirFields) {
  eval_item("(set-weight (litem) (int 40000))", a);
  EXPECT_EQ(a->weight, INT16_MAX);
  eval_item("(add-weight (litem) (int -7))", a);
  EXPECT_EQ(a->weight, INT16_MAX - 7);
  eval_item("(add-weight (litem) (int -99999999))", a);
  EXPECT_EQ(a->weight, INT16_MAX - 7 + INT16_MIN);
  EXPECT_EQ(eval_item("(set-head (litem) (int 3))", a)->head, 3);
}

TEST_F(ActionTest, RootsGoToTheInnermostItemOfTheHead) {
  auto pair = Match::of_parts(&chart.analyzer, 1, 3, c, {chart.match(1, 1, a)});
  Value whole = chart.eval("(combine-lexitems (litem) (comp ($ 1) (litem)))", pair);
  auto match = chart.match(1, 3, whole.as<LexItem>());
  EXPECT_EQ(chart.eval("(set-lexitem-root (litem) (str new))", match).as<LexItem>(), c);
  EXPECT_STREQ(c->root, "new");
  EXPECT_STREQ(whole.as<LexItem>()->root, "c");
  EXPECT_STREQ(a->root, "a");
}

TEST_F(ActionTest, CombiningOneItemGivesTheItem) {
  EXPECT_EQ(eval_item("(combine-lexitems (litem))", b), b);
  EXPECT_EQ(chart.items(), "1-1 a, 2-2 b, 3-3 c, 2-3 bc");
}

// What no rule should do, and what it must not harm by doing it.
TEST_F(ActionTest, NothingBreaksOnOddArguments) {
  Chart other("x y z");
  LexItem* foreign = other.add(1, 1, "x");
  chart.analyzer.delete_item(b);
  const char* items[] = {"(litem)", "(nil)", "(int 7)", "(str text)", "(analyzer)"};
  const char* numbers[] = {"(int -99999999999)", "(int -1)",  "(int 0)", "(int 2)", "(int 5)",
                           "(int 99999999999)",  "(str text)"};
  const char* item_actions[] = {"set-high", "set-low", "set-head", "set-weight", "add-weight"};
  const char* span_actions[] = {"delete-if",
                                "exist-lexitem",
                                "exist-word-in-sentence",
                                "exist-covering-lexitem",
                                "exist-overlapping-lexitem",
                                "look-up",
                                "make-lexitem",
                                "retrieve-lexitem",
                                "find-prev-occ"};
  auto run = [&](const std::string& exp) {
    std::unique_ptr<LExp> compiled = compile(exp.c_str());
    for (LexItem* item : {c, b, foreign, static_cast<LexItem*>(nullptr)}) {
      for (auto [low, high] : {std::pair(2, 3), {0, 0}, {4, 9}, {3, 2}, {-5, 70}}) {
        auto match = chart.match(low, high, item);
        compiled->eval(Value::of(match.get()), -1);
      }
    }
    compiled->eval(Value(), -1);
    compiled->eval(Value::integer(9), -1);
  };
  errors_of([&] {
    for (std::string item : items) {
      for (std::string number : numbers) {
        for (std::string action : item_actions) run("(" + action + " " + item + " " + number + ")");
        run("(add-components " + item + " " + number + " (int 4) (pred (t)))");
        run("(delete-except " + number + " (int 3) " + item + ")");
        run("(insert-empty-category " + number + " " + item + ")");
        run("(skip " + number + ")");
        for (std::string action : span_actions)
          for (std::string end : numbers)
            run("(" + action + " " + number + " " + end + " " + item + ")");
      }
      for (std::string action :
           {"assert", "delete", "duplicate-lexitem", "flag-adv", "flag-first-conjunction",
            "set-lexitem-root", "abbrev-def", "del-following", "keep-tags", "followed-by",
            "combine-lexitems", "followed-by-word", "preceded-by-word", "add-component"})
        run("(" + action + " " + item + ")");
      run("(comp " + item + " (prog (att) (root) (surform) (cap) (lexitem-rel) (ending s) " +
          "(lexitem-length) (is-deleted) (get-sub-lexitem) (no-alternative (t)) (meaning) ($ 1)))");
    }
    run("(rm-non-max)");
    run("(foreach-match-component (delete (litem)))");
  });
  EXPECT_EQ(other.items(), "1-1 x") << "another chart's item is left alone";
}

TEST_F(ActionTest, DeletingReachesItemsWhollyInside) {
  auto match = chart.match(1, 4);
  chart.eval("(delete-if (int 2) (int 3) (pred (comp (root) (strstr (ident) (str c)))))", match);
  EXPECT_EQ(chart.items(), "1-1 a, 2-2 b");
  EXPECT_TRUE(bc->deleted);
  chart.eval("(delete-if (int 1) (int 9))", match);
  EXPECT_EQ(chart.items(), "") << "no condition passes all";
}

TEST_F(ActionTest, AConditionThatIsNoExpressionPassesNothing) {
  auto match = chart.match(1, 4);
  chart.eval("(delete-if (int 1) (int 4) (t))", match);
  EXPECT_EQ(chart.items(), "1-1 a, 2-2 b, 3-3 c, 2-3 bc");
}

TEST_F(ActionTest, DeletingLeavesTheOneToBeKept) {
  auto match = chart.match(2, 3, bc);
  chart.eval("(delete-except (low) (high) (litem))", match);
  EXPECT_EQ(chart.items(), "1-1 a, 2-3 bc");
  chart.eval("(prog (delete (litem)) (delete-except (int 1) (int 4) (litem)))", match);
  EXPECT_EQ(chart.items(), "1-1 a");
}

TEST_F(ActionTest, DeletingInAConditionIsSafe) {
  LexItem* other = chart.add(2, 2, "other");
  auto match = chart.match(2, 2, b);
  chart.eval("(keep-tags (pred (comp (set-cate (str x)) (root) (str= other))))", match);
  EXPECT_EQ(chart.items(), "1-1 a, 2-2 other, 3-3 c, 2-3 bc");
  EXPECT_STREQ(other->category, "x");
}

TEST_F(ActionTest, FollowersAreThoseThatStartBehindTheMatch) {
  auto match = chart.match(1, 1, a);
  EXPECT_EQ(root_of(chart.eval("(followed-by (pred (t)))", match)), "bc") << "the longest first";
  EXPECT_EQ(root_of(chart.eval("(followed-by (pred (comp (root) (str= b))))", match)), "b");
  EXPECT_TRUE(chart.eval("(followed-by-word (pred (str= B)))", match));
  EXPECT_FALSE(chart.eval("(followed-by-word)", chart.match(4, 4)));
  EXPECT_FALSE(chart.eval("(preceded-by-word (pred (t)))", match));
  EXPECT_TRUE(chart.eval("(preceded-by-word (pred (str= a)))", chart.match(2, 2)));
  chart.eval("(del-following (pred (comp (root) (str= bc))))", match);
  EXPECT_EQ(chart.items(), "1-1 a, 2-2 b, 3-3 c");
}

TEST_F(ActionTest, SearchesOverSpans) {
  auto match = chart.match(1, 1);
  EXPECT_EQ(root_of(chart.eval("(exist-lexitem (int 2) (int 3))", match)), "bc");
  EXPECT_EQ(root_of(chart.eval("(exist-lexitem (int 1) (int 3))", match)), "none");
  EXPECT_EQ(root_of(chart.eval("(exist-lexitem (int -1) (int 3))", match)), "c");
  EXPECT_STREQ(chart.eval("(exist-word-in-sentence (int 2) (int 4) (pred (t)))", match).text(),
               "b");
  EXPECT_FALSE(chart.eval("(exist-word-in-sentence (int 2) (int 2) (pred (t)))", match));
  EXPECT_FALSE(chart.eval("(exist-word-in-sentence (int 1) (int 4) (pred (str= d)))", match));
  EXPECT_TRUE(chart.eval("(exist-word-in-sentence (int -3) (int 99) (pred (str= d)))", match));
  EXPECT_EQ(root_of(chart.eval("(exist-overlapping-lexitem (int 3) (int 4))", match)), "bc");
  EXPECT_EQ(root_of(chart.eval("(exist-overlapping-lexitem (int 1) (int 2))", match)), "bc");
  EXPECT_EQ(root_of(chart.eval("(exist-overlapping-lexitem (int 2) (int 3))", match)), "none");
}

TEST(SearchingActions, CoveringItemsEndWithinSevenPositions) {
  Chart chart("1 2 3 4 5 6 7 8 9 10");
  auto match = chart.match(1, 1);
  chart.add(2, 9, "far");
  auto found = [&](const char* exp) { return static_cast<bool>(chart.eval(exp, match)); };
  EXPECT_TRUE(found("(exist-covering-lexitem (int 2) (int 3))"));
  EXPECT_FALSE(found("(exist-covering-lexitem (int 2) (int 2))")) << "an eighth position";
  EXPECT_FALSE(found("(exist-covering-lexitem (int 1) (int 3))"));
}

TEST_F(ActionTest, ComponentsWidenTheWhole) {
  EXPECT_EQ(eval_item("(add-component (litem) (comp (litem)) (str self))", a), nullptr)
      << "an item is no component of its own";
  auto pair = Match::of_parts(&chart.analyzer, 2, 3, b, {chart.match(3, 3, c)});
  LexItem* whole =
      chart.eval("(add-component (litem) (comp ($ 1) (litem)) (str obj))", pair).as<LexItem>();
  EXPECT_EQ(whole, b);
  EXPECT_EQ(b->high, 3);
  EXPECT_STREQ(c->role, "obj");
  EXPECT_EQ(b->components.front(), c);
  EXPECT_FALSE(chart.eval("(exist-lexitem (int 2) (int 2))", pair)) << "it stands there no longer";
  auto reverse = Match::of_parts(&chart.analyzer, 2, 3, c, {chart.match(2, 2, b)});
  EXPECT_FALSE(chart.eval("(add-component (litem) (comp ($ 1) (litem)) (str x))", reverse));
}

TEST_F(ActionTest, TheLongestItemsOfASpanBecomeComponents) {
  auto match = chart.match(1, 4, chart.make(4, 4, "whole"));
  LexItem* whole =
      chart.eval("(add-components (litem) (int 1) (int 3) (pred (t)))", match).as<LexItem>();
  ASSERT_NE(whole, nullptr);
  EXPECT_EQ(whole->low, 1);
  EXPECT_EQ(whole->high, 4);
  EXPECT_EQ(whole->components.length(), 2);
  EXPECT_EQ(whole->components.front(), a);
  EXPECT_EQ(whole->components.back(), bc);
  EXPECT_EQ(chart.items(), "1-1 a, 2-2 b, 3-3 c, 2-3 bc, 1-4 whole");
}

TEST_F(ActionTest, CombinedItemsBeginAsTheFirst) {
  auto match = Match::of_parts(&chart.analyzer, 1, 3, c, {chart.match(1, 1, a)});
  LexItem* whole =
      chart.eval("(combine-lexitems (nil) (litem) mod (comp ($ 1) (litem)))", match).as<LexItem>();
  ASSERT_NE(whole, nullptr);
  EXPECT_STREQ(whole->root, "c");
  EXPECT_EQ(whole->low, 1);
  EXPECT_EQ(whole->high, 3);
  EXPECT_EQ(whole->head, 3);
  EXPECT_EQ(whole->components.front(), a);
  EXPECT_STREQ(a->role, "mod");
  EXPECT_EQ(c->role, nullptr);
  EXPECT_FALSE(chart.eval("(combine-lexitems (nil))", match));
}

TEST_F(ActionTest, OnlyTheLongestItemsRemainAtTheirEnds) {
  chart.add(1, 4, "all but");
  chart.add(4, 4, "d");
  chart.add(5, 4, "trace");
  chart.eval("(rm-non-max)", chart.match(1, 1));
  EXPECT_EQ(chart.items(), "1-4 all but");
  EXPECT_EQ(starting_at(2), "bc b ");
  EXPECT_FALSE(b->deleted);
  eval_item("(delete (litem))", b);
  EXPECT_EQ(starting_at(2), "bc ");
}

TEST(DeletingActions, AnEmptyItemAloneDoesNotStallTheWalk) {
  Chart chart("a b");
  chart.add(3, 2, "trace");
  chart.add(1, 1, "a");
  chart.eval("(rm-non-max)", chart.match(1, 1));
  EXPECT_EQ(chart.items(), "1-1 a, 3-2 trace");
}

TEST_F(ActionTest, MadeItemsAreNotInTheChart) {
  auto match = chart.match(2, 3, bc);
  LexItem* made = chart.eval("(make-lexitem (low) (high) (meaning))", match).as<LexItem>();
  EXPECT_STREQ(made->root, "b c");
  EXPECT_FALSE(made->in_chart());
  EXPECT_EQ(root_of(chart.eval("(make-lexitem (int 1) (int 1) (meaning) :root (str r))", match)),
            "r");
  EXPECT_EQ(root_of(chart.eval("(make-lexitem (int 1) (int 1) (meaning) :root r)", match)), "r");
  for (const char* span : {"(int 1) (int 5)", "(int 4) (int 2)", "(int -1) (int 1)"})
    EXPECT_FALSE(chart.eval(("(make-lexitem " + std::string(span) + " (meaning))").c_str(), match));
  EXPECT_EQ(root_of(chart.eval("(retrieve-lexitem (int 2) (int 3) (meaning))", match)), "bc");
  EXPECT_FALSE(chart.eval("(retrieve-lexitem (int 2) (int 3) (meaning) :root cb)", match));
  EXPECT_FALSE(chart.eval("(retrieve-lexitem (int 2) (int 2) (meaning))", match));
}

TEST_F(ActionTest, CompoundsAreLookedUpUnderAllTheirKeys) {
  struct Recorder : LexAnalyzer {
    using LexAnalyzer::LexAnalyzer;
    void lookup(const char* word, int low, int high) override {
      keys += std::string(word) + "|" + std::to_string(low) + "-" + std::to_string(high) + " ";
    }
    std::string keys;
  } recorder(&chart.lexicon, 5);
  for (const char* word : {"the", "state", "-", "of", "-", "the", "-", "art"})
    recorder.add_word(word);
  auto look_up = [&](const char* exp, int low, int high) {
    recorder.keys.clear();
    auto match = Match::make(&recorder, low, high);
    compile(exp)->eval(Value::of(match.get()), type_id_of<Match>());
    return recorder.keys;
  };
  EXPECT_EQ(look_up("(look-up (low) (high))", 2, 8),
            "state-of-the-art|2-8 state of the art|2-8 art, state of the|2-8 stateoftheart|2-8 ");
  EXPECT_EQ(look_up("(look-up (low) (high))", 1, 2), "thestate|1-2 ");
  EXPECT_EQ(look_up("(look-up (low) (high) (str co-op))", 1, 2), "co-op|1-2 ");
  EXPECT_EQ(look_up("(look-up (low) (int 9))", 1, 2), "");
}

TEST_F(ActionTest, FlagsCoverTheItem) {
  eval_item("(prog (skip (int 3)) (flag-adv (litem)))", bc);
  EXPECT_TRUE(chart.analyzer.skipped.test(3));
  EXPECT_EQ(chart.analyzer.skipped.count(), 1);
  EXPECT_TRUE(chart.analyzer.adverbs.test(2));
  EXPECT_TRUE(chart.analyzer.adverbs.test(3));
  EXPECT_EQ(errors_of([&] {
              LexItem* empty = chart.add(2, 1, "trace");
              eval_item("(flag-first-conjunction (litem))", empty);
            }),
            "");
  EXPECT_EQ(chart.analyzer.first_conjunctions.count(), 0);
}

TEST_F(ActionTest, PredicatesOnItems) {
  EXPECT_STREQ(chart.eval("(root (ident))", b).text(), "b");
  EXPECT_EQ(chart.eval("(lexitem-length)", bc).number(), 2);
  EXPECT_STREQ(chart.eval("(surform)", bc).text(), "b c");
  LexItem* empty = chart.add(3, 2, "trace");
  EXPECT_FALSE(chart.eval("(surform)", empty));
  EXPECT_EQ(chart.eval("(lexitem-length)", empty).number(), 0);
  EXPECT_FALSE(chart.eval("(is-deleted)", b));
  EXPECT_FALSE(chart.eval("(no-alternative (comp (root) (str= b)))", b)) << "itself counts";
  EXPECT_EQ(root_of(chart.eval("(no-alternative (comp (root) (str= c)))", b)), "b");
  b->affixes.append("ed");
  EXPECT_EQ(root_of(chart.eval("(ending ed)", b)), "b");
  EXPECT_FALSE(chart.eval("(ending e)", b));
  EXPECT_FALSE(chart.eval("(ending)", b));
}

TEST(ItemForms, CapitalisedNamesMayHoldShortWords) {
  Chart chart("Bank of the West near Town then I");
  auto cap = [&](int low, int high) {
    return static_cast<bool>(chart.eval("(cap)", chart.make(low, high, "x")));
  };
  EXPECT_TRUE(cap(1, 4));
  EXPECT_FALSE(cap(1, 2)) << "two words are too few";
  EXPECT_FALSE(cap(4, 6)) << "near is too long";
  EXPECT_TRUE(cap(1, 1));
  EXPECT_FALSE(cap(2, 1)) << "an empty item";
  EXPECT_TRUE(cap(8, 8));
}

TEST_F(ActionTest, AccessorsOnMatches) {
  auto match = Match::of_parts(&chart.analyzer, 1, 3, nullptr,
                               {chart.match(1, 1, a), chart.match(2, 3, bc)});
  EXPECT_STREQ(chart.eval("(matching-word)", match).text(), "a b c");
  EXPECT_STREQ(chart.eval("($ -1 (matching-word))", match).text(), "b c");
  EXPECT_FALSE(chart.eval("($ 99999999999)", match));
  EXPECT_FALSE(chart.eval("(litem)", match));
  EXPECT_FALSE(chart.eval("(matching-word)", chart.match(2, 1)));
  EXPECT_STREQ(chart.eval("(matching-word)", chart.match(0, 1)).text(), "a");
  EXPECT_FALSE(chart.eval("(matching-word)", chart.match(5, 5)));
  chart.eval("(foreach-match-component (set-weight (litem) (high)))", match);
  EXPECT_EQ(a->weight, 1);
  EXPECT_EQ(bc->weight, 3);
  EXPECT_EQ(errors_of([&] { EXPECT_FALSE(chart.eval("(litem)", a)); }).substr(0, 42),
            "litem received a wrong type of argument:'L");
}

TEST_F(ActionTest, TheMixedCaseFlag) {
  auto match = chart.match(1, 1);
  EXPECT_TRUE(chart.eval("(analyzer (is-mixed-case))", match));
  EXPECT_EQ(chart.eval("(analyzer (set-mixed-case))", match).number(), 1);
  chart.eval("(analyzer (set-mixed-case 0off))", match);
  EXPECT_EQ(chart.analyzer.mixed_case, 0);
  EXPECT_FALSE(chart.eval("(analyzer (is-mixed-case))", match));
  chart.eval("(analyzer (set-mixed-case on))", match);
  EXPECT_EQ(chart.analyzer.mixed_case, 1);
}

}  // namespace
}  // namespace torvane
