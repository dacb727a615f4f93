#include "lex/meaning.h"

#include "att/att_interpreter.h"
#include "lex/lexicon_fixture.h"
#include "lexp/form.h"

namespace torvane {
namespace {

class MeaningTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    register_kinds();
    register_attribute_types();
    register_attribute_commands();
    interpreter().load_string(
        "(def-att-list mt (defattribute n IntAtt) (defattribute b BinAtt))"
        "(make-avmeaning-proto mt avm) (make-avmeaning-proto mt other) (make-avmeaning-proto mt)"
        "(make-str-meaning-proto)");
  }
  static std::unique_ptr<Meaning> make(const char* text) {
    IRSlistReader reader;
    return make_meaning(reader.start_string(text));
  }
  static std::string printed(const Meaning* meaning) {
    std::ostringstream out;
    if (meaning) meaning->print(out);
    return out.str();
  }
};

TEST_F(MeaningTest, PrintedVectorsReadBack) {
  auto meaning = make("(avm ((n 5) +b))");
  ASSERT_TRUE(is_avm(meaning.get()));
  std::string text = "(avm " + printed(meaning.get()) + ")";
  EXPECT_EQ(text, "(avm ((n 5) +b))");
  EXPECT_EQ(make(text.c_str())->compare(meaning.get()), subsume::kEqual);
}

TEST_F(MeaningTest, VectorsCompareBySubsumption) {
  auto small = make("(avm (+b))");
  auto large = make("(other ((n 5) +b))");
  EXPECT_EQ(small->compare(large.get()), subsume::kMoreGeneral);
  EXPECT_EQ(large->compare(small.get()), subsume::kMoreSpecific);
  EXPECT_NE(small->unifiable(large.get()), 0);
  EXPECT_EQ(make("(avm (-b))")->unifiable(small.get()), 0);
  // Whatever the prototype's name, it is the same class.
  EXPECT_STREQ(large->type(), "avm");
}

TEST_F(MeaningTest, TextsCompareAsWritten) {
  auto a = make("(g  x   \"y z\" (w))");
  EXPECT_EQ(printed(a.get()), "x \"y z\" (w)");
  EXPECT_EQ(a->compare(make("(G x \"y z\" (w))").get()), subsume::kEqual);
  EXPECT_EQ(a->compare(make("(g X)").get()), subsume::kIncomparable);
  EXPECT_EQ(a->compare(make("(h x)").get()), subsume::kNotComparable);
  EXPECT_EQ(a->unifiable(make("(h x)").get()), 0);
  StrMeaning bare(a->type());
  EXPECT_EQ(bare.compare(a.get()), subsume::kMoreGeneral);
  EXPECT_EQ(a->compare(&bare), subsume::kMoreSpecific);
  EXPECT_EQ(bare.compare(&bare), subsume::kEqual);
}

TEST_F(MeaningTest, ATextCalledAvmIsNoVector) {
  StrMeaning text("avm");
  text.text = "x";
  text.has_text = true;
  auto vector = make("(avm (+b))");
  EXPECT_EQ(as_avm(&text), nullptr);
  EXPECT_EQ(text.compare(vector.get()), subsume::kNotComparable);
  EXPECT_EQ(vector->compare(&text), subsume::kNotComparable);
  EXPECT_EQ(vector->unifiable(&text), subsume::kNotComparable);
}

TEST_F(MeaningTest, UnknownKindsAreNoMeaning) {
  EXPECT_EQ(complaints([] {
              EXPECT_EQ(make("(nosuch x)"), nullptr);
              EXPECT_EQ(make("()"), nullptr);
              EXPECT_EQ(make("(phrases (give up))"), nullptr);
            }),
            "");
  EXPECT_NE(complaints([] { EXPECT_EQ(make("((x) y)"), nullptr); }), "");
}

TEST_F(MeaningTest, ConstantsOutliveTheirExpression) {
  auto exp = LExp::get_exp_from_text("(avm (g one))");
  Value value = exp->copy()->eval(Value(), kAnyType);
  Value whole = LExp::get_exp_from_text("(avm g  one two)")->eval(Value(), kAnyType);
  EXPECT_EQ(exp->out_type, type_id("Meaning*"));
  exp.reset();
  EXPECT_EQ(printed(value.as<Meaning>()), "one");
  EXPECT_EQ(printed(whole.as<Meaning>()), "one two");
  auto type = LExp::get_exp_from_text("(meaning-type)");
  EXPECT_STREQ(type->eval(value, kAnyType).text(), "g");
  EXPECT_FALSE(type->eval(Value(), kAnyType));
  EXPECT_FALSE(LExp::get_exp_from_text("(avm (nosuch x))")->eval(Value(), kAnyType));
  EXPECT_FALSE(LExp::get_exp_from_text("(avm)")->copy()->eval(Value(), kAnyType));
}

}  // namespace
}  // namespace torvane
