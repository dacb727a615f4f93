#include "engine/engine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/sanitizer.h"
#include "support/scratch_folder.h"

namespace torvane {
namespace {

/// An engine whose streams are texts.
class Speaker {
 public:
  explicit Speaker(const char* folder = nullptr) {
    if (folder) engine.start(folder);
  }
  std::string tree(const char* sentence) {
    SentenceTree tree;
    engine.parse(sentence, tree);
    std::ostringstream text;
    print_tree(text, tree.root);
    return text.str();
  }
  std::vector<std::string> trees(const std::vector<const char*>& sentences) {
    std::vector<std::string> all;
    for (const char* sentence : sentences) all.push_back(tree(sentence));
    return all;
  }

  std::istringstream in;
  std::ostringstream out, err;
  Engine engine{{&in, &out, &err}};
};

constexpr const char* kSmallGrammar =
    "(load english/attributes.lsp)"
    "(make-lexicon words 101)"
    "(lex words (the (avm ((cat d)))) (cat (avm ((cat n)))) (sleeps (avm ((cat v)))))"
    "(make-lex-analyzer analyser :lexicon words)"
    "(def-torvane-parser parser :attribute-vector-type syn :lexical-analyzer analyser"
    "  :lexical-attributes () :show-attributes (cat) :default-percolating-attributes ()"
    "  :weights-of-words (int 10))"
    "(init-attributes)"
    "(def-category Det) (def-category N) (def-category V)"
    "(def-modifiers N (? (Det (dep-type det))) (:head))"
    "(def-modifiers V (? (N (dep-type subj))) (:head))"
    "(roots (V))";

const std::vector<const char*> kEnglish = {
    "The cat sat on the mat.", "She said that he had seen it.", "The old dog that barked slept.",
    "Nobody knows what the teacher wants to buy."};
const std::vector<const char*> kSmall = {"the cat sleeps", "cat sleeps", "sleeps the cat"};

class EngineTest : public testing::Test {
 protected:
  EngineTest() {
    // The shipped start-up file names its files relative to a folder that holds `data`.
    std::filesystem::current_path(TORVANE_SOURCE);
    folder_.write("torvane.lsp", kSmallGrammar);
    small_ = folder_ / "" + ";./data";
  }

