#include "lexp/string_forms.h"

#include <gtest/gtest.h>

#include "lexp/expression_run.h"
#include "lexp/str_sim.h"

namespace torvane {
namespace {

class StringFormsTest : public testing::Test {
 protected:
  /// What a form gives on a text (null: 0), as text; "(0)" for 0, "(1)" and so on for an integer.
  std::string on(const char* form, const char* input) {
    kept_.append(LExp::get_exp_from_text(form));
    Value result = kept_.back().eval(Value::buffer_text(input), type_id("char*"));
    if (result.text()) return result.text();
    return std::string("(").append(std::to_string(result.number())).append(")");
  }

  ExpressionRun run_;
  Array<ExpPtr> kept_;
};

TEST_F(StringFormsTest, ANullInputGivesZero) {
  for (const char* form :
       {"(inverse)", "(stem-word)", "(last-word)", "(remove-punc)", "(remove-char x)", "(in (a))",
        "(suffix (a))", "(reg-match a)", "(reg-sub a b)", "(exist-word (t))", "(all-words (t))",
        "(contain-tokens (a))", "(str= a)", "(str-eq (str a) (str a))", "(remove-prefix (str a))",
        "(write-to-file (str a))", "(flush-output)"}) {
    EXPECT_EQ(on(form, nullptr), "(0)") << form;
  }
  EXPECT_EQ(on("(null-str)", nullptr), "(1)");
  EXPECT_EQ(on("(inverse (null-str))", nullptr), "(1)");  // the next step runs on 0
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(StringFormsTest, FormsWithoutTheirArguments) {
  for (const char* form : {"(remove-char)", "(in)", "(suffix)", "(reg-match)", "(reg-sub)",
                           "(reg-sub a)", "(exist-word)", "(all-words)", "(exist-word \",\")",
                           "(contain-tokens)", "(str=)", "(str-eq)", "(str-eq (str a))", "(strstr)",
                           "(str-prefix)", "(remove-prefix)", "(int-eq)", "(int-sum (int 1))"}) {
    EXPECT_EQ(on(form, "a"), "(0)") << form;
  }
  EXPECT_EQ(on("(str-sim)", "a"), "(1000)");
  EXPECT_EQ(on("(str-sim (ident))", "a"), "(0)");
  EXPECT_EQ(on("(write-to-file)", "a"), "a");
  EXPECT_EQ(on("(pad)", "a"), "a");
  EXPECT_EQ(on("(format)", "a"), "");
  EXPECT_EQ(run_.run(""), "");
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(StringFormsTest, Punctuation) {
  EXPECT_EQ(on("(remove-punc)", "don't"), "don");
  EXPECT_EQ(on("(remove-punc)", "'tis"), "tis");
  EXPECT_EQ(on("(remove-punc)", "rock 'n roll"), "rock n roll");
  EXPECT_EQ(on("(remove-punc)", "(well-known, U.S.)!"), "well-known US");
  EXPECT_EQ(on("(remove-punc)", "\xe9t\xe9."), "\xe9t\xe9");
}

TEST_F(StringFormsTest, Comparisons) {
  EXPECT_EQ(on("(str-eq (ident) (str ABC))", "abc"), "(1)");
  EXPECT_EQ(on("(strstr (ident) (str \"B C\"))", "ab cd"), "(1)");
  EXPECT_EQ(on("(strstr (ident) (str \"\"))", ""), "(1)");
  EXPECT_EQ(on("(strstr (ident) (str abc))", "ab"), "(0)");
  EXPECT_EQ(on("(str-prefix (ident) (str ABC))", "ab"), "(1)");
  EXPECT_EQ(on("(str-prefix (str abc) (ident))", "ab"), "(0)");
  EXPECT_EQ(on("(str-eq (ident) (nil))", "ab"), "(0)");
  EXPECT_EQ(on("(str-eq (ident) (int 5))", "ab"), "(0)");
  EXPECT_EQ(on("(str= \"TWO words\")", "two WORDS"), "(1)");
  EXPECT_EQ(on("(str= \"\")", ""), "(1)");
  EXPECT_EQ(on("(remove-prefix (str UN))", "undo"), "(0)");
  EXPECT_EQ(on("(remove-prefix (str \"\"))", "undo"), "undo");
}

TEST_F(StringFormsTest, Words) {
  EXPECT_EQ(on("(last-word)", "ends white "), "");
  EXPECT_EQ(on("(last-word)", "a\vb"), "b");
  EXPECT_EQ(on("(all-words (in (a b)))", "a b\ta"), "a b\ta");
  EXPECT_EQ(on("(all-words \",\" (in (a \"b c\")))", ",a,,b c,"), ",a,,b c,");
  EXPECT_EQ(on("(exist-word \"\" (str= \"a b\"))", "a b"), "(1)");
  EXPECT_EQ(on("(all-words (t))", ""), "");
  EXPECT_EQ(on("(exist-word (t))", ""), "(0)");
}

TEST_F(StringFormsTest, StemmingLeavesItsInputAlone) {
  char word[] = "Running";
  EXPECT_EQ(on("(stem-word)", word), "run");
  EXPECT_STREQ(word, "Running");
  EXPECT_EQ(on("(stem-word)", "Mp3"), "Mp3");
}

TEST_F(StringFormsTest, Substitution) {
  EXPECT_EQ(on("(reg-sub a \"[&]\")", "banana"), "b[a]nana");
  EXPECT_EQ(on("(reg-sub a \"[&]\" g)", "banana"), "b[a]n[a]n[a]");
  EXPECT_EQ(on("(reg-sub \"^a\" x g)", "aaa"), "xaa");
  EXPECT_EQ(on("(reg-sub \"x*\" - g)", "abc"), "-a-b-c-");
  EXPECT_EQ(on("(reg-sub \"x*\" -)", "abc"), "-abc");
  EXPECT_EQ(on("(reg-sub \"$\" ! g)", "ab"), "ab!");
  EXPECT_EQ(on("(reg-sub \"^\" \"> \" g)", "ab"), "> ab");
  EXPECT_EQ(on("(reg-sub \"^$\" empty)", ""), "empty");
  EXPECT_EQ(on("(reg-sub \"(a)(b)?\" \"\\\\2\\\\1\" g)", "abaab"), "baaba");
  EXPECT_EQ(on("(reg-sub a b 1)", "aa"), "ba");
  EXPECT_EQ(on("(reg-sub a b G)", "aa"), "ba");
  EXPECT_EQ(on("(reg-sub A b g)", "aA"), "ab");
}

TEST_F(StringFormsTest, SubstitutionsOfAnyLength) {
  for (int length : {1, 63, 64, 127, 128, 255, 256, 257, 1000}) {
    std::string text(static_cast<std::size_t>(length), 'a');
    std::string tripled(3 * static_cast<std::size_t>(length), 'a');
    EXPECT_EQ(on("(reg-sub a \"&&&\" g 256)", text.c_str()), tripled);
    EXPECT_EQ(on("(reg-sub \"a+\" \"&&&\")", text.c_str()), tripled);
  }
}

TEST_F(StringFormsTest, FormatNestsInItself) {
  run_.run(
      "(declare-var d) (defun nest () (if (get-val d)"
      " (prog (setq d (get-val d (-1))) (format \"(\" (nest) \")\")) (str x)))");
  EXPECT_EQ(run_.run("(eval (prog (setq d (int 3)) (comp (nest) (print-str))))"), "(((x)))");
  std::string many = "(format";
  std::string wanted;
  for (int i = 0; i < 70; ++i) {
    many += i % 2 ? " (ident)" : " -";
    wanted += i % 2 ? "w" : "-";
  }
  EXPECT_EQ(on((many + ")").c_str(), "w"), wanted);
}

TEST_F(StringFormsTest, Similarity) {
  EXPECT_EQ(trigram_similarity("night", "NIGHT"), 1000);
  EXPECT_EQ(trigram_similarity("night", "nacht"), 200);
  EXPECT_EQ(trigram_similarity("abc", "xyz"), 0);
  EXPECT_EQ(trigram_similarity("aaaa", "aa"), 666);
  EXPECT_EQ(trigram_similarity("a", "a"), 1000);
  EXPECT_EQ(trigram_similarity("", ""), 0);
  EXPECT_EQ(trigram_similarity("aBab", "abAB"), 1000);
  EXPECT_EQ(on("(str-sim (nil) (str a))", "x"), "(0)");
}

TEST_F(StringFormsTest, Integers) {
  EXPECT_EQ(on("(int-gt (int -1) (int -2))", "x"), "(1)");
  EXPECT_EQ(on("(int-gt (int 2) (int 2))", "x"), "(0)");
  EXPECT_EQ(on("(int-diff (int 3) (int 5))", "x"), "(-2)");
  EXPECT_EQ(on("(int-sum (int 9223372036854775807) (int 1))", "x"), "(-9223372036854775808)");
  EXPECT_EQ(on("(comp (int -1) (int2str))", "x"), "-1");
  EXPECT_EQ(on("(comp (int 4294967297) (int2str))", "x"), "1");
  EXPECT_EQ(on("(comp (int -2147483648) (int2str))", "x"), "-2147483648");
  EXPECT_EQ(on("(comp (int -1) (ent2str))", "x"), "ffffffff");
  EXPECT_EQ(on("(int-eq (str a) (nil))", "x"), "(0)");
}

TEST_F(StringFormsTest, ABareWordAsAPredicate) {
  auto exp = make_str_is("Word");
  EXPECT_TRUE(exp->eval(Value::constant("wORD"), type_id("char*")));
  EXPECT_FALSE(exp->eval(Value::constant("words"), type_id("char*")));
  EXPECT_FALSE(make_str_is(nullptr)->eval(Value::constant("w"), type_id("char*")));
  exp->eval(Value(), type_id("int"));
  EXPECT_EQ(run_.errors().substr(0, 12), "str= receive");
}

}  // namespace
}  // namespace torvane
