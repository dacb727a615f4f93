#include "lexp/control_forms.h"

#include <gtest/gtest.h>

#include "lexp/exec_commands.h"
#include "lexp/expression_run.h"

namespace torvane {
namespace {

class ControlFormsTest : public testing::Test {
 protected:
  Value eval(const char* text, Value input = Value()) {
    kept_.append(LExp::get_exp_from_text(text));
    return kept_.back().eval(input, kAnyType);
  }
  Word number(const char* text, Word input = 0) {
    return eval(text, Value::integer(input)).number();
  }

  ExpressionRun run_;
  Array<ExpPtr> kept_;
};

TEST_F(ControlFormsTest, EmptyForms) {
  for (const char* identity : {"(prog)", "(comp)", "(or)", "(and)", "(ident)"}) {
    EXPECT_EQ(number(identity, 9), 9) << identity;
    EXPECT_EQ(number(identity, 0), 0) << identity;
  }
  for (const char* zero :
       {"(prog1)", "(if)", "(when)", "(cond)", "(xor)", "(eq)", "(one-of :is (t))", "(1/2)",
        "(2/2)", "(exec-commands)", "(set-tokenizer-input)"}) {
    EXPECT_EQ(number(zero, 9), 0) << zero;
  }
  EXPECT_EQ(number("(not)", 0), 1);
  EXPECT_EQ(number("(not)", 9), 0);
  EXPECT_EQ(number("(let)", 9), 9);
}

TEST_F(ControlFormsTest, Logic) {
  EXPECT_EQ(number("(not (nil))", 0), 0);  // the input, not 1
  EXPECT_EQ(number("(not (nil))", 9), 9);
  EXPECT_EQ(number("(not (nil) (t))", 9), 0);
  EXPECT_EQ(number("(and (t) (int 4))"), 4);
  EXPECT_EQ(number("(and (t) (nil) (int 4))"), 0);
  EXPECT_EQ(number("(or (nil) (int 3) (int 4))"), 3);
  EXPECT_EQ(number("(xor (t) (nil) (t) (int 7))"), 1);
  EXPECT_EQ(number("(xor (t) (int 2))"), 0);
  EXPECT_EQ(number("(is-nil)", 0), 1);
  EXPECT_EQ(number("(is-nil)", 5), 0);
}

TEST_F(ControlFormsTest, OnlyOneBranchRuns) {
  EXPECT_EQ(
      run_.run(
          "(eval (if (t) (print-str :prefix a) (print-str :prefix b) (print-str :prefix c)))"
          "(eval (if (nil) (print-str :prefix a) (print-str :prefix b) (print-str :prefix c)))"),
      "a(null)b(null)");
  EXPECT_EQ(number("(if (nil) (ident))", 9), 0);
  EXPECT_EQ(number("(if (t))", 9), 0);
  EXPECT_EQ(number("(when (ident) (nil))", 9), 9);
  EXPECT_EQ(number("(prog1 (int 1) (int 2))"), 1);
}

TEST_F(ControlFormsTest, WhileRunsUntilItsConditionFails) {
  run_.run("(declare-var i)");
  EXPECT_EQ(run_.run("(eval (prog (setq i (int 3)) (while (get-val i)"
                     " (get-val i (int2str (print-str))) (setq i (get-val i (-1))))))"),
            "321");
}

TEST_F(ControlFormsTest, CompTypesTheValueByTheStepBefore) {
  eval("(comp (int 3) (null-str))");
  EXPECT_EQ(run_.errors().substr(0, 45), "null-str received a wrong type of argument:'i");
  EXPECT_EQ(number("(comp (ident) (ident) (is-nil))", 0), 1);
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(ControlFormsTest, OneOf) {
  EXPECT_EQ(number("(one-of (nil) (int 5) (int 6) :is (+1))"), 1);
  EXPECT_EQ(number("(one-of (ident) :is (nil))", 4), 0);
  EXPECT_EQ(run_.errors(), "");
  EXPECT_EQ(number("(one-of (t))"), 0);
  EXPECT_EQ(run_.errors(), "argument :is is not found\n");
}

TEST_F(ControlFormsTest, CondTakesTheTypeOfItsLastExpression) {
  auto exp = LExp::get_exp_from_text("(cond ((t) (str a)) ((nil) (int 4)))");
  EXPECT_EQ(exp->out_type, type_id("int"));
  EXPECT_EQ(LExp::get_exp_from_text("(cond () x)")->out_type, kAnyType);
}

TEST_F(ControlFormsTest, ListCollectsAndIsReused) {
  auto exp = LExp::get_exp_from_text("(list (t) (nil) (ident))");
  Value first = exp->eval(Value::integer(7), kAnyType);
  auto* list = first.as<ValueList>();
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->values.count(), 3);
  EXPECT_EQ(list->values[2].get().number(), 7);
  EXPECT_EQ(exp->eval(Value::integer(8), kAnyType), first);
  EXPECT_EQ(list->values[2].get().number(), 8);
  // A variable keeps the list when its expression is gone.
  HeldValue held(first);
  exp.reset();
  free_retired_values();
  EXPECT_EQ(held.get().as<ValueList>()->values[2].get().number(), 8);
}

TEST_F(ControlFormsTest, Pairs) {
  TwoArgs pair{Value::constant("left"), type_id("char*"), Value::integer(2), type_id("int")};
  Value input = Value::of(&pair);
  EXPECT_STREQ(eval("(1/2)", input).text(), "left");
  EXPECT_EQ(eval("(2/2 (+1))", input).number(), 3);
  EXPECT_FALSE(eval("(1/2 (+1))", input));
  EXPECT_NE(run_.errors(), "");
  EXPECT_FALSE(eval("(1/2)", Value::constant("no pair")));
}

TEST_F(ControlFormsTest, EqComparesWords) {
  EXPECT_EQ(number("(eq (int 3) (int 3))"), 1);
  EXPECT_EQ(number("(eq (nil) (nil))"), 1);
  EXPECT_EQ(number("(eq (ident) (ident))", 5), 1);
  EXPECT_EQ(number("(eq (str a) (str a))"), 0);
  EXPECT_EQ(number("(eq (t))"), 0);
}

TEST_F(ControlFormsTest, ExecCommandsRunAFreshCopyEachTime) {
  run_.run("(defun say () (exec-commands (echo a (b \"c d\")) (echo e)))");
  EXPECT_EQ(run_.run("(eval (say)) (eval (say))"), run_.run("(eval (prog (say) (say)))"));
  EXPECT_EQ(run_.errors().substr(0, 40), "expecting an atom. This is found instead");
  // A function that comes back to its own commands.
  run_.run(
      "(declare-var left) (defun down () (when (get-val left) (setq left (get-val left (-1)))"
      " (exec-commands (eval (down)) (echo x))))");
  EXPECT_EQ(run_.run("(eval (prog (setq left (int 3)) (down)))"), "x\nx\nx\n");
  EXPECT_EQ(run_.errors(), "");
}

TEST_F(ControlFormsTest, WhatQuoteGivesStaysReadable) {
  run_.run("(defun quoted () (exec-commands (quote \"a text of some length, longer than most\")))");
  auto exp = LExp::get_exp_from_text("(str-eq (quoted) (quoted))");
  EXPECT_TRUE(exp->eval(Value::integer(1), kAnyType));
  EXPECT_EQ(run_.run("(eval (comp (quoted) (print-str)))"),
            "a text of some length, longer than most");
  EXPECT_EQ(run_.run("(eval (comp (exec-commands (quote (a b))) (print-str)))"), "(null)");
}

TEST_F(ControlFormsTest, ForeachTakesAList) {
  EXPECT_EQ(run_.run("(foreach (a (b) c) :eval (print-str :suffix \" \"))"), "a (null) c ");
  EXPECT_EQ(run_.run("(foreach atom :eval (print-str)) (foreach () :eval (print-str))"), "");
  EXPECT_EQ(run_.errors(), "");
  EXPECT_EQ(run_.run("(foreach (a)) (foreach) (foreach (a) :eval) (foreach (a) :eval b)"), "");
  EXPECT_EQ(
      run_.errors(),
      "argument :eval is not found\nargument :eval is not found\nargument :eval is not found\n"
      "LExp::get_exp: b is not a LExp\n");
}

}  // namespace
}  // namespace torvane
