#include "shell/irslist.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace torvane {
namespace {

std::string printed(const IRSlist& list) {
  std::ostringstream out;
  list.print(out);
  return out.str();
}

std::string as_text(const IRSlist& node, bool keep_quotes = false) {
  StrBufs out;
  out.open();
  node.to_text(out, keep_quotes);
  return out.finish();
}

// Runs `read` with the error stream captured into `errors`.
template <class Body>
std::string errors_of(Body body) {
  testing::internal::CaptureStderr();
  body();
  return testing::internal::GetCapturedStderr();
}

TEST(IRSlist, ReadsAtomsAndLists) {
  IRSlistReader reader;
  IRSlist* form = reader.start_string("(a (b \"c d\") e \"\" ())");
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->length(), 5);
  EXPECT_STREQ(form->nth(1)->nth_str_val(1), "c d");
  EXPECT_TRUE(form->nth(1)->nth(1)->quoted);
  EXPECT_TRUE(form->nth(3)->is_atom());
  EXPECT_STREQ(form->nth_str_val(3), "");
  EXPECT_TRUE(form->nth(4)->is_list() && form->nth(4)->empty());
  EXPECT_EQ(reader.next(), nullptr);
}

TEST(IRSlist, ReaderNeedsSomethingBehindABareAtom) {
  IRSlistReader reader;
  EXPECT_EQ(reader.start_string("x"), nullptr);
  EXPECT_STREQ(reader.start_string("x ")->atom, "x");
  EXPECT_STREQ(reader.start_string("(x)")->nth_str_val(0), "x");
  EXPECT_EQ(reader.start_string(""), nullptr);
  EXPECT_EQ(reader.start_string(nullptr), nullptr);
}

TEST(IRSlist, ClosesWhatTheEndLeavesOpen) {
  IRSlist form;
  auto tokenizer = Tokenizer::make_default();
  tokenizer->set_string_input(")(a", -1);
  EXPECT_EQ(form.read(*tokenizer, '(', ')'), 0);
  EXPECT_TRUE(tokenizer->more_input);
  EXPECT_EQ(form.read(*tokenizer, '(', ')'), 1);
  EXPECT_EQ(printed(form), "a");
  tokenizer->set_string_input("\"", -1);
  EXPECT_EQ(form.read(*tokenizer, '(', ')'), 1);
  EXPECT_STREQ(form.atom, "");
  tokenizer->set_string_input("\"abc", -1);
  EXPECT_EQ(form.read(*tokenizer, '(', ')'), 1);
  EXPECT_STREQ(form.atom, "ab");
}

TEST(IRSlist, ReaderOfAnEndlessSeparatorEnds) {
  Tokenizer tokenizer(",", 64, 16);
  tokenizer.set_string_input("a,b", -1);
  IRSlist list;
  list.read_list(tokenizer, '(', ')');
  EXPECT_EQ(list.length(), 2);
  EXPECT_EQ(list.read(tokenizer, '(', ')'), 0);
}

TEST(IRSlist, NestsWithoutEnd) {
  const int deep = 1000000;
  IRSlistReader reader;
  std::string text = std::string(deep, '(') + "x" + std::string(deep, ')');
  IRSlist* form = reader.start_string(text.c_str());
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(as_text(*form), text);
  StrBufs strings;
  IRSlist copy;
  copy.copy_into(*form, strings);
  form->clear();
  EXPECT_EQ("(" + printed(copy) + ")", text);
  IRSlist moved = std::move(copy);
  EXPECT_TRUE(copy.empty());
  moved = std::move(*moved.nth(0));
  EXPECT_EQ(printed(moved).size(), text.size() - 4);
}

TEST(IRSlist, WritesTextThatReadsBack) {
  IRSlistReader reader;
  IRSlist* form = reader.start_string("(a \"a\" \"a b\" \"\" () (\"x,y\" (\"\\\\\")))");
  EXPECT_EQ(as_text(*form), "(a a \"a b\" \"\" () (\"x,y\" (\"\\\\\")))");
  EXPECT_EQ(as_text(*form, true), "(a \"a\" \"a b\" \"\" () (\"x,y\" (\"\\\\\")))");
  EXPECT_EQ(printed(*form), "a a \"a b\"  () (\"x,y\" (\"\\\\\"))");
  StrBufs strings;
  IRSlist copy;
  copy.copy_into(*form, strings);
  EXPECT_EQ(as_text(copy, true), as_text(*form, true));
}

