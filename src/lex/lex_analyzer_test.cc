#include "lex/lex_analyzer.h"

#include "lex/lexical_rules.h"
#include "lex/lexicon_fixture.h"
#include "shell/named_objects.h"

namespace torvane {
namespace {

class LexAnalyzerTest : public testing::Test {
 protected:
  /// Analyses a sentence of blank-separated words; the chart as it is printed.
  std::string analyze(const std::string& sentence) {
    analyzer.reset();
    std::istringstream in(sentence);
    for (std::string word; in >> word;) {
      analyzer.add_gap(" ");
      analyzer.add_word(word.c_str());
    }
    analyzer.analyze();
    return chart();
  }
  std::string chart() const {
    std::ostringstream out;
    analyzer.print(out);
    return out.str();
  }
  LexItem* make(int low, int high, const char* root = "r", const char* text = "m") {
    register_kinds();
    StrMeaning meaning("g");
    meaning.text = text;
    meaning.has_text = true;
    return analyzer.make_item(root, &meaning, low, high, {});
  }
  LexItem* add(int low, int high, const char* root = "r") {
    return analyzer.add_item(make(low, high, root), 1);
  }
  static std::string spans(const Slist<LexItem*>& items) {
    std::string text;
    for (const LexItem* item : items)
      text += "[" + std::to_string(item->low) + "," + std::to_string(item->high) + "]" +
              or_empty(item->root);
    return text;
  }