  ScratchFolder folder_;
  std::string small_;
};

TEST_F(EngineTest, TwoGrammarsInTurnGiveWhatEachGivesAlone) {
  const auto english_alone = Speaker("./data").trees(kEnglish);
  const auto small_alone = Speaker(small_.c_str()).trees(kSmall);
  EXPECT_NE(english_alone[0].find("sat\t V\t*"), std::string::npos) << english_alone[0];
  EXPECT_NE(small_alone[0].find("cat\t N\t3"), std::string::npos) << small_alone[0];
  Speaker english("./data"), small(small_.c_str());
  for (std::size_t i = 0; i < kEnglish.size(); ++i) {
    EXPECT_EQ(english.tree(kEnglish[i]), english_alone[i]);
    EXPECT_EQ(small.tree(kSmall[i % kSmall.size()]), small_alone[i % kSmall.size()]);
  }
  EXPECT_EQ(english.err.str() + small.err.str(), "");
}

TEST_F(EngineTest, AndInTwoThreadsAtOnce) {
  const auto english_alone = Speaker("./data").trees(kEnglish);
  const auto small_alone = Speaker(small_.c_str()).trees(kSmall);
  auto repeat = [](const char* folder, const std::vector<const char*>& sentences, int times,
                   std::vector<std::string>& last, bool& same) {
    Speaker speaker(folder);
    last = speaker.trees(sentences);
    same = true;
    for (int i = 1; i < times; ++i) same = same && speaker.trees(sentences) == last;
  };
  std::vector<std::string> english, small;
  bool english_same = false, small_same = false;
  std::thread first([&] { repeat("./data", kEnglish, 10, english, english_same); });
  std::thread second([&] { repeat(small_.c_str(), kSmall, 300, small, small_same); });
  // A third one, of the grammar of the first.
  const auto third = Speaker("./data").trees(kEnglish);
  first.join();
  second.join();
  EXPECT_EQ(english, english_alone);
  EXPECT_EQ(third, english_alone);
  EXPECT_EQ(small, small_alone);
  EXPECT_TRUE(english_same && small_same);
}

TEST_F(EngineTest, AnEngineMadeInOneThreadServesInAnother) {
  Speaker speaker(small_.c_str());
  const std::string here = speaker.tree(kSmall[0]);
  std::string there;
  std::thread([&] { there = speaker.tree(kSmall[0]); }).join();
  EXPECT_EQ(there, here);
}

TEST_F(EngineTest, WhatIsWrittenGoesToTheStreamsGiven) {
  Speaker speaker, other;
  speaker.engine.world().interpreter.prompt = false;
  speaker.engine.run("(echo hello) (nosuch) (eval (comp (str there) (print-str)))");
  EXPECT_EQ(speaker.out.str(), "hello\nthere");
  EXPECT_EQ(speaker.err.str(), "unknown function nosuch\n\n");
  EXPECT_EQ(other.out.str() + other.err.str(), "");
}

long resident_pages() {
  long size = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident;
}

TEST_F(EngineTest, AThousandEnginesLeaveMemoryLevel) {
  // There freed memory waits for a while, and what is lost is seen at the end.
  if (kAddressSanitizer) GTEST_SKIP();
  auto some = [&](int count) {
    for (int i = 0; i < count; ++i) Speaker(small_.c_str()).tree(kSmall[0]);
    return resident_pages();
  };
  const long before = some(100);
  EXPECT_LT(some(900) - before, 512);  // pages of 4 KB: 2.3 KB an engine would pass
}

TEST_F(EngineTest, OneThatFailedHalfWayIsDestroyed) {
  for (const char* forms :
       {"(load english/attributes.lsp) (make-lexicon words 101) (lex words (the (avm ((cat d))))",
        "(def-att-list syn (defattribute cat BinAtt) (nosuch)) (declare-var x) (eval (setq x (list "
        "(make-av (+cat)) (pred (get-val x)))))",
        "(load english/attributes.lsp) (def-torvane-parser p :attribute-vector-type syn)",
        "(defun f (x) (f (get-val x))) (defmacro m (a) (m a)) (m 1) (eval (f (int 1)))",
        "(declare-var d (str2deps \"(1 (a ~ X *))\")) (defun g (x) (get-val x)) (load "
        "torvane.lsp"}) {
    folder_.write("torvane.lsp", forms);
    Speaker speaker(small_.c_str());
    speaker.tree("the cat");
  }
}

std::vector<std::string> forms_of(const Sentence& sentence) {
  std::vector<std::string> forms;
  for (const SentenceWord& word : sentence.words) forms.push_back(word.form);
  return forms;
}

TEST_F(EngineTest, TokensAreCutWhereTheGrammarSaysButNotChanged) {
  folder_.write("joints.lsp",
                std::string(kSmallGrammar) +
                    "(defun word-joints () (cond ((str= thecat) (str \"the cat\"))"
                    " ((str= sleeps) (str \"snores\")) ((str= ab) (str a)) ((str= a) (str ab))))");
  Speaker speaker;
  ASSERT_EQ(speaker.engine.load({folder_ / "joints.lsp"}, {"./data"}), "");
  const Sentence sentence = speaker.engine.parse("thecat  sleeps ab a");
  EXPECT_EQ(forms_of(sentence), (std::vector<std::string>{"the", "cat", "sleeps", "ab", "a"}));
  EXPECT_EQ(sentence.text, "thecat  sleeps ab a");
  EXPECT_FALSE(sentence.words[0].space_after);
  EXPECT_EQ(sentence.words[0].head, 2);
  EXPECT_EQ(sentence.words[1].head, 3);
}

}  // namespace
}  // namespace torvane
