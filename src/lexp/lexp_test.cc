#include "lexp/lexp.h"

#include <gtest/gtest.h>

#include "lexp/expression_run.h"
#include "lexp/expressions.h"
#include "lexp/form.h"

namespace torvane {
namespace {

struct Thing {
  int number;
};

}  // namespace

namespace tags {
namespace {
constexpr TypeTag thing{"Thing*"};
}
}  // namespace tags

template <>
struct ValueTraits<Thing> : TagOf<Thing, tags::thing> {};

namespace {

struct ThingNumber : Adaptor<ThingNumber, Thing, int> {
  static constexpr const char* kName = "thing-number";
  int step(Thing& thing) const { return thing.number; }
};

int add_up(Thing* thing, int a, int b) {
  return (thing ? thing->number : 0) + a + b;
}

// Knows how many of its kind there are.
struct Numbered : Form<Numbered> {
  static constexpr const char* kName = "numbered";
  Numbered() { ++alive; }
  Numbered(const Numbered& other) : Form(other) { ++alive; }
  ~Numbered() override { --alive; }
  Value eval(Value, int) override { return Value::integer(alive); }
  inline static int alive = 0;
};

class LExpTest : public testing::Test {
 protected:
  LExpTest() {
    static constexpr Prototype kForms[] = {form<ThingNumber>(), form<Numbered>(),
                                           function<add_up>("add-up", nullptr)};
    Offer(kForms).enter(run_.world());
  }
  std::unique_ptr<LExp> compile(const char* text) {
    return LExp::get_exp_from_text(run_.world(), text);
  }

  ExpressionRun run_;
};

TEST_F(LExpTest, TypesAreNumberedFromOne) {
  Types& types = expressions(run_.world()).types;
  EXPECT_EQ(types.id("Oddity*"), types.id("oddity*"));
  EXPECT_EQ(types.id(nullptr), kAnyType);
  EXPECT_EQ(types.name(1 << 30), nullptr);
  for (int id : {0, -7}) EXPECT_STREQ(types.name(id), "");
  EXPECT_EQ(run_.errors(), "Unknown type id: 0\nUnknown type id: -7\n");
}

TEST_F(LExpTest, AValueOfAnotherKindIsNeverFollowed) {
  auto number = compile("(thing-number)");
  EXPECT_FALSE(number->eval(Value::integer(12345), kAnyType));
  auto text = compile("(inverse)");
  EXPECT_FALSE(text->eval(Value::integer(12345), kAnyType));
}

TEST_F(LExpTest, AFunctionGetsZeroForWhatIsMissing) {
  Thing thing{1};
  auto sum = [&](const char* text) {
    return compile(text)->eval(Value::of(&thing), kAnyType).number();
  };
  EXPECT_EQ(sum("(add-up (int 10) (int 100))"), 111);
  EXPECT_EQ(sum("(add-up (int 10))"), 11);
  EXPECT_EQ(sum("(add-up x (int 100))"), 101);
  run_.errors();
  EXPECT_EQ(sum("(add-up (t) (t) (t))"), 1);
  EXPECT_EQ(run_.errors(), "Incorrect number of arguments in add-up. Expected: 2 Actual: 3\n");
}

TEST_F(LExpTest, ACopyIsIndependent) {
  auto exp = compile("(comp (format a (ident)) (cond ((is-nil) (t)) ((ident (t)))))");
  auto copy = exp->copy();
  Value first = exp->eval(Value::constant("1"), kAnyType);
  Value second = copy->eval(Value::constant("22"), kAnyType);
  EXPECT_STREQ(first.text(), "a1");
  EXPECT_STREQ(second.text(), "a22");
  EXPECT_EQ(compile("(inverse)")->copy()->out_type, type_id_of<const char*>());
}

TEST_F(LExpTest, AnExpressionAsAValueLivesAsLongAsItIsHeld) {
  const int before = Numbered::alive;
  run_.run("(declare-var held) (eval (pred (numbered)) (setq held (pred (pred (numbered)))))");
  lifetimes().end_all();
  EXPECT_EQ(Numbered::alive, before + 1);
  run_.run("(eval (setq held (nil)))");
  lifetimes().end_all();
  EXPECT_EQ(Numbered::alive, before);
}

}  // namespace
}  // namespace torvane
