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
  bool of_sentence = false;
};

Shared* shared(Word word) {
  return reinterpret_cast<Shared*>(word);
}

constexpr TypeTag kThing{"Thing*", nullptr, Life::sentence};
constexpr TypeTag kDerived{"Derived*", &kThing, Life::sentence};
constexpr TypeTag kPassing{"Passing*", nullptr, Life::transient};
constexpr TypeTag kShared{"Shared*",
                          nullptr,
                          Life::counted,
                          [](Word w) { shared(w)->retain(); },
                          [](Word w) { shared(w)->release(); },
                          [](Word w) { return shared(w)->of_sentence; }};

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

  std::string word = "word";
  HeldValue held(Value::sentence_text(word.c_str()));
  EXPECT_EQ(held.get().text(), word.c_str());
  bump_sentence_epoch();
  word = "gone";
  EXPECT_STREQ(held.get().text(), "word");

  std::string buffer = "buffer";
  HeldValue copy(Value::buffer_text(buffer.c_str()));
  HeldValue other = copy;
  buffer = "over";
  EXPECT_STREQ(copy.get().text(), "buffer");
  EXPECT_EQ(copy.get(), other.get());
}

TEST(HeldValue, KeepsWhatIsOnItsWay) {
  std::string buffer = "first";
  HeldValue held(Value::buffer_text(buffer.c_str()));
  Value on_its_way = held.get();
  held = HeldValue(Value::integer(1));
  EXPECT_STREQ(on_its_way.text(), "first");
  free_retired_values();
  EXPECT_EQ(held.get().number(), 1);
}

TEST(HeldValue, LosesTheSentencesThingsAndWhatPasses) {
  Thing thing;
  HeldValue held(Value::of(&thing));
  HeldValue moved = std::move(held);
  EXPECT_EQ(moved.get().as<Thing>(), &thing);
  bump_sentence_epoch();
  EXPECT_FALSE(moved.get());
  Passing passing;
  EXPECT_FALSE(HeldValue(Value::of(&passing)).get());
}

TEST(HeldValue, CountsWhatIsCounted) {
  int alive = 0;
  std::optional<HeldValue> held;
  std::optional<HeldValue> sentences;
  {
    auto object = make_ref<Shared>(alive);
    auto of_sentence = make_ref<Shared>(alive);
    of_sentence->of_sentence = true;
    held.emplace(Value::of(object.get()));
    sentences.emplace(Value::of(of_sentence.get()));
  }
  EXPECT_EQ(alive, 2);
  HeldValue copy = *held;
  bump_sentence_epoch();
  EXPECT_TRUE(copy.get());
  EXPECT_FALSE(sentences->get());
  held.reset();
  sentences.reset();
  EXPECT_EQ(alive, 2);
  free_retired_values();
  EXPECT_EQ(alive, 1);
  copy = HeldValue();
  free_retired_values();
  EXPECT_EQ(alive, 0);
}

}  // namespace
}  // namespace torvane
