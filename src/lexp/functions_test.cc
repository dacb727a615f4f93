#include "lexp/functions.h"

#include <gtest/gtest.h>

#include "lexp/expression_run.h"

namespace torvane {
namespace {

class FunctionsTest : public testing::Test {
 protected:
  ExpressionRun run_;
};

TEST_F(FunctionsTest, ArgumentsAreBoundFromTheLastOn) {
  run_.run(
      "(defun order (a b) (format (get-val a) (get-val b)))"
      "(defun seen (a b) (get-val a))");
  EXPECT_EQ(run_.run("(eval (order (prog (print-str :prefix 1) (str x))"
                     " (prog (print-str :prefix 2) (str y))))"),
            "2(null)1(null)");
  // b is bound by the time that the argument of a runs.
  run_.run("(defun later (a b) (comp (get-val a) (print-str)))");
  EXPECT_EQ(run_.run("(defun both (x) (later (get-val x) (str q))) (eval (both (str z)))"), "z");
}

TEST_F(FunctionsTest, RecursionUnwindsItsBindings) {
  run_.run(
      "(defun count-down (n) (if (comp (get-val n) (int-gt (ident) (int 0)))"
      " (prog (count-down (get-val n (-1))) (comp (get-val n) (int2str (print-str :suffix \" "
      "\"))))))");
  EXPECT_EQ(run_.run("(eval (count-down (int 4)))"), "1 2 3 4 ");
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(FunctionsTest, AFunctionThatCallsItselfForEverIsEndedOnce) {
  run_.run("(defun for-ever () (for-ever))");
  EXPECT_EQ(run_.run("(eval (for-ever)) (eval (print-str :prefix on))"), "on(null)");
  EXPECT_EQ(run_.errors(), "the calls of defined functions are nested too deeply\n");
  // Twice recursive: it must not try each of the two to the power of the depth calls.
  run_.run("(defun twice (x) (prog (twice (get-val x)) (twice (get-val x))))");
  EXPECT_EQ(run_.run("(eval (twice (str a))) (eval (twice (str a)))"), "");
  EXPECT_EQ(run_.errors(),
            "the calls of defined functions are nested too deeply\n"
            "the calls of defined functions are nested too deeply\n");
}

TEST_F(FunctionsTest, ADeepBodyFitsTheStackThatAGuardLeaves) {
  std::string body;
  std::string close;
  for (int i = 0; i < 490; ++i) {
    body += "(cond (";
    close += "))";
  }
  run_.run("(defun deep () " + body + "(deep)" + close + ")");
  run_.run("(eval (deep))");
  EXPECT_EQ(run_.errors(), "the calls of defined functions are nested too deeply\n");
}

TEST_F(FunctionsTest, WrongCountsBindZero) {
  run_.run("(defun pair (a b) (if (get-val a) (str yes) (str no)))");
  EXPECT_EQ(run_.run("(eval (comp (pair (t)) (print-str)))"), "no");
  EXPECT_EQ(run_.errors(), "pair requires 2 arguments. 1 found.\n");
  run_.run("(defun typed ((a int)) (t))");
  run_.run("(eval (typed))");
  EXPECT_EQ(run_.errors(),
            "typed requires 1 arguments. 0 found.\n"
            "the variable a is assigned an incompatible type: void*. The expected type is: int\n");
}

TEST_F(FunctionsTest, ADuplicateIsDroppedAndCallsTheFirst) {
  run_.run("(defun only () (str first)) (defun only (x) (only))");
  EXPECT_EQ(run_.errors(), "Duplicate definition of only\n");
  EXPECT_EQ(run_.run("(eval (comp (only) (print-str)))"), "first");
}

TEST_F(FunctionsTest, ANullFormOfABodyGivesZero) {
  run_.run("(defun last-null () (t) nothing)");
  EXPECT_EQ(run_.run("(eval (if (last-null) (print-str :prefix yes) (print-str :prefix no)))"),
            "no(null)");
  EXPECT_EQ(run_.errors(), "LExp::get_exp: nothing is not a LExp\n");
}

TEST_F(FunctionsTest, AVariableKeepsWhatItsProducerOverwrites) {
  run_.run("(declare-var kept) (eval (setq kept (format a b c)))");
  EXPECT_EQ(run_.run("(foreach (x) :eval (setq kept (format \"<\" (ident) \">\")))"
                     "(eval (get-val kept (print-str)))"),
            "<x>");
  // A text that leaves with the binding which held it.
  EXPECT_EQ(run_.run("(eval (comp (let (v) (setq v (format q r)) (get-val v)) (print-str)))"),
            "qr");
  // A text on its way while its variable takes another.
  EXPECT_EQ(run_.run("(eval (if (str-eq (get-val kept) (setq kept (format other)))"
                     " (print-str :prefix same) (print-str :prefix differs)))"),
            "differs(null)");
}

TEST_F(FunctionsTest, ACopiedLetHasVariablesOfItsOwn) {
  run_.run("(declare-var g)");
  auto exp = LExp::get_exp_from_text(
      "(let (v) (if (get-val v) (str set) (prog (setq v (t)) (setq g (pred (get-val v))) (str "
      "new))))");
  auto copy = exp->copy();
  run_.errors();
  EXPECT_STREQ(exp->eval(Value(), kAnyType).text(), "new");
  LExp* of_original = find_var("g")->value.get().as<LExp>();
  EXPECT_STREQ(copy->eval(Value(), kAnyType).text(), "new");
  LExp* of_copy = find_var("g")->value.get().as<LExp>();
  ASSERT_NE(of_original, nullptr);
  EXPECT_NE(of_original, of_copy);
}

TEST_F(FunctionsTest, ACopyOutsideItsLetSharesTheVariable) {
  Ref<Var> var;
  push_scope(1);
  var = declare_var("inside", kAnyType);
  auto exp = LExp::get_exp_from_text("(get-val inside)");
  pop_scope();
  auto copy = exp->copy();
  EXPECT_EQ(run_.errors(), "Variable inside is not defined.\n");
  var->assign(Value::integer(5), kAnyType);
  EXPECT_EQ(copy->eval(Value(), kAnyType).number(), 5);
}

TEST_F(FunctionsTest, UnknownVariables) {
  EXPECT_EQ(run_.run("(foreach (in) :eval (prog"
                     " (comp (setq none (str kept)) (print-str))"
                     " (comp (setq none) (print-str :prefix \",\"))"
                     " (get-val none (print-str :prefix \",\"))))"),
            "kept,in,(null)");
  EXPECT_EQ(run_.errors(),
            "(setq ... ): the variable none is not defined\n"
            "(setq ... ): the variable none is not defined\n"
            "(get-val ... ): the variable none is not defined\n");
}

TEST_F(FunctionsTest, ANameTwiceInOneListMeansTheFirst) {
  run_.run("(defun same-name (x x) (get-val x))");
  EXPECT_EQ(run_.errors(), "Duplicate definition of x\n");
  EXPECT_EQ(run_.run("(eval (comp (same-name (str a) (str b)) (print-str)))"), "a");
}

}  // namespace
}  // namespace torvane