  Words words;
  LexAnalyzer analyzer{&words, 4};
};

TEST_F(LexAnalyzerTest, WordsBecomeItemsOfAllTheirReadings) {
  words.read("(dog (g noun) (h verb)) (dogs (g name))");
  words.set_endings("((p \"\" base) (p s pl))");
  EXPECT_EQ(analyze("The DOGS"),
            "[2,2] DOGS name (affixes base) w=0 hd=2 (root dogs)\n"
            "[2,2] DOGS noun (affixes pl) w=0 hd=2 (root dog)\n"
            "[2,2] DOGS verb (affixes pl) w=0 hd=2 (root dog)\n");
}

TEST_F(LexAnalyzerTest, PhrasesAreFoundFromTheirHead) {
  words.read(
      "(give (g a)) (give up (g b)) (York , New (g c)) (x-ray (g no)) (look x-ray up (g d))");
  EXPECT_EQ(analyze("new york Gives give UP"),
            "[1,2] new york c w=0 hd=1 (root New York)\n"
            "[4,4] give a w=0 hd=4 (root give)\n"
            "[4,5] give UP b w=0 hd=4 (root give up)\n");
  EXPECT_EQ(analyze("look x - ray up"), "[1,5] look x - ray up d w=0 hd=1 (root look x-ray up)\n");
  EXPECT_EQ(analyze("york new"), "");
  EXPECT_EQ(analyze("old york"), "");
  EXPECT_EQ(analyze("give"), "[1,1] give a w=0 hd=1 (root give)\n");
}

TEST_F(LexAnalyzerTest, AHeadlinePhraseWithoutEntryIsReported) {
  words.read("(give (g a) (phrases (give in)))");
  EXPECT_EQ(complaints([&] { analyze("give in"); }), "Phrasal entry 'give in' is not found\n");
}

TEST_F(LexAnalyzerTest, PhrasesThatLeadBackAreExpandedOnce) {
  words.read(
      "(a (g x) (phrases (a) (a b))) (a b (g y) (phrases (a) (a b) (b , a)))"
      " (b , a (g z) (phrases (a b) (b , a)))");
  EXPECT_EQ(analyze("a b"),
            "[1,1] a x w=0 hd=1 (root a)\n[1,2] a b y w=0 hd=1 (root a b)\n"
            "[1,2] a b z w=0 hd=1 (root a b)\n");
  std::string row;
  for (int i = 0; i < 60; ++i) row += "a ";
  words.read(
      "(a (phrases (a , a))) (a , a (g w) (phrases (a , a) (a a) (a))) (a a (g v) (phrases (a , "
      "a)))");
  analyze(row);
  EXPECT_FALSE(analyzer.ending_at(60).empty());
}

TEST_F(LexAnalyzerTest, AHeadOfThousandsOfPhrases) {
  std::string text = "(go (g a))";
  for (int i = 0; i < 20000; ++i) text += "(go x" + std::to_string(i) + " (g p))";
  words.read(text);
  std::string sentence;
  for (int i = 0; i < 100; ++i) sentence += "go x" + std::to_string(i * 100) + " ";
  analyze(sentence);
  EXPECT_EQ(analyzer.all_items.count(), 200);
}

TEST_F(LexAnalyzerTest, PunctuationComesOffTheLastWord) {
  words.read("(etc. (g a)) (dog (g b)) (. (g c)) ($5 (g d))");
  EXPECT_EQ(analyze("etc."), "[1,1] etc. a w=0 hd=1 (root etc.)\n");
  EXPECT_EQ(analyze("dog."), "[1,1] dog b w=0 hd=1 (root dog)\n[2,2] . c w=0 hd=2 (root .)\n");
  EXPECT_EQ(analyze("$5."), "[1,1] $5 d w=0 hd=1 (root $5)\n[2,2] . c w=0 hd=2 (root .)\n");
  analyze("a. ... !");
  EXPECT_EQ(analyzer.word_count(), 4);
  analyze("dog\xC3\xA9");  // what is no letter of ASCII is cut off too
  EXPECT_STREQ(analyzer.word(2), "\xC3\xA9");
}

TEST_F(LexAnalyzerTest, TheSplitMovesAllThatBelongsToLaterWords) {
  words.read("(dog (g b))");
  analyzer.focus_marker = '*';
  analyzer.pos_marker = '/';
  analyzer.add_word("dog.)/n");
  analyzer.add_gap("  ");
  analyzer.add_word("*!/p/q");
  analyzer.add_word("*");
  analyzer.analyze();
  EXPECT_STREQ(analyzer.word(1), "dog");
  EXPECT_STREQ(analyzer.word(2), ".)");
  EXPECT_STREQ(analyzer.word(3), "!");
  EXPECT_STREQ(analyzer.gap(2), "");
  EXPECT_STREQ(analyzer.gap(3), "  ");
  EXPECT_STREQ(analyzer.pos_tags[1], "n");
  EXPECT_EQ(analyzer.pos_tags[2], nullptr);
  EXPECT_STREQ(analyzer.pos_tags[3], "p/q");
  EXPECT_FALSE(analyzer.focus.test(2));
  EXPECT_TRUE(analyzer.focus.test(3));
  EXPECT_TRUE(analyzer.focus.test(4));
  EXPECT_STREQ(analyzer.surface(1, 3), "dog.) !");
}

TEST_F(LexAnalyzerTest, GapsStandBeforeWords) {
  analyzer.add_gap("<");
  analyzer.add_gap(" ");
  analyzer.add_word("a");
  analyzer.add_word("b");
  analyzer.add_gap("\n");
  analyzer.add_word("c");
  analyzer.add_gap(" ");
  EXPECT_STREQ(analyzer.gap(1), "< ");
  EXPECT_STREQ(analyzer.gap(2), "");
  EXPECT_STREQ(analyzer.gap(3), "\n");
  EXPECT_STREQ(analyzer.gap(0), "");
  EXPECT_STREQ(analyzer.gap(99), "");
  EXPECT_STREQ(analyzer.surface(1, 3), "ab c");
  EXPECT_STREQ(analyzer.surface(-5, 99), "ab c");
  EXPECT_STREQ(analyzer.surface(2, 1), "");
  EXPECT_EQ(analyzer.surface(7, 7), nullptr);
  EXPECT_EQ(analyzer.word(0), nullptr);
}

TEST_F(LexAnalyzerTest, ChartListsAreOrdered) {
  analyze("a b c d");
  for (int low : {2, 1, 3}) add(low, 3);
  add(4, 3, "empty");
  add(2, 3, "second");
  EXPECT_EQ(spans(analyzer.ending_at(3)), "[3,3]r[2,3]r[2,3]second[1,3]r[4,3]empty");
  for (int high : {2, 4, 1}) add(2, high, "s");
  EXPECT_EQ(spans(analyzer.starting_at(2)), "[2,4]s[2,3]r[2,3]second[2,2]s[2,1]s");
  add(9, 9);  // beyond the sentence
  EXPECT_EQ(spans(analyzer.ending_at(9)), "[9,9]r");
}

TEST_F(LexAnalyzerTest, SpansOffTheChartAreRefused) {
  analyze("a");
  EXPECT_EQ(analyzer.add_item(nullptr, 1), nullptr);
  EXPECT_EQ(add(-1, 1), nullptr);
  EXPECT_EQ(add(0, -1), nullptr);
  EXPECT_EQ(add(3, 1), nullptr);
  EXPECT_EQ(add(100000, 100000), nullptr);
  EXPECT_EQ(analyzer.ends_at.size(), 3u);
}

TEST_F(LexAnalyzerTest, TheFirstOfEqualItemsStays) {
  analyze("a");
  LexItem* first = add(1, 1);
  EXPECT_EQ(add(1, 1), first);
  EXPECT_NE(analyzer.add_item(make(1, 1, "r", "other"), 1), first);
  EXPECT_NE(analyzer.add_item(make(1, 1), 0), first);
  LexItem* bare = analyzer.make_item("r", nullptr, 1, 1, {});
  EXPECT_EQ(analyzer.add_item(bare, 1), bare);
  EXPECT_EQ(analyzer.ending_at(1).length(), 4);
  // Entering an item again moves it; it never stands there twice.
  EXPECT_EQ(analyzer.add_item(bare, 1), bare);
  EXPECT_EQ(analyzer.ending_at(1).length(), 4);
}

TEST_F(LexAnalyzerTest, DeletingFindsAnItemUnderItsOldStart) {
  analyze("a b c");
  LexItem* item = add(1, 3);
  item->low = 2;
  EXPECT_EQ(spans(analyzer.starting_at(1)), "[2,3]r");
  analyzer.delete_item(item);
  EXPECT_TRUE(item->deleted);
  EXPECT_TRUE(analyzer.starting_at(1).empty());
  EXPECT_TRUE(analyzer.ending_at(3).empty());
}

TEST_F(LexAnalyzerTest, DeleteSmallerSparesWhatReachesOut) {
  analyze("a b c d");
  for (int low = 1; low <= 4; ++low)
    for (int high = low; high <= 4; ++high) add(low, high);
  analyzer.delete_smaller(2, 2);
  EXPECT_EQ(analyzer.ending_at(2).length(), 2);
  analyzer.delete_smaller(2, 4);
  std::string left;
  analyzer.for_each_item([&](const LexItem* item) {
    left += std::to_string(item->low) + std::to_string(item->high) + " ";
  });
  EXPECT_EQ(left, "11 12 13 24 14 ");
  analyzer.delete_smaller(1, 100);
  EXPECT_EQ(spans(analyzer.ending_at(4)), "[1,4]r");
  analyzer.delete_smaller(-3, 100);
  EXPECT_EQ(spans(analyzer.ending_at(4)), "");
}

TEST_F(LexAnalyzerTest, AResetForgetsTheSentence) {
  words.read("(dog (g a))");
  analyzer.pos_marker = '/';
  analyze("dog/x dog/y dog");
  LexItem* old = analyzer.all_items[0];
  analyzer.skipped.set(1);
  analyzer.reset();
  EXPECT_TRUE(old->deleted);
  EXPECT_EQ(old->root, nullptr);
  EXPECT_EQ(old->meaning, nullptr);
  EXPECT_EQ(analyzer.add_item(old, 0), nullptr);
  EXPECT_EQ(analyzer.word_count(), 0);
  EXPECT_FALSE(analyzer.skipped.test(1));
  EXPECT_EQ(analyze("dog"), "[1,1] dog a w=0 hd=1 (root dog)\n");
  EXPECT_EQ(analyzer.all_items[0], old);
  EXPECT_EQ(analyzer.pos_tags[1], nullptr);
}

TEST_F(LexAnalyzerTest, WordsBeyondTheLimitAreRefusedOnce) {
  std::string said = complaints([&] {
    for (int i = 0; i < LexAnalyzer::kMostWords + 100; ++i) {
      analyzer.add_gap(" ");
      analyzer.add_word("dog.");
    }
  });
  EXPECT_EQ(said, "The sentence has more than 32000 words: the rest is left out\n");
  analyzer.analyze();
  EXPECT_EQ(analyzer.word_count(), 32002);  // with the stop of the last word
}

TEST_F(LexAnalyzerTest, ATagKeepsItemsOfItsCategoryIfThereAreSome) {
  words.read("(dog (g a) (g b) (g c))");
  analyzer.pos_marker = '/';
  auto old = std::exchange(apply_lexical_rules, [](LexRuleList&, LexAnalyzer& chart) {
    chart.all_items[0]->category = "n";
    chart.all_items[2]->category = "n";
  });
  LexRuleList rules;
  analyzer.rules = &rules;
  EXPECT_EQ(analyze("dog/n dog/N"),
            "[1,1] n dog a w=0 hd=1 (root dog)\n[1,1] n dog c w=0 hd=1 (root dog)\n"
            "[2,2] dog a w=0 hd=2 (root dog)\n[2,2] dog b w=0 hd=2 (root dog)\n"
            "[2,2] dog c w=0 hd=2 (root dog)\n");
  apply_lexical_rules = old;
}

TEST_F(LexAnalyzerTest, ComponentsAreOrderedPrintedAndCopied) {
  analyze("a b c");
  LexItem* whole = make(1, 3);
  LexItem* part = make(2, 2, "p");
  EXPECT_TRUE(analyzer.add_component(whole, part));
  EXPECT_TRUE(analyzer.add_component(whole, make(1, 1, "q")));
  EXPECT_TRUE(analyzer.add_component(part, make(2, 2, "deep")));
  EXPECT_FALSE(analyzer.add_component(part, whole));
  EXPECT_FALSE(analyzer.add_component(part, part));
  EXPECT_FALSE(analyzer.add_component(nullptr, part));
  std::ostringstream out;
  LexItem* copy = analyzer.copy_item(*whole);
  part->root = "changed";
  analyzer.print_item(out, *copy, 1);
  EXPECT_EQ(out.str(),
            "  [1,3] a b c m w=0 hd=1 (root r)\n"
            "    [1,1] a m w=0 hd=1 (root q)\n"
            "    [2,2] b m w=0 hd=2 (root p)\n"
            "      [2,2] b m w=0 hd=2 (root deep)\n");
}

TEST_F(LexAnalyzerTest, SharedComponentsDoNotExplode) {
  analyze("a");
  LexItem* below = make(1, 1);
  for (int i = 0; i < 40; ++i) {
    LexItem* above = make(1, 1);
    analyzer.add_component(above, below);
    analyzer.add_component(above, below);
    below = above;
  }
  EXPECT_LE(analyzer.copy_item(*below)->components.length(), 2);
  EXPECT_LT(analyzer.all_items.count(), 200000);
}

TEST_F(LexAnalyzerTest, ExpressionsMayLookUpAndClearWhileItemsAreMade) {
  register_kinds();
  interpreter().load_string("(make-lexicon busy 11)");
  Lexicon* busy = find_object_as<Lexicon>("busy", "Lexicon", true);
  ASSERT_NE(busy, nullptr);
  LexAnalyzer chart(busy, 4);
  chart.meaning_selector =
      LExp::get_exp_from_text("(prog (exec-commands (clear-lexicon busy)) (ident))");
  chart.hook = LExp::get_exp_from_text("(exec-commands (lex busy (dog up (g z))))");
  std::istringstream in("(dog (g a) (g b)) (dog up (g c))");
  busy->load(in, 0);
  chart.add_word("dog");
  chart.add_word("up");
  complaints([&] { chart.analyze(); });
  EXPECT_EQ(chart.ending_at(1).length(), 2);
}

}  // namespace
}  // namespace torvane
