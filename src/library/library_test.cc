// The library as a program uses it: through its public headers.
#include <gtest/gtest.h>
#include <pthread.h>
#include <torvane/torvane.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "support/scratch_folder.h"

namespace {

const torvane::Options kShipped{TORVANE_SOURCE "/data", "", 0};

torvane::Engine& english() {
  static torvane::Engine engine("english", kShipped);
  return engine;
}

std::string text_at(const std::string& text, torvane::Span bytes) {
  return text.substr(bytes.begin, bytes.end - bytes.begin);
}

TEST(LibraryTest, WordsKnowWhatTheyAreAndWhereTheyStand) {
  const std::string text =
      "\xef\xbb\xbf  Él isn’t “here”.\r\n\r\nMr. Brown\nleft  at 5 p.m. yesterday. Dogs bark.";
  const torvane::Document document = english().parse(text);
  ASSERT_TRUE(document) << document.error();
  ASSERT_EQ(document.size(), 3U);
  std::string words;
  for (torvane::Sentence sentence : document) {
    for (torvane::Word word : sentence) {
      EXPECT_EQ(text_at(text, word.bytes()), word.form());
      words += text_at(text, word.bytes());
    }
    EXPECT_EQ(sentence.bytes().begin, sentence[0].bytes().begin);
    EXPECT_EQ(sentence.bytes().end, sentence[sentence.size() - 1].bytes().end);
  }
  EXPECT_EQ(words, "Élisn’t“here”.Mr.Brownleftat5p.m.yesterday.Dogsbark.");
  const torvane::Sentence last = document[2];
  EXPECT_EQ(last.text(), "Dogs bark.");
  EXPECT_EQ(last[0].lemma(), "dog");
  EXPECT_EQ(last[0].upos(), "NOUN");
  EXPECT_EQ(last[0].xpos(), "NN");
  EXPECT_EQ(last[0].features(), "Number=Plur");
  EXPECT_EQ(last[0].relation(), "nsubj");
  EXPECT_EQ(last[0].head(), 2);
  EXPECT_EQ(last[1].head(), 0);
  EXPECT_EQ(last.parts(), 1);
  EXPECT_TRUE(document[1].starts_paragraph());
  EXPECT_FALSE(last.starts_paragraph());
  // Characters, not bytes: a mark, two blanks, and the first word.
  EXPECT_EQ(document[0][0].characters().begin, 3U);
  EXPECT_EQ(document[0][0].characters().end, 5U);
  EXPECT_EQ(last[1].characters().end - last[1].characters().begin, 4U);
}

TEST(LibraryTest, BytesThatAreNoTextStandWhereTheyStood) {
  using namespace std::string_literals;
  const std::string text = "a\xff\xfe dog \0 b\xc3 barks \xe2\x80.\n\x80\n"s;
  for (const char* kind : {"text", "lines", "tokens"}) {
    const torvane::Document document = english().parse(text, kind);
    ASSERT_TRUE(document);
    std::size_t at = 0;
    for (torvane::Sentence sentence : document)
      for (torvane::Word word : sentence) {
        EXPECT_LE(at, word.bytes().begin) << kind;
        EXPECT_LT(word.bytes().begin, word.bytes().end) << kind;
        at = word.bytes().end;
      }
    EXPECT_LE(at, text.size());
    EXPECT_GT(at, 20U) << kind;
  }
}

TEST(LibraryTest, OneSentenceGivenWordsAndTreesThatWereRead) {
  EXPECT_EQ(english().parse_sentence("Dogs bark. Cats sleep.").size(), 1U);
  const torvane::Document words = english().parse_words({"Do", "n't", "", "sleep", "!"});
  ASSERT_EQ(words.size(), 1U);
  EXPECT_EQ(words[0].size(), 5U);
  EXPECT_EQ(words[0][1].form(), "n't");
  EXPECT_EQ(english().parse_words({}).size(), 1U);
  EXPECT_EQ(english().parse("").size(), 0U);

  const std::string conllu = english().parse("Dogs bark.").to_conllu();
  const torvane::Document read = torvane::Document::read("conllu", conllu);
  EXPECT_TRUE(read) << read.error();
  EXPECT_EQ(read.to_conllu(), conllu);
  EXPECT_EQ(read[0].to("brackets"), "(root (nsubj Dogs) bark (punct .))\n");
  EXPECT_EQ(english().parse(conllu, "conllu").to_conllu(), conllu);
  EXPECT_EQ(read.to("nosuch"), std::nullopt);

  const torvane::Document half = torvane::Document::read("conllu", "1\tx\n\n" + conllu);
  EXPECT_FALSE(half);
  EXPECT_EQ(half.error(), "1: 2 columns, not 10");
  EXPECT_EQ(half.size(), 1U);
  EXPECT_EQ(torvane::Document::read("nosuch", conllu).error(),
            "there is no format nosuch to be read");
  EXPECT_EQ(english().parse("x", "nosuch").error(), "there is no kind of text nosuch");
}

TEST(LibraryTest, WhatIsWrongWithAGrammarIsAValue) {
  const torvane::ScratchFolder folder;
  const torvane::Engine none("nosuch", kShipped);
  EXPECT_FALSE(none);
  EXPECT_EQ(none.error().find("no grammar nosuch in "), 0U) << none.error();
  EXPECT_EQ(torvane::Engine("english", {kShipped.data, "nosuch", 0}).error(),
            "the grammar english has no style nosuch");
  folder.write("small.lsp", "(nosuch) (echo hello)");
  torvane::Engine small(folder / "small.lsp");
  EXPECT_EQ(small.error(), "the grammar makes no parser\nunknown function nosuch\n\nhello\n");
  EXPECT_EQ(small.parse("a b").error(), small.error());
  EXPECT_EQ(small.parse("a b").size(), 0U);
  folder.write("ends.lsp", "(load english/english.lsp) (exit)");
  EXPECT_EQ(std::string(torvane::Engine(folder / "ends.lsp", kShipped).error()).substr(0, 27),
            "the grammar asks for the en");
  folder.write("talks.lsp", "(load english/english.lsp) (echo hello)");
  torvane::Engine talks(folder / "talks.lsp", kShipped);
  ASSERT_TRUE(talks) << talks.error();
  EXPECT_EQ(talks.messages(), "hello\n");
  EXPECT_EQ(talks.messages(), "");
}

std::string parsed(torvane::Engine& engine, const std::vector<std::string>& sentences) {
  std::string all;
  for (const std::string& sentence : sentences) all += engine.parse(sentence).to_conllu();
  return all;
}

const std::vector<std::string> kSentences = {
    "The cat sat on the mat.", "She said that he had seen it.", "The old dog that barked slept.",
    "Nobody knows what the teacher wants to buy."};

TEST(LibraryTest, SeveralEnginesAndThreads) {
  torvane::Engine other("english", {kShipped.data, "grammar", 0});
  const std::string content = parsed(english(), kSentences), grammar = parsed(other, kSentences);
  EXPECT_NE(content, grammar);
  std::vector<std::string> found(4);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < found.size(); ++i)
    threads.emplace_back([&, i] { found[i] = parsed(i % 2 == 0 ? english() : other, kSentences); });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(found, std::vector<std::string>({content, grammar, content, grammar}));
}

