#include "shell/tokenizer.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace torvane {
namespace {

using Tokens = std::vector<std::string>;

Tokens all_tokens(TokenizerBase& tokenizer) {
  Tokens tokens;
  while (char* token = tokenizer.next_token()) tokens.emplace_back(token, tokenizer.token_length());
  return tokens;
}

Tokens config_tokens(const std::string& text) {
  auto tokenizer = Tokenizer::make_default();
  tokenizer->set_string_input(text.data(), static_cast<long>(text.size()));
  return all_tokens(*tokenizer);
}

TEST(Tokenizer, SeparatesByClasses) {
  EXPECT_EQ(config_tokens(""), Tokens{});
  EXPECT_EQ(config_tokens(" \n"), Tokens{" \n"});
  EXPECT_EQ(config_tokens("a,b"), Tokens{"a,b"});
  EXPECT_EQ(config_tokens("a, b"), (Tokens{"a", ",", " ", "b"}));
  EXPECT_EQ(config_tokens("a,"), (Tokens{"a", ","}));
  EXPECT_EQ(config_tokens("a,,b"), (Tokens{"a", ",", ",", "b"}));
  EXPECT_EQ(config_tokens("(x)y\"z\""), (Tokens{"(", "x", ")", "y", "\"z\""}));
  EXPECT_EQ(config_tokens(std::string("a\0b", 3)), (Tokens{"a", std::string("\0b", 2)}));
}

TEST(Tokenizer, EndsItsInputOnce) {
  auto tokenizer = Tokenizer::make_default();
  tokenizer->set_string_input("  ", -1);
  EXPECT_EQ(tokenizer->next_significant_token(), nullptr);
  EXPECT_FALSE(tokenizer->more_input);
  EXPECT_EQ(tokenizer->next_token(), nullptr);
  tokenizer->set_string_input("(a)", -1);
  while (tokenizer->next_token()) continue;
  EXPECT_FALSE(tokenizer->more_input);
}

TEST(Tokenizer, KnowsMoreInputBehindAParenthesisOnly) {
  auto tokenizer = Tokenizer::make_default();
  tokenizer->set_string_input("a)", -1);
  EXPECT_STREQ(tokenizer->next_token(), "a");
  EXPECT_STREQ(tokenizer->next_token(), ")");
  EXPECT_TRUE(tokenizer->more_input);
}

TEST(Tokenizer, TokensStayValidTogether) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += "w" + std::to_string(i) + " ";
  auto tokenizer = Tokenizer::make_default();
  Ref<Stream> stream = Stream::from_text(text.data(), text.size());
  tokenizer->set_input(stream.get());
  std::vector<char*> tokens;
  while (char* token = tokenizer->next_significant_token()) tokens.push_back(token);
  ASSERT_EQ(tokens.size(), 5000U);
  EXPECT_STREQ(tokens[0], "w0");
  EXPECT_STREQ(tokens[4999], "w4999");
}

// Every place of the buffer's edge: in a word, a comma, a quote, an escape.
TEST(Tokenizer, DoesNotSeeTheEdgeOfItsBuffer) {
  const std::string text = "word,word, \"quo\\\"ted\" ;comment\nlast";
  Tokens wanted = config_tokens(text);
  for (int size = 1; size < 40; ++size) {
    Tokenizer tokenizer(" \t\n\r", "();", "();,", "\"", '\\', ';', 16, size);
    Ref<Stream> stream = Stream::from_text(text.data(), text.size());
    tokenizer.set_input(stream.get());
    EXPECT_EQ(all_tokens(tokenizer), wanted) << size;
  }
}

TEST(Tokenizer, GoesOnToItsStreamBehindAText) {
  auto tokenizer = Tokenizer::make_default();
  Ref<Stream> stream = Stream::from_text("from the stream", 15);
  tokenizer->set_input(stream.get());
  tokenizer->set_string_input("text ", -1);
  EXPECT_EQ(all_tokens(*tokenizer), (Tokens{"text", " ", "from", " ", "the", " ", "stream"}));
}

TEST(Tokenizer, ReadsNoFurtherThanTheLine) {
  Ref<Stream> stream = Stream::from_text("one two\nrest", 12);
  auto tokenizer = Tokenizer::make_default();
  tokenizer->set_input(stream.get());
  EXPECT_STREQ(tokenizer->next_token(), "one");
  std::string rest;
  *stream->in() >> rest;
  EXPECT_EQ(rest, "rest");
}

TEST(Tokenizer, GivesPushedBackTokensFirst) {
  auto tokenizer = Tokenizer::make_default();
  tokenizer->set_string_input("c ", -1);
  tokenizer->push_back(const_cast<char*>("a"));
  tokenizer->push_back(const_cast<char*>("bb"));
  EXPECT_STREQ(tokenizer->next_token(), "a");
  EXPECT_STREQ(tokenizer->next_significant_token(), "bb");
  EXPECT_EQ(tokenizer->token_length(), 2U);
  EXPECT_STREQ(tokenizer->next_token(), "c");
}

TEST(Tokenizer, CopiesItsClassesButNotItsInput) {
  Tokenizer original(" ", "<", ".", "' |x", '^', '#', 64, 8);
  original.set_string_input("lost", -1);
  original.long_quotes.append(new LongQuote{"/*", "*/"});
  original.push_back(const_cast<char*>("lost"));
  Tokenizer copy(static_cast<const TokenizerBase&>(original));
  EXPECT_TRUE(copy.more_input);
  EXPECT_EQ(copy.next_token(), nullptr);
  copy.set_string_input("a.b. 'q^'q'<|zx#c", -1);
  EXPECT_EQ(all_tokens(copy), (Tokens{"a.b", ".", " ", "'q'q'", "<", "|zx", "#c"}));
  EXPECT_EQ(copy.buffer_size, 8);
}

TEST(Tokenizer, SeparatorModeEndsInEmptyTokens) {
  Tokenizer tokenizer("\n\n", 64, 8);
  tokenizer.set_string_input("a\nb\n\n\n\nrest", -1);
  EXPECT_STREQ(tokenizer.next_token(), "a\nb\n\n");
  EXPECT_STREQ(tokenizer.next_token(), "\n\n");
  EXPECT_STREQ(tokenizer.next_token(), "rest");
  EXPECT_STREQ(tokenizer.next_token(), "");
  EXPECT_FALSE(tokenizer.more_input);
}

TEST(SocketTokenizer, ReadsItsDescriptor) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  ASSERT_EQ(write(ends[1], "a b", 3), 3);
  close(ends[1]);
  SocketTokenizer tokenizer(" ", "", "", "", 0, 0, 64, 2);
  tokenizer.fd = ends[0];
  EXPECT_EQ(all_tokens(tokenizer), (Tokens{"a", " ", "b"}));
  EXPECT_FALSE(tokenizer.more_input);
  close(ends[0]);
  Ref<Stream> text = Stream::from_text("x", 1);
  tokenizer.set_input(text.get());
  EXPECT_EQ(tokenizer.next_token(), nullptr);
}

}  // namespace
}  // namespace torvane
