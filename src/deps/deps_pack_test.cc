#include <gtest/gtest.h>

#include <string>

#include "att/attributes.h"
#include "att/offers.h"
#include "deps/deps.h"
#include "shell/world.h"

namespace torvane {
namespace {

class DepsPackTest : public testing::Test {
 protected:
  void read(const char* text) { deps_.read(*reader_.start_string(text)); }
  std::string packed() const {
    StrBufs out;
    deps_.pack(out);
    std::string bytes(out.object(), out.object_size());
    out.abandon();
    return bytes;
  }
  bool unpack(const std::string& bytes) {
    const char* p = bytes.data();
    bool good = deps_.unpack(p, bytes.data() + bytes.size());
    used_ = p - bytes.data();
    return good;
  }

  World world_{World::Console::of_process()};
  WorldScope here_{world_};
  Deps deps_{world_};
  IRSlistReader reader_{false};
  std::ptrdiff_t used_ = 0;
};

TEST_F(DepsPackTest, Bytes) {
  read("(1 (a ~ X 2 mod) 2 (bs b Y *))");
  using namespace std::string_literals;
  std::string top = "\x01\xff\0\x01"s;
  std::string b = "\x0b\x02"s + "Y\0"s + "b\0"s + "\0\x01"s;
  std::string a = "\x0f\x01"s + "X\0"s + "mod\0"s + "~\0"s + "\0\0"s;
  EXPECT_EQ(packed(), top + b + a);

  deps_._root = deps_.find_label("1");
  deps_._root->_high = 2;
  deps_._root->_root_word = "a";
  EXPECT_EQ(packed(), "\x06\0\x01\0\x02\0\x01"s + "X\0"s + "mod\0"s + "\0\0"s);
  deps_._root->_low = deps_._root->_high = deps_._root->_pos = 128;
  EXPECT_EQ(packed().substr(0, 7), "\x0e\0\x80\0\x80\0\x80"s);
}

TEST_F(DepsPackTest, WholeBytesComeBackAndEveryCutAndEveryFlippedByteIsSafe) {
  read("(1 (a ~ X 2 mod) 2 (bs b Y *) e (() ~ E 2) 3 (c \"\" Z 2) 4 (d x Z 3))");
  const std::string bytes = packed();
  ASSERT_TRUE(unpack(bytes + "more"));
  EXPECT_EQ(used_, static_cast<std::ptrdiff_t>(bytes.size()));
  EXPECT_EQ(packed(), bytes);
  EXPECT_EQ(deps_.word_count(), 5);
  for (std::size_t n = 0; n < bytes.size(); ++n) {
    std::string cut(bytes, 0, n);
    EXPECT_FALSE(unpack(std::string(cut.c_str(), cut.size()))) << n;
    EXPECT_EQ(deps_._root, nullptr);
  }
  for (std::size_t i = 0; i < bytes.size(); ++i)
    for (int bit = 0; bit < 8; ++bit) {
      std::string bad = bytes;
      bad[i] = static_cast<char>(bad[i] ^ (1 << bit));
      // A vector without a type ends the process, as it should.
      if (static_cast<unsigned char>(bad[i]) & 16 && !(bytes[i] & 16)) continue;
      if (unpack(bad)) packed();
    }
}

TEST_F(DepsPackTest, AttributesNeedAType) {
  using namespace offers;
  enter_all(world_, {&scalar_atts, &text_atts, &disjunction_atts, &nested_atts, &list_atts,
                     &trace_att, &att_commands});
  world_.interpreter.prompt = false;
  world_.interpreter.load_string("(def-att-list pack_atts (defattribute good BinAtt))");
  read("(1 (a ~ X * (atts (+good))))");
  std::string bytes = packed();
  ASSERT_TRUE(unpack(bytes));
  auto* node = static_cast<DepTree*>(deps_._root->first_child());
  ASSERT_TRUE(node->_atts);
  EXPECT_EQ(node->_atts->get(0), 1u);
  deps_._att_type = nullptr;
  const char* message = "The type of AttVec in dependency tree is not defined\n";
  EXPECT_EXIT(packed(), testing::ExitedWithCode(1), message);
  EXPECT_EXIT(unpack(bytes), testing::ExitedWithCode(1), message);
}

}  // namespace
}  // namespace torvane
