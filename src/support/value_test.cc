#include "support/value.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "support/ref.h"

namespace torvane {

namespace {

struct Thing {
  int n = 0;
};
struct Derived : Thing {};
struct Passing {};

struct Shared : Counted<Shared> {
  explicit Shared(int& count) : alive(count) { ++alive; }
  ~Shared() { --alive; }
  int& alive;
  Era* era = nullptr;
};

constexpr TypeTag kThing{"Thing*"};
constexpr TypeTag kDerived{"Derived*", &kThing};
constexpr TypeTag kPassing{"Passing*", nullptr, Life::transient};
constexpr TypeTag kShared =
    counted_tag<Shared>("Shared*", [](const Shared& shared) { return shared.era; });

}  // namespace

template <>
struct ValueTraits<Thing> : TagOf<Thing, kThing> {};
template <>
struct ValueTraits<Derived> {
  using Base = Thing;
  static const TypeTag& tag() { return kDerived; }
};
template <>
struct ValueTraits<Passing> : TagOf<Passing, kPassing> {};
template <>
struct ValueTraits<Shared> : TagOf<Shared, kShared> {};

namespace {

TEST(Value, NeverFollowsAForeignWord) {
  Derived derived;
  Thing thing;
  EXPECT_EQ(Value::of(&derived).as<Thing>(), &derived);
  EXPECT_EQ(Value::of(&derived).as<Derived>(), &derived);
  EXPECT_EQ(Value::of(&thing).as<Derived>(), nullptr);
  EXPECT_EQ(Value::integer(4096).as<Thing>(), nullptr);
  EXPECT_EQ(Value::integer(4096).text(), nullptr);
  EXPECT_EQ(Value::constant("x").as<Thing>(), nullptr);
  EXPECT_EQ(Value::of(static_cast<Thing*>(nullptr)), Value());
  EXPECT_FALSE(Value::integer(0));
  EXPECT_EQ(Value::integer(-3).number(), -3);
  EXPECT_TRUE(Value::truth(true) == Value::integer(1));
}

TEST(HeldValue, GivesTheTextItselfWhileThatIsSureToLive) {
  const char* constant = "constant";
  EXPECT_EQ(HeldValue(Value::constant(constant)).get().text(), constant);

  Eras sentences;
  std::string word = "word";
  HeldValue held(sentences.now()->text(word.c_str()));
  EXPECT_EQ(held.get().text(), word.c_str());
  Eras().renew();
  EXPECT_EQ(held.get().text(), word.c_str());
  sentences.renew();
  word = "gone";
  EXPECT_STREQ(held.get().text(), "word");

  HeldValue copy;
  HeldValue other;
  {
    Round outer;
    Value made = Value::made_text("made");
    {
      Round inner;
      copy = HeldValue(made);
    }
    EXPECT_EQ(copy.get(), made);
    outer.next();
    Value::made_text("over");
    EXPECT_STREQ(copy.get().text(), "made");
    other = HeldValue(copy.get());
  }
  EXPECT_EQ(copy.get(), other.get());

  // Dropped, and held again by whoever has it on its way.
  Value on_its_way = copy.get();
  copy = other = HeldValue();
  HeldValue again(on_its_way);
  lifetimes().end_all();
  EXPECT_STREQ(again.get().text(), "made");
}

TEST(HeldValue, ReadsNullWhenItsEraIsOver) {
  Thing thing;
  Eras sentences;
  HeldValue held(sentences.now()->of(&thing));
  HeldValue moved = std::move(held);
  EXPECT_EQ(moved.get().as<Thing>(), &thing);
  sentences.renew();
  EXPECT_FALSE(moved.get());
  Passing passing;
  EXPECT_FALSE(HeldValue(Value::of(&passing)).get());
}

TEST(HeldValue, CountsWhatIsCounted) {
  int alive = 0;
  std::optional<HeldValue> held;
  std::optional<HeldValue> sentences;
  Eras eras;
  {
    auto object = make_ref<Shared>(alive);
    auto of_sentence = make_ref<Shared>(alive);
    of_sentence->era = eras.now();
    held.emplace(Value::of(object.get()));
    sentences.emplace(Value::of(of_sentence.get()));
  }
  EXPECT_EQ(alive, 2);
  HeldValue copy = *held;
  eras.renew();
  EXPECT_TRUE(copy.get());
  EXPECT_FALSE(sentences->get());
  held.reset();
  sentences.reset();
  EXPECT_EQ(alive, 2);
  lifetimes().end_all();
  EXPECT_EQ(alive, 1);
  copy = HeldValue();
  lifetimes().end_all();
  EXPECT_EQ(alive, 0);
}

TEST(Round, EndsWhatWasBornInIt) {
  int alive = 0;
  HeldValue old(Value::made_text("old"));
  HeldValue old_thing(Value::of(new Shared(alive)));
  Value on_its_way = old.get();
  {
    Round round;
    old = HeldValue();
    old_thing = HeldValue();
    for (int i = 0; i < 3; ++i) {
      Value made = Value::made_text(std::string(100000, 'x'));
      HeldValue own(Value::of(new Shared(alive)));
      own = HeldValue();
      EXPECT_EQ(alive, 2);
      EXPECT_EQ(made.text()[99999], 'x');
      round.next();
      EXPECT_EQ(alive, 1);
    }
  }
  EXPECT_STREQ(on_its_way.text(), "old");
  lifetimes().end_all();
  EXPECT_EQ(alive, 0);
}

TEST(Round, EndsWhatWasLent) {
  int alive = 0;
  HeldValue held;
  Round round;
  {
    auto object = make_ref<Shared>(alive);
    lend(*object);
    lend(*object);
  }
  EXPECT_EQ(alive, 1);
  round.next();
  EXPECT_EQ(alive, 0);
  {
    auto object = make_ref<Shared>(alive);
    lend(*object);
    held = HeldValue(Value::of(object.get()));
  }
  round.next();
  EXPECT_EQ(alive, 1);
  held = HeldValue();
  round.next();
  EXPECT_EQ(alive, 0);
}

}  // namespace
}  // namespace torvane
