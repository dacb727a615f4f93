#include "shell/irslist.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "support/test_support.h"

namespace torvane {
namespace {

/// The forms of a text, as text that reads back, a bar behind each; "?" where there was none.
std::string forms(const std::string& text) {
  IRSlistReader reader(false);
  StrBufs out;
  for (IRSlist* form = reader.start_string(text.c_str()); form; form = reader.next()) {
    if (reader.found_form())
      form->to_text(out, true);
    else
      out.add_char('?');
    out.add_char('|');
  }
  return out.finish();
}

TEST(FormReader, ReadsAtomsListsAndStrings) {
  const char* const cases[][2] = {
      {"", ""},
      {"(a (b c) () (()))\n(d)", "(a (b c) () (()))|(d)|"},
      {"(:Key ~x +y -z 'q #t [b] {c} |d|)", "(:Key ~x +y -z 'q #t [b] {c} |d|)|"},
      {"(a,b a, b ,c 1,000 (x,(y),) ) ; (no)",
       "(\"a,b\" a \",\" b \",\" c \"1,000\" (x \",\" (y) \",\"))|"},
      {"(\"\" \"with blank\" \"semi;colon\" \"x\")", "(\"\" \"with blank\" \"semi;colon\" \"x\")|"},
      {"(back\\slash quote\"inside\"word)", "(\"back\\\\slash\" quote \"inside\" word)|"},
      {"(\"tab\\there\" \"\\65\\066\\0671\" \"\\q\\\"\\\\\" \"two\nlines\")",
       "(\"tab\there\" \"AB\x9F\" \"q\\\"\\\\\" \"two\nlines\")|"},
      {"; a comment that goes on \\\n(never)\n(a)", "(a)|"},
      {"a \"b\" c ", "a|\"b\"|c|"},
      // Text that ends too soon, or too late: what stands in docs/oddities.md.
      {"(a) b", "(a)|"},
      {"(a) (b (c", "(a)|"},
      {"(a) (b \"c", "(a)|"},
      {") (a)) (b)", "?|(a)|?|(b)|"},
  };
  for (const auto& [text, want] : cases) EXPECT_EQ(forms(text), want) << text;
}

TEST(FormReader, WhatItWritesReadsBackTheSame) {
  for (const char* text : {"(a \"b\" () (c (\"d e\")))|", "(\"\\\\\" \"\\\"\" \",\")|"}) {
    std::string form = text;
    form.pop_back();
    EXPECT_EQ(forms(form), text);
  }
}

TEST(FormReader, GivesItsArguments) {
  using Taker = std::function<std::string(IRSlist&)>;
  auto text = [](const char* taken) { return std::string(taken ? taken : "none"); };
  Taker str = [&](IRSlist& form) { return text(form.get_str_val()); };
  Taker number = [](IRSlist& form) { return std::to_string(form.get_long_val()); };
  Taker keyword = [&](IRSlist& form) { return text(form.take_keyword_str(":K", false)); };
  Taker found = [](IRSlist& form) {
    long value = -1;
    bool has = form.find_keyword_long(":k", value, false);
    return (has ? "has " : "none ") + std::to_string(value);
  };
  struct Case {
    const char* form;
    const Taker& take;
    const char* want;
    const char* rest;
    const char* said = "";
  };
  for (const auto& [form, take, want, rest, said] : {
           Case{"(a b)", str, "a", "(b)"},
           {"()", str, "none", "()"},
           {"((a \"b c\") d)", str, "none", "(d)",
            "expecting an atom. This is found instead:\n(a \"b c\")\n"},
           {"(-12x d)", number, "-12", "(d)"},
           {"(x)", number, "0", "()"},
           {"()", number, "0", "()", "IRSlist::get_long_val expecting a string\n"},
           {"(a :k b c)", keyword, "b", "(a c)"},
           {"(a :k)", keyword, "none", "(a)", "argument :K is not found\n"},
           {"(a :k (b) c)", keyword, "none", "(a c)"},
           {"(a)", keyword, "none", "(a)", "argument :K is not found\n"},
           {"(:K 7 8)", found, "has 7", "(:K 7 8)"},
           {"(:k (7))", found, "none -1", "(:k (7))", "There must be an integer after :k\n"},
           {"(:k)", found, "none -1", "(:k)", "argument :k is not found\n"},
       }) {
    IRSlistReader reader(false);
    IRSlist& list = *reader.start_string(form);
    EXPECT_EQ(messages_of([&] { EXPECT_EQ(take(list), want) << form; }), said) << form;
    StrBufs left;
    list.to_text(left);
    EXPECT_STREQ(left.finish(), rest) << form;
  }
}

}  // namespace
}  // namespace torvane
