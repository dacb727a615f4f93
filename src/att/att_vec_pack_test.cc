// The packed form, byte by byte.
#include <cstring>
#include <memory>
#include <sstream>

#include "att/attributes.h"
#include "att/nested_atts.h"
#include "att/offers.h"
#include "lexp/expression_run.h"
#include "support/test_support.h"

namespace torvane {
namespace {

class AttVecPackTest : public testing::Test {
 protected:
  AttVecPackTest() {
    using namespace offers;
    enter_all(run_.world(), {&scalar_atts, &text_atts, &disjunction_atts, &nested_atts, &list_atts,
                             &trace_att, &att_forms, &att_constants, &att_value_forms,
                             &att_pair_forms, &avlist_forms, &att_commands, &aliases});
  }

  /// A new type, current from now on.
  AttInterpreterList* new_type(const std::string& atts) {
    static int made = 0;
    name_ = "type" + std::to_string(++made);
    run_.run("(def-att-list " + name_ + " " + atts + ")");
    return attributes(run_.world()).current;
  }
  /// One attribute of every scalar kind.
  AttInterpreterList* scalars() {
    return new_type(
        "(defattribute def BinAtt)(defattribute num EnumAtt (allowable-values sg pl du))"
        "(defattribute cas DisjAtt (allowable-values nom acc dat abl))"
        "(defattribute gen Disj8Att (allowable-values m f n))(defattribute cnt IntAtt)"
        "(defattribute age SmIntAtt)(defattribute txt StrAtt)(defattribute ent EntAtt)");
  }
  /// One attribute of every nested kind, over a small type.
  AttInterpreterList* nested() {
    new_type(
        "(defattribute a BinAtt)(defattribute k EnumAtt (allowable-values x y z))"
        "(defattribute d DisjAtt (allowable-values p q r))");
    return new_type("(defattribute v VecAtt (interpreter " + name_ +
                    "))(defattribute fr ListAtt (interpreter " + name_ +
                    "))(defattribute st StackAtt (interpreter " + name_ +
                    "))(defattribute tr TraceAtt)(defattribute n IntAtt)(defattribute b BinAtt)");
  }
  /// A vector of the current type.
  Ref<AttVec> vec(const std::string& text) {
    IRSlistReader reader(false);
    return make_ref<AttVec>(reader.start_string(text.c_str()), attributes(run_.world()).current);
  }
  static std::string text(const AttVec& vec) {
    std::ostringstream out;
    vec.print(out);
    return out.str();
  }
  static std::string text(const Ref<AttVec>& vec) { return text(*vec); }
  int index(const char* att) {
    int found;
    return attributes(run_.world()).current->lookup(att, &found) ? found : -1;
  }

  static std::string bytes(const AttVec& vec) {
    StrBufs out;
    out.open();
    vec.pack(out);
    return {out.object(), out.object_size()};
  }
  // Unpacks from a block of exactly the bytes' size, so that reading on would be seen.
  static bool unpack(AttVec& vec, const std::string& data, std::size_t* taken = nullptr) {
    auto block = std::make_unique<char[]>(data.size());
    std::memcpy(block.get(), data.data(), data.size());
    const char* p = block.get();
    bool ok = vec.unpack(p, block.get() + data.size());
    if (taken) *taken = static_cast<std::size_t>(p - block.get());
    return ok;
  }
  void expect_bytes(const AttVec& vec, const std::string& wanted, const std::string& after) {
    EXPECT_EQ(bytes(vec), bytes_from(wanted)) << after;
    AttVec back(attributes(run_.world()).current);
    EXPECT_TRUE(unpack(back, bytes(vec)));
    EXPECT_EQ(text(back), after);
  }
  void expect_bytes(std::initializer_list<std::pair<const char*, const char*>> cases) {
    for (const auto& [vector, wanted] : cases)
      expect_bytes(*vec(vector), wanted, text(vec(vector)));
  }

