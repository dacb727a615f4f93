// The packed form, byte by byte, and the alias file around it.
#include <cstring>
#include <memory>
#include <sstream>

#include "att/aliases.h"
#include "att/att_fixture.h"
#include "att/nested_atts.h"

namespace torvane {
namespace {

class AttVecPackTest : public AttTest {
 protected:
  static std::string bytes(const AttVec& vec) {
    StrBufs out;
    out.open();
    vec.pack(out);
    return {out.object(), out.object_size()};
  }
  static std::string hex(const std::string& data) {
    static const char digits[] = "0123456789abcdef";
    std::string out;
    for (char c : data) {
      out += digits[static_cast<unsigned char>(c) >> 4];
      out += digits[static_cast<unsigned char>(c) & 15];
    }
    return out;
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
  static std::string record(const std::string& body, std::size_t length) {
    std::string out;
    for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(length >> shift);
    return out + body;
  }
  static std::string record(const std::string& body) { return record(body, body.size()); }
};

TEST_F(AttVecPackTest, ScalarBytes) {
  AttInterpreterList* type = scalars();
  const char* const cases[][2] = {
      {"()", "09"},
      {"(+def)", "0009"},
      {"(-def ~num ~cas)", "fffefd09"},
      {"((num du) (cas abl) (gen f n))", "01030200000008030609"},
      {"((cnt -2) (age 200))", "04fffffffe05c809"},
      {"((cnt 0) (age 0))", "fbfa09"},
      {"((txt \"x y\"))",
       "0678207900"
       "09"},
      {"(~txt ~ent)", "f9f809"},
  };
  for (const auto& c : cases) {
    Ref<AttVec> a = vec(c[0]);
    EXPECT_EQ(hex(bytes(*a)), c[1]) << c[0];
    AttVec back(type);
    EXPECT_TRUE(unpack(back, bytes(*a)));
    EXPECT_EQ(back.compare(*a), 0) << c[0];
  }
  Ref<AttVec> entity = vec("()");
  entity->set(index("ent"), 5);
  EXPECT_EQ(hex(bytes(*entity)), "0709");
  AttVec back(type);
  EXPECT_TRUE(unpack(back, bytes(*entity)));
  EXPECT_EQ(text(back), "(~ent)") << "defined, but without its value";
}

TEST_F(AttVecPackTest, NestedBytes) {
  AttInterpreterList* type = nested();
  const char* const cases[][2] = {
      {"((v +a (k x)))",
       "0000010104"
       "07"},
      {"((fr (+a) () ((k y))))", "01000300040401020407"},
      {"((st (-a)))", "020001ff0407"},
      {"(~v ~fr ~st ~tr)", "fffefdfc07"},
  };
  for (const auto& c : cases) {
    Ref<AttVec> a = vec(c[0]);
    EXPECT_EQ(hex(bytes(*a)), c[1]) << c[0];
    AttVec back(type);
    EXPECT_TRUE(unpack(back, bytes(*a)));
    EXPECT_EQ(text(back), text(a));
  }
  Ref<AttVec> traced = vec("()");
  Ref<TraceChain> chain = TraceChain::make();
  chain->records.append({intern_string("subj"), nullptr});
  traced->set(index("tr"), TraceAtt::word(chain.get()));
  EXPECT_EQ(hex(bytes(*traced)), "0307");
  AttVec back(type);
  EXPECT_TRUE(unpack(back, bytes(*traced)));
  EXPECT_EQ(text(back), "(~tr)");
}

TEST_F(AttVecPackTest, TagsGrowWideAt126Attributes) {
  std::string atts;
  for (int i = 0; i < 125; ++i) atts += "(defattribute b" + std::to_string(i) + " BinAtt)";
  new_type(atts);
  EXPECT_EQ(hex(bytes(*vec("(+b0 -b124)"))), "00837e");
  new_type(atts + "(defattribute last IntAtt)");
  Ref<AttVec> a = vec("(+b0 -b124 (last 1))");
  EXPECT_EQ(hex(bytes(*a)), "0000ff83007d00000001007f");
  AttVec back(AttInterpreterList::current());
  EXPECT_TRUE(unpack(back, bytes(*a)));
  EXPECT_EQ(text(back), text(a));
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
  AttInterpreterList* type = scalars();
  std::string data =
      bytes(*vec("(+def (num du) (cas abl) (gen f) (cnt 7) (age 9) (txt \"long text\"))"));
  for (std::size_t n = 0; n < data.size(); ++n) {
    AttVec back(type);
    EXPECT_FALSE(unpack(back, data.substr(0, n))) << n;
  }
  AttInterpreterList* outer = nested();
  data = bytes(*vec("((v +a (k x)) (fr (+a) ((k y))) (st (-a)) (n 5))"));
  for (std::size_t n = 0; n < data.size(); ++n) {
    AttVec back(outer);
    EXPECT_FALSE(unpack(back, data.substr(0, n))) << n;
  }
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

TEST_F(AttVecPackTest, DamagedAliasFiles) {
  AttInterpreterList* type = scalars();
  const std::string good = record(std::string("one\0\0\x09", 6));
  const std::string next = record(std::string("two\0\xff\x09", 6));
  struct {
    const char* what;
    std::string file;
    int aliases;
  } const cases[] = {
      {"empty", "", 0},
      {"whole", good + next, 2},
      {"bytes behind the vector", record(std::string("one\0\0\x09junk", 10)) + next, 2},
      {"half a length", good + std::string("\0\0", 2), 1},
      {"half a record", good + next.substr(0, 8), 1},
      {"a length beyond the file", good + record("two", 0x7fffffff), 1},
      {"a length of all ones", record("two", 0xffffffff) + good, 0},
      {"no zero byte", record("one") + next, 0},
      {"no bytes at all", record("") + next, 0},
      {"no vector", record(std::string("one\0", 4)) + next, 0},
      {"a vector without its end", good + record(std::string("two\0\0", 5)) + next, 1},
      {"twice the same", good + record(std::string("ONE\0\xff\x09", 6)), 1},
      {"an empty name", record(std::string("\0\0\x09", 3)), 1},
  };
  for (const auto& c : cases) {
    type->aliases.clear();
    std::istringstream in(c.file);
    read_aliases(*type, in);
    EXPECT_EQ(type->aliases.count(), c.aliases) << c.what;
    AttVec* one = type->find_alias("One");
    EXPECT_EQ(one ? text(*one) : "(+def)", "(+def)") << c.what;
  }
  EXPECT_EQ(run_.errors(), "Duplicate definition of ONE\n");
}

}  // namespace
}  // namespace torvane
