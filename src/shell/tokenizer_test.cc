#include "shell/tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace torvane {
namespace {

using std::string_view_literals::operator""sv;

struct Classes {
  const char* white;
  const char* start;
  const char* middle;
  const char* quote;
  char escape = 0, comment = 0;
};

constexpr Classes kConfig = {" \t\n\r", "();", "();,", "\"", '\\', ';'};
constexpr Classes kBlank = {" ", "", "", ""};
constexpr Classes kMiddle = {" \n", "", "-.", ""};
constexpr Classes kClosers = {" \n", "", "", "\" <> {^}^ ^^ |", '^'};
constexpr Classes kEscapes = {" \n", "()", ",", "\" '", '\\', '#'};
constexpr Classes kBareQuote = {" ", "", "", "\""};

/// The tokens, a bar before and behind each. Buffers of few bytes are filled again inside a token.
std::string tokens(TokenizerBase& tokenizer, std::string_view text) {
  Ref<Stream> stream = Stream::from_text(text.data(), text.size());
  tokenizer.set_input(stream.get());
  std::string all = "|";
  while (const char* token = tokenizer.next_token()) {
    if (tokenizer.token_length() == 0 && !tokenizer.more_input) break;
    all.append(token).append("|");
  }
  return all;
}

TEST(Tokenizer, CutsByItsClasses) {
  struct Case {
    const Classes& classes;
    std::string_view text;
    const char* want;
  };
  for (const auto& [classes, text, want] : {
           Case{kConfig, "", "|"},
           // A comma is a middle byte: it stays in a word, but not at its end.
           {kConfig, "a,b a, b\t,,(c)d", "|a,b| |a|,| |b|\t|,|,|(|c|)|d|"},
           {kConfig, ";e\n(f", "|;e\n|(|f|"},
           {kConfig, "\"q\\\"q\" \"open", "|\"q\"q\"| |\"open|"},
           {kBlank, "a;b(c)\nd", "|a;b(c)\nd|"},
           {kMiddle, "a-b -c d- e--f .g-h.\n", "|a-b| |-|c| |d|-| |e|-|-|f| |.|g-h|.|\n|"},
           // Quotes: closed by the same byte, by another, by one of two.
           {kClosers, "\"a b\"c<d e>f", "|\"a b\"|c|<d e>|f|"},
           {kClosers, "{g h} ^x^", "|{g |h}| |^x^|"},
           {kClosers, "{i j k ^y|z|w", "|{i |j| |k| |^y||z||w|"},
           // Escapes, in comments too, and without an escape byte.
           {kEscapes, "\"a\\tb\\nc\\rd\\\\e\\255\"", "|\"a\tb\nc\rd\\e\xFF\"|"},
           {kEscapes, "'it\"s'#one\\\ntwo\n", "|'it\"s'|#one\ntwo\n|"},
           {kBareQuote, "\"\\n\" ", "|\"\\n\"| |"},
           // A zero byte ends a quote or a word, and begins a token.
           {kEscapes, "\"x\0y(z),,"sv, "|\"x||(z|)|,|,|"},
           {kEscapes, ",\0\0,("sv, "|,|||,|(|"},
           {kBareQuote, "\"q\0r\""sv, "|\"q||\"|"},
       })
    for (int buffer_size : {1, 512}) {
      Tokenizer tokenizer(classes.white, classes.start, classes.middle, classes.quote,
                          classes.escape, classes.comment, 16, buffer_size, false);
      EXPECT_EQ(tokens(tokenizer, text), want) << text;
      Tokenizer copy(static_cast<const TokenizerBase&>(tokenizer));
      EXPECT_EQ(tokens(copy, text), want) << "a copy: " << text;
    }
}

TEST(Tokenizer, WhatWasPushedBackComesFirst) {
  Tokenizer tokenizer(" ", "", "", "", 0, 0, 16, 16, false);
  tokenizer.set_string_input("a b", -1);
  tokenizer.push_back(tokenizer.next_token());
  EXPECT_STREQ(tokenizer.next_token(), "a");
  EXPECT_STREQ(tokenizer.next_significant_token(), "b");
  EXPECT_EQ(tokenizer.next_significant_token(), nullptr);
}

}  // namespace
}  // namespace torvane