// The guards on recursion must not cut what a thread with a small stack asks for.
TEST(LibraryTest, AThreadWithASmallStackGetsTheSame) {
  struct Work {
    std::string found;
  } work;
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, std::size_t{512} << 10);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    torvane::Engine engine("english", kShipped);
    static_cast<Work*>(argument)->found = parsed(engine, kSentences);
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  EXPECT_EQ(work.found, parsed(english(), kSentences));
}

TEST(LibraryTest, ReasonsAreAnObject) {
  const std::string pair = english().why("The dogs bark.", 1, 3).value_or("");
  EXPECT_NE(pair.find("\"answer\":{\"kind\":\"dearer\""), pair.npos) << pair;
  const std::string none = english().why("The dogs bark.", 1, 99).value_or("");
  EXPECT_NE(none.find("\"fault\":"), none.npos) << none;
  EXPECT_NE(english().why("").value_or("").size(), 0U);
}

TEST(LibraryTest, NullsOfC) {
  torvane_close(nullptr);
  torvane_document_free(nullptr);
  torvane_free(nullptr);
  EXPECT_STREQ(torvane_engine_error(nullptr), "there is no engine");
  torvane_document* document = torvane_parse(nullptr, nullptr, 0);
  EXPECT_STREQ(torvane_document_error(document), "there is no engine");
  EXPECT_EQ(torvane_document_sentence(document, 0), nullptr);
  EXPECT_EQ(torvane_document_word(document, 0, 0), nullptr);
  EXPECT_EQ(torvane_document_write(document, nullptr, nullptr), nullptr);
  EXPECT_EQ(torvane_why(nullptr, nullptr, 0, 1, 2, nullptr), nullptr);
  torvane_document_free(document);
  // A program that was built when there were fewer options.
  torvane_options older = TORVANE_OPTIONS;
  older.size = offsetof(torvane_options, style);
  older.data = kShipped.data.c_str();
  older.style = "nosuch";
  torvane_engine* engine = torvane_open(nullptr, &older);
  EXPECT_EQ(torvane_engine_error(engine), nullptr);
  torvane_close(engine);
}

}  // namespace