  ExpressionRun run_;
  std::string name_;  ///< of the type made last
};

TEST_F(AttVecPackTest, ScalarBytes) {
  scalars();
  expect_bytes({{"()", "09"},
                {"(+def)", "0009"},
                {"(-def ~num ~cas)", "fffefd09"},
                {"((num du) (cas abl) (gen f n))", "01030200000008030609"},
                {"((cnt -2) (age 200))", "04fffffffe05c809"},
                {"((cnt 0) (age 0))", "fbfa09"},
                {"((txt \"x y\"))", "067820790009"},
                {"(~txt ~ent)", "f9f809"}});
  Ref<AttVec> entity = vec("()");
  entity->set(index("ent"), 5);
  expect_bytes(*entity, "0709", "(~ent)");  // defined, but without its value
}

TEST_F(AttVecPackTest, NestedBytes) {
  nested();
  expect_bytes({{"((v +a (k x)))", "000001010407"},
                {"((fr (+a) () ((k y))))", "01000300040401020407"},
                {"((st (-a)))", "020001ff0407"},
                {"(~v ~fr ~st ~tr)", "fffefdfc07"}});
  Ref<AttVec> traced = vec("()");
  Ref<TraceChain> chain = TraceChain::make();
  chain->records.append({Name("subj"), nullptr});
  traced->set(index("tr"), TraceAtt::word(chain.get()));
  expect_bytes(*traced, "0307", "(~tr)");
}

TEST_F(AttVecPackTest, TagsGrowWideAt126Attributes) {
  std::string atts;
  for (int i = 0; i < 125; ++i) atts += "(defattribute b" + std::to_string(i) + " BinAtt)";
  new_type(atts);
  EXPECT_EQ(bytes(*vec("(+b0 -b124)")), bytes_from("00837e"));
  new_type(atts + "(defattribute last IntAtt)");
  expect_bytes({{"(+b0 -b124 (last 1))", "0000ff83007d00000001007f"}});
}

TEST_F(AttVecPackTest, UnpackingMergesAndStopsAtTheEnd) {
  AttInterpreterList* type = scalars();
  Ref<AttVec> a = vec("(+def (num sg) (txt old))");
  std::size_t taken;
  std::string data = bytes(*vec("(-def (txt new) (cnt 4))"));
  EXPECT_TRUE(unpack(*a, data + "rest", &taken));
  EXPECT_EQ(taken, data.size());
  EXPECT_EQ(text(a), "(-def (num sg) (cnt 4) (txt \"new\"))");

  // A tag that names no attribute ends the reading: n itself, and complements beyond it.
  for (const char* end : {"\x08", "\x7f", "\xf7", "\x80"}) {
    AttVec back(type);
    EXPECT_TRUE(unpack(back, std::string("\x00", 1) + end + "\x01\x01"));
    EXPECT_EQ(text(back), "(+def)");
  }
  // The value bytes are the file's, not to be believed.
  AttVec back(type);
  EXPECT_TRUE(unpack(back, "\x01\xc8\x03\xff\x09"));
  EXPECT_EQ(text(back), "((gen m f n))") << "a value beyond the table shows nothing";
  EXPECT_EQ(back.get(index("num")), 200u);
}

TEST_F(AttVecPackTest, CutOffBytesAreRefused) {
  auto cut = [this](const char* vector) {
    std::string data = bytes(*vec(vector));
    for (std::size_t n = 0; n < data.size(); ++n) {
      AttVec back(attributes(run_.world()).current);
      EXPECT_FALSE(unpack(back, data.substr(0, n))) << n;
    }
  };
  scalars();
  cut("(+def (num du) (cas abl) (gen f) (cnt 7) (age 9) (txt \"long text\"))");
  AttInterpreterList* outer = nested();
  cut("((v +a (k x)) (fr (+a) ((k y))) (st (-a)) (n 5))");
  // Counts that the bytes do not bear out.
  for (const char* count : {"\x7f\xff", "\x00\x02"}) {
    AttVec back(outer);
    EXPECT_FALSE(unpack(back, "\x01" + std::string(count, 2) + "\x04"));
    EXPECT_TRUE(back.is_empty());
  }
  AttVec back(outer);
  EXPECT_TRUE(unpack(back, "\x01\xff\xff\x07"));
  EXPECT_EQ(text(back), "()") << "a negative count is no element";
}

}  // namespace
}  // namespace torvane
