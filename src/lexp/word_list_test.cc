#include "lexp/word_list.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "lexp/expression_run.h"

namespace torvane {
namespace {

TEST(WordListTest, FindsEveryWordOfALongList) {
  WordList words(false);
  for (int i = 0; i < 200000; ++i) words.add(("Word" + std::to_string(i * 7919)).c_str());
  words.add("WORD0");
  EXPECT_EQ(words.count(), 200000);
  for (int i = 0; i < 200000; ++i) {
    std::string word = "wORd" + std::to_string(i * 7919);
    const char* stored = words.find(word);
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(stored[0], 'W');
  }
  EXPECT_EQ(words.find("word1"), nullptr);
  EXPECT_EQ(words.find(""), nullptr);
}

TEST(WordListTest, CaseCountsIfAsked) {
  WordList words(true);
  words.add("Aa");
  words.add("aa");
  EXPECT_EQ(words.count(), 2);
  EXPECT_STREQ(words.find("Aa"), "Aa");
  EXPECT_EQ(words.find("AA"), nullptr);
}

TEST(WordListTest, Suffixes) {
  WordList words(false);
  EXPECT_FALSE(words.holds_suffix_of("cats"));
  for (const char* word : {"s", "ES", "ness"}) words.add(word);
  EXPECT_TRUE(words.holds_suffix_of("cats"));
  EXPECT_TRUE(words.holds_suffix_of("dishes"));
  EXPECT_TRUE(words.holds_suffix_of("NESS"));
  EXPECT_FALSE(words.holds_suffix_of("nes-"));
  EXPECT_FALSE(words.holds_suffix_of(""));
  words.add("");
  EXPECT_TRUE(words.holds_suffix_of(""));
}

class WordListFormsTest : public testing::Test {
 protected:
  ExpressionRun run_;
};

TEST_F(WordListFormsTest, NamedLists) {
  run_.run("(make-word-list colours :hashsize 10 (red Green)) (add-to-word-list colours (blue))");
  EXPECT_EQ(run_.run("(foreach (RED green Blue pink) :eval"
                     " (comp (in :wordlist colours) (print-str :suffix \" \")))"),
            "red Green blue (null) ");
  EXPECT_EQ(
      run_.run("(foreach (dark-red redder) :eval (comp (suffix :wordlist colours) (print-str)))"),
      "dark-red(null)");
  run_.run("(make-word-list exact :case-sensitive (Red))");
  EXPECT_EQ(run_.run("(foreach (Red red) :eval (comp (in :wordlist exact) (print-str)))"),
            "Red(null)");
  // Words of a form that names a list go into that list.
  EXPECT_EQ(run_.run("(foreach (pink) :eval (comp (in :wordlist colours (Pink)) (print-str)))"
                     "(foreach (pink) :eval (comp (in :wordlist colours) (print-str)))"),
            "PinkPink");
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(WordListFormsTest, TablesGiveTheirOwnCopy) {
  EXPECT_EQ(run_.run("(foreach (RED) :eval (comp (in :hashsize 7 (red)) (print-str)))"
                     "(foreach (RED) :eval (comp (in (red)) (print-str)))"),
            "redRED");
}

TEST_F(WordListFormsTest, WrongNames) {
  run_.run(
      "(make-word-list) (make-word-list (a)) (add-to-word-list nolist (a)) (add-to-word-list)"
      "(make-word-list twice (a)) (make-word-list twice (b))");
  const std::string type = "(type=THashTableWithOrd<const char*, const char*>) is not found\n";
  EXPECT_EQ(run_.errors(),
            "expecting an atom. This is found instead:\n(a)\n"
            "The named object 'nolist' " +
                type + "The named object '' " + type + "Duplicate definition of twice\n");
  EXPECT_EQ(run_.run("(foreach (a b) :eval (comp (in :wordlist twice) (print-str)))"), "a(null)");
  EXPECT_EQ(run_.run("(foreach (a) :eval (comp (in :wordlist nolist (a)) (print-str)))"), "a");
  EXPECT_EQ(run_.run("(foreach (a) :eval (comp (in nofile.txt (a)) (print-str)))"), "a");
  EXPECT_EQ(run_.errors(),
            "The named object 'nolist' " + type + "The file nofile.txt cannot be opened\n");
}

TEST_F(WordListFormsTest, BinaryFilesHoldWordsLikeAnyOther) {
  std::string name = testing::TempDir() + "words" + std::to_string(getpid());
  std::ofstream(name, std::ios::binary) << std::string("a\0b\n\0\xff\n\n\xff\xfe\nlast", 15);
  EXPECT_EQ(run_.run("(foreach (a last \"\xff\xfe\" \"\") :eval (if (in \"" + name +
                     "\") (print-str :prefix + :suffix \"\") (print-str :prefix -)))"),
            "+a+last+\xff\xfe-");
  unlink(name.c_str());
}

TEST_F(WordListFormsTest, Tokens) {
  run_.run("(def-tokenizer \" \" \"\" \"\" \"\" \"\" \"\" :name words)");
  run_.run("(def-tokenizer :name bars :separator |)");
  EXPECT_EQ(
      run_.run("(foreach (\"a quick Fox\" \"slow ox\" \"\") :eval"
               " (comp (contain-tokens :tokenizer words (fox ox)) (print-str :suffix \" \")))"),
      "Fox ox (null) ");
  EXPECT_EQ(run_.run("(foreach (\"a Fox\") :eval"
                     " (comp (contain-tokens :case :tokenizer words (fox)) (print-str)))"),
            "(null)");
  EXPECT_EQ(run_.run("(foreach (\"a|b|c\") :eval (comp (contain-tokens :tokenizer bars (b|))"
                     " (contain-tokens :tokenizer bars (b|)) (print-str)))"),
            "b|");
  EXPECT_EQ(run_.run("(foreach (a) :eval (comp (contain-tokens (a)) (print-str)))"), "(null)");
  EXPECT_EQ(run_.errors(), "");
}

}  // namespace
}  // namespace torvane
