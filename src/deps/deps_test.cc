#include "deps/deps.h"

#include <sstream>
#include <string>

#include "deps/trees.h"
#include "support/test_support.h"

namespace torvane {
namespace {

class DepsTest : public testing::Test {
 protected:
  DepsTest() {
    trees(world_).print_weight = false;
    trees(world_).print_governor = false;
  }

  /// Reads "(...)"; `errors_` is what it reports.
  Deps& read(const std::string& text) {
    errors_ = messages_of([&] { deps_.read(*reader_.start_string(text.c_str())); });
    return deps_;
  }
  static std::string written(Deps& deps) {
    std::ostringstream out;
    deps.print(out);
    return out.str();
  }
  /// The lines between the first and the last.
  static std::string lines(Deps& deps) {
    std::string text = written(deps);
    auto first = text.find('\n') + 1;
    return text.substr(first, text.size() - first - 2);
  }
  DepTree* node(const char* label) { return deps_.find_label(label); }

  World world_{World::Console::of_process()};
  WorldScope here_{world_};
  Deps deps_{world_};
  IRSlistReader reader_{false};
  std::string errors_;
};

TEST_F(DepsTest, FlagsAddWeightsAndGovernors) {
  read("(:id 7 1 (a ~ X 2 mod (w 0.5)) 2 (b c Y *  (w 2)))");
  trees(world_).print_weight = true;
  trees(world_).print_governor = true;
  EXPECT_EQ(written(deps_),
            "(:id 7 ;;total-weight 2.5\n"
            "1\t(a\t~ X\t2\tmod\t(gov c) (w 0.5))\n"
            "2\t(b\tc Y\t* (w 2))\n"
            ")\n");
}

TEST_F(DepsTest, EmptyNodesStandBeforeTheirWordAndNeedALabel) {
  read("((() ~ Lost *) e (() ~ EC w subj) w (win ~ V *) (\"\" ~ Lost *))");
  EXPECT_EQ(deps_.word_count(), 2);
  EXPECT_EQ(node("e")->_low, 1);
  EXPECT_EQ(node("e")->_high, 0);
  EXPECT_EQ(node("e")->_pos, -1);
  EXPECT_EQ(lines(deps_), "e\t(()\t~ EC\tw\tsubj)\nw\t(win\t~ V\t*)\n");
}

TEST_F(DepsTest, LabelsAreKeptAndGivenInOrder) {
  read("(n (a ~ X *) (b ~ X n))");
  Deps& deps = deps_;
  for (int i = 0; i < 2; ++i) {
    DepTree* empty = deps.new_node();
    empty->_low = 2;
    empty->_high = 1;
    node("n")->add_child(empty);
  }
  EXPECT_EQ(lines(deps), "n\t(a\t~ X\t*)\nE0\t(()\t~ U\tn)\nE1\t(()\t~ U\tn)\n2\t(b\t~ X\tn)\n");
  EXPECT_EQ(deps.find_label("E1")->_low, 2);
  EXPECT_EQ(deps.find_label("E2"), nullptr);
  deps.clear();
  EXPECT_EQ(deps.find_label("n"), nullptr);
  EXPECT_EQ(deps._next_empty, 0);
}

TEST_F(DepsTest, LabelsThatLookLikeDirectionsReadBack) {
  const char* text = "<\t(a\t~ X\t*)\n*\t(b\t~ X\t- <\tr)\n-\t(c\t~ X\t- *)\n4\t(d\t~ X\t- -)\n";
  read(std::string("(") + text + ")");
  EXPECT_EQ(errors_, "");
  EXPECT_EQ(lines(deps_), text);
  EXPECT_EQ(node("4")->parent(), node("-"));
}

TEST_F(DepsTest, UncoveredWordsStandOnceInOrder) {
  read("(1 (a ~ X *) (b) :nogap (c) 4 (d ~ X 1) :nogap (e) (f))");
  EXPECT_EQ(lines(deps_),
            "1\t(a\t~ X\t*)\n2\t(b) :nogap\n3\t(c)\n4\t(d\t~ X\t1) :nogap\n5\t(e)\n6\t(f)\n");
  // A word inside a node's span has no line of its own.
  node("1")->_high = 2;
  EXPECT_EQ(lines(deps_), "1\t(a\t~ X\t*)\n3\t(c)\n4\t(d\t~ X\t1) :nogap\n5\t(e)\n6\t(f)\n");
}

TEST_F(DepsTest, DirectionsCountOccurrences) {
  read("(x (a) (b) (a) (b) (a))");
  EXPECT_EQ(deps_.find_word(1, "<", "a", false), 3);
  EXPECT_EQ(deps_.find_word(1, "<<", "a", false), 5);
  EXPECT_EQ(deps_.find_word(1, "<<<", "a", false), 0);
  EXPECT_EQ(deps_.find_word(4, ">>", "a", false), 1);
  EXPECT_EQ(deps_.find_word(2, "*", "a", false), 3);
  EXPECT_EQ(deps_.find_word(2, "*", "A", false), 0);
  EXPECT_EQ(deps_.find_word(1, "<<>", "a", false), 3);
  // An empty node stands before the word of its index.
  EXPECT_EQ(deps_.find_word(3, "<", "a", true), 3);
  EXPECT_EQ(deps_.find_word(3, ">", "b", true), 2);
  EXPECT_EQ(messages_of([&] { EXPECT_EQ(deps_.find_word(1, "x<", "a", false), 0); }),
            "x< is not a valid direction\n");
}

TEST_F(DepsTest, ChildrenAreKeptInSentenceOrder) {
  read("(1 (a ~ X *) 2 (b) 3 (c) 4 (d))");
  DepTree* head = node("1");
  const std::int16_t places[][3] = {{4, 4, 4}, {2, 2, 2}, {2, 3, 3}, {-1, 3, 2}};
  for (auto [pos, low, high] : places) {
    DepTree* child = deps_.new_node();
    child->_pos = pos;
    child->_low = low;
    child->_high = high;
    head->add_child(child);
  }
  std::string order;
  head->for_each_child([&](DepTree* child) {
    order += std::to_string(child->_pos) + "/" + std::to_string(child->_low) + " ";
  });
  EXPECT_EQ(order, "2/2 -1/3 2/3 4/4 ");
  DepTree* child = static_cast<DepTree*>(head->first_child());
  EXPECT_EQ(messages_of([&] { child->add_child(head); }), "RSTree::append error.\n");
}

TEST_F(DepsTest, RootWordsAndSpans) {
  read("((a ~ X *) :nogap (b x X *) (c) (d))");
  auto* first = static_cast<DepTree*>(deps_._root->first_child());
  auto* second = static_cast<DepTree*>(deps_._root->last_child());
  EXPECT_STREQ(first->root_word(), "a");
  EXPECT_STREQ(second->root_word(), "x");
  EXPECT_EQ(deps_._root->root_word(), nullptr);
  first->_high = 4;
  EXPECT_STREQ(first->root_word(), "ab c d");
  EXPECT_STREQ(deps_.span_text(-5, 99), "ab c d");
  EXPECT_STREQ(deps_.span_text(3, 2), "");
  first->_root_word = nullptr;
  EXPECT_STREQ(first->root_word(), "a");
}

TEST_F(DepsTest, AClearedTreeLeavesNothingToVariables) {
  read("(1 (a ~ X *))");
  HeldValue held(Value::of(node("1")));
  EXPECT_EQ(held.get().as<DepTree>(), node("1"));
  deps_.clear();
  EXPECT_FALSE(held.get());
  HeldValue other;
  {
    Deps scope(world_);
    other = HeldValue(Value::of(scope.new_node()));
    EXPECT_TRUE(other.get());
  }
  EXPECT_FALSE(other.get());
}

TEST_F(DepsTest, LongTreesAreReadInTime) {
  std::string chain = "(";
  for (int i = 1; i <= 5000; ++i)
    chain += std::to_string(i) + " (w ~ X " + (i < 5000 ? std::to_string(i + 1) : "*") + ")\n";
  read(chain + ")");
  EXPECT_EQ(errors_, "");
  EXPECT_EQ(lines(deps_).size(), lines(read(written(deps_))).size());
}

}  // namespace
}  // namespace torvane