TEST(IRSlist, AccessorsTakeItemsOff) {
  IRSlistReader reader;
  IRSlist* form = reader.start_string("(12x word 1.5y (l (m)) \"\" last)");
  EXPECT_EQ(form->get_long_val(), 12);
  EXPECT_EQ(form->get_long_val(), 0);
  EXPECT_EQ(form->nth_float_val(0), 1.5F);
  EXPECT_EQ(form->get_float_val(), 1.5F);
  EXPECT_EQ(errors_of([&] { EXPECT_EQ(form->peek_str_val(), nullptr); }),
            "expecting an atom. This is found instead:\n(l (m))\n");
  EXPECT_EQ(errors_of([&] { EXPECT_EQ(form->get_long_val(), 0); }),
            "expecting an atom. This is found instead:\n(l (m))\n"
            "IRSlist::get_long_val expecting a string\n");
  EXPECT_STREQ(form->get_str_val(), "");
  EXPECT_STREQ(form->get_str_val(), "last");
  EXPECT_EQ(errors_of([&] { EXPECT_EQ(form->get_str_val(), nullptr); }), "");
  EXPECT_EQ(errors_of([&] { form->get_float_val(); }),
            "IRSlist::get_float_val expecting a string\n");
  EXPECT_EQ(errors_of([&] { form->nth_float_val(3); }),
            "IRSlist::get_float_val expecting a string\n");
}

TEST(IRSlist, FindsKeywordsAmongTheDirectItems) {
  IRSlistReader reader;
  IRSlist* form = reader.start_string("((:a 0) :A 1 :b (2) :a 3 :flag :last)");
  long number = 7;
  EXPECT_TRUE(form->find_keyword_long(":a", number));
  EXPECT_EQ(number, 1);
  EXPECT_EQ(errors_of([&] { EXPECT_FALSE(form->find_keyword_long(":B", number)); }),
            "There must be an integer after :B\n");
  float real = 7;
  EXPECT_EQ(errors_of([&] { EXPECT_FALSE(form->find_keyword_float(":b", real)); }),
            "There must be a number after :b\n");
  char* text = nullptr;
  EXPECT_TRUE(form->find_keyword_str(":b", text));
  EXPECT_EQ(text, nullptr);
  EXPECT_EQ(number, 1);
  EXPECT_EQ(real, 7);
  EXPECT_STREQ(form->take_keyword_str(":a"), "1");
  EXPECT_STREQ(form->take_keyword_str(":a"), "3");
  EXPECT_EQ(form->take_keyword_str(":a"), nullptr);
  EXPECT_EQ(printed(*form->take_keyword_node(":b")), "2");
  EXPECT_TRUE(form->take_flag(":FLAG"));
  EXPECT_FALSE(form->take_flag(":flag"));
  EXPECT_FALSE(form->has_keyword("a"));
  EXPECT_EQ(errors_of([&] {
              EXPECT_EQ(form->find_keyword_node(":last", false), nullptr);
              EXPECT_EQ(form->take_keyword_node(":last", false), nullptr);
              EXPECT_EQ(form->take_keyword_node(":last", false), nullptr);
              EXPECT_EQ(form->take_keyword_node(":last"), nullptr);
            }),
            "argument :last is not found\nargument :last is not found\n"
            "argument :last is not found\n");
  EXPECT_EQ(printed(*form), "(:a 0)");
  EXPECT_TRUE(form->nth(0)->take_keyword_node(":a"));
  EXPECT_EQ(printed(*form), "()");
}

TEST(IRSlist, GivesStringsOfAList) {
  IRSlistReader reader;
  IRSlist* form = reader.start_string("(a \"b c\" (d) \"\")");
  StrBufs strings;
  Slist<char*> list;
  get_string_list(*form, strings, list);
  EXPECT_EQ(list.length(), 3);
  EXPECT_STREQ(list.nth(1), "b c");
  EXPECT_STREQ(list.nth(2), "");
}

TEST(NextItem, TakesBalancedText) {
  StrBufs strings;
  std::istringstream stream(") x (a \"(\" ) ) ; (\n(b))(open");
  EXPECT_STREQ(next_item(stream, strings), "(a \"(\" ) )");
  EXPECT_STREQ(next_item(stream, strings), "(\n(b))");
  EXPECT_EQ(errors_of([&] { EXPECT_EQ(next_item(stream, strings), nullptr); }),
            "next_item: unmatched parenthesis\n");
  EXPECT_EQ(errors_of([&] { EXPECT_EQ(next_item(stream, strings), nullptr); }), "");

  const char* cursor = "x (a (b)) y (c) (d";
  EXPECT_STREQ(next_item_in_text(cursor, strings), "(a (b))");
  EXPECT_STREQ(cursor, ") y (c) (d");
  EXPECT_STREQ(next_item_in_text(cursor, strings), "(c)");
  EXPECT_EQ(errors_of([&] { EXPECT_EQ(next_item_in_text(cursor, strings), nullptr); }),
            "next_item: unmatched parenthesis\n");
  EXPECT_STREQ(cursor, "");
  EXPECT_EQ(next_item_in_text(cursor, strings), nullptr);
}

}  // namespace
}  // namespace torvane
