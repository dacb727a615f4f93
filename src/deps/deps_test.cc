#include "deps/deps.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "att/att_interpreter_list.h"
#include "deps/val_types.h"
#include "shell/exec.h"

namespace torvane {
namespace {

class DepsTest : public testing::Test {
 protected:
  void SetUp() override {
    PRINT_DEPTREE_WEIGHT = false;
    PRINT_GOV = false;
  }

  /// Reads "(...)"; `errors_` is what it reports.
  Deps& read(const std::string& text) { return read_into(deps_, text); }
  Deps& read_into(Deps& deps, const std::string& text) {
    testing::internal::CaptureStderr();
    if (const IRSlist* form = reader_.start_string(text.c_str())) deps.read(*form);
    errors_ = testing::internal::GetCapturedStderr();
    return deps;
  }
  static std::string written(Deps& deps, const LBitSet* show = nullptr) {
    std::ostringstream out;
    deps.print(out, show);
    return out.str();
  }
  /// The lines between the first and the last.
  static std::string lines(Deps& deps) {
    std::string text = written(deps);
    auto first = text.find('\n') + 1;
    return text.substr(first, text.size() - first - 2);
  }
  DepTree* node(const char* label) { return deps_.find_label(label); }

  Deps deps_;
  IRSlistReader reader_;
  std::string errors_;
};

TEST_F(DepsTest, WritesALineAWordUnderItsHead) {
  read("(:id s1 (the ~ Det < dog det) (dog ~ N 3 subj) 3 (sees see V *) (, , Punc < x))");
  EXPECT_EQ(written(deps_),
            "(:id s1\n"
            "1\t(the\t~ Det\t2\tdet)\n"
            "2\t(dog\t~ N\t3\tsubj)\n"
            "3\t(sees\tsee V\t*)\n"
            "4\t(\",\"\t~ Punc\t*)\n"
            ")\n");
  EXPECT_EQ(errors_, "the parent of `,' is not found, specified as: < x\n");
}

TEST_F(DepsTest, FlagsAddWeightsAndGovernors) {
  read("(:id 7 1 (a ~ X 2 mod (w 0.5)) 2 (b c Y *  (w 2)))");
  PRINT_DEPTREE_WEIGHT = true;
  PRINT_GOV = true;
  EXPECT_EQ(written(deps_),
            "(:id 7 ;;total-weight 2.5\n"
            "1\t(a\t~ X\t2\tmod\t(gov c) (w 0.5))\n"
            "2\t(b\tc Y\t* (w 2))\n"
            ")\n");
}

TEST_F(DepsTest, WhatIsWrittenReadsBackEqual) {
  for (const char* text :
       {"(1 (\"the\" ~ Det 2 det) :nogap 2 (dog ~ N *) 3 (\"a b\" \"x(\" \"U;\" 2 \"r s\"))",
        "(1 (a) 2 (b ~ N *) :nogap 3 (c) 4 (d))",
        "(E0 (() ~ EC 2 subj) 1 (to ~ I 2) 2 (win ~ V *) E1 (() x N 2 obj) E2 (() y N 2 iobj))",
        "(x (a ~ N *) (b ~ N - x) (c ~ N < e) (d ~ N > b) (e ~ N *))", "(:id \"a b\")", "()"}) {
    std::string first = written(read(text));
    Deps again;
    read_into(again, first);
    EXPECT_EQ(written(again), first) << text;
    EXPECT_EQ(errors_, "");
  }
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

TEST_F(DepsTest, CrossingTreesAreWrittenEachWordOnce) {
  read("(1 (a ~ X 3) 2 (b ~ X *) 3 (c ~ X *) 4 (d ~ X 2))");
  EXPECT_EQ(lines(deps_), "2\t(b\t~ X\t*)\n4\t(d\t~ X\t2)\n1\t(a\t~ X\t3)\n3\t(c\t~ X\t*)\n");
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
  testing::internal::CaptureStderr();
  EXPECT_EQ(deps_.find_word(1, "x<", "a", false), 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "x< is not a valid direction\n");
}

TEST_F(DepsTest, ACircleOfParentsIsRefused) {
  read("(1 (a ~ X 1) 2 (b ~ X 3) 3 (c ~ X 4) 4 (d ~ X < b) 5 (e ~ X > b))");
  EXPECT_EQ(errors_,
            "the parent of `a' is already its descendent: - 1\n"
            "the parent of `d' is not found, specified as: < b\n");
  read("(1 (a ~ X 2) 2 (b ~ X 3) 3 (c ~ X 1))");
  EXPECT_EQ(errors_, "the parent of `c' is already its descendent: - 1\n");
  EXPECT_EQ(lines(deps_), "1\t(a\t~ X\t2)\n2\t(b\t~ X\t3)\n3\t(c\t~ X\t*)\n");
}

TEST_F(DepsTest, AWordOutsideTheTreeIsNobodysParent) {
  read("(1 (a ~ X 2) 2 (b))");
  EXPECT_EQ(errors_, "the parent of `a' is not found, specified as: - 2\n");
  EXPECT_EQ(lines(deps_), "1\t(a\t~ X\t*)\n2\t(b)\n");
}

TEST_F(DepsTest, AssertionsEndTheNodes) {
  read("(1 (a ~ X *) assertions: ((eq (a b 0.5) (c)) odd (only) ((x))) 2 (lost ~ X *))");
  EXPECT_EQ(lines(deps_),
            "1\t(a\t~ X\t*)\nassertions: (\n (eq (a b 0.5) (c \"\" 1))\n (only)\n )\n");
  EXPECT_EQ(deps_.word_count(), 2);
}

TEST_F(DepsTest, PropertiesMustBeDefined) {
  static const StrValue text_type;
  define_property("note", &text_type);
  read("(1 (a ~ X * (note hm) (unknown y)))");
  EXPECT_EQ(lines(deps_), "1\t(a\t~ X\t* (note hm))\n");
  EXPECT_EQ(property_id("unknown"), 0);
  EXPECT_EQ(property_name(0), nullptr);
}

TEST_F(DepsTest, AttributesAreWrittenAndRead) {
  register_attribute_types();
  register_attribute_commands();
  interpreter().prompt = false;
  read("(1 (a ~ X * (atts (+good))))");
  EXPECT_EQ(errors_, "The type of AttVec in dependency tree is not defined\n");
  interpreter().load_string("(def-att-list deps_atts (defattribute good BinAtt))");
  deps_._att_type = nullptr;
  LBitSet all = LBitSet().complement();
  for (const char* text : {"(1 (a ~ X * (atts (+good))))", "(1 (a ~ X * (atts +good)))"}) {
    read(text);
    EXPECT_NE(written(deps_, &all).find("\t(atts (+good)))\n"), std::string::npos) << errors_;
    EXPECT_EQ(written(deps_).find("atts"), std::string::npos);
  }
  AttInterpreterList::set_current(nullptr);
}

TEST_F(DepsTest, ChildrenAreKeptInSentenceOrder) {
  read("(1 (a ~ X *) 2 (b) 3 (c) 4 (d))");
  DepTree* head = node("1");
  auto add = [&](int pos, int low, int high) {
    DepTree* child = deps_.new_node();
    child->_pos = static_cast<std::int16_t>(pos);
    child->_low = static_cast<std::int16_t>(low);
    child->_high = static_cast<std::int16_t>(high);
    head->add_child(child);
  };
  auto positions = [&] {
    std::string text;
    head->for_each_child([&](DepTree* child) {
      text += std::to_string(child->_pos) + "/" + std::to_string(child->_low) + " ";
    });
    return text;
  };
  add(4, 4, 4);
  add(2, 2, 2);
  add(2, 3, 3);
  add(-1, 3, 2);
  EXPECT_EQ(positions(), "2/2 -1/3 2/3 4/4 ");
  DepTree* child = static_cast<DepTree*>(head->first_child());
  testing::internal::CaptureStderr();
  child->add_child(head);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "RSTree::append error.\n");
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

TEST_F(DepsTest, IdsCountTheTreesMade) {
  Deps one;
  Deps two;
  EXPECT_EQ(std::stoi(two._id), std::stoi(one._id) + 1);
  one.clear();
  EXPECT_EQ(std::stoi(two._id), std::stoi(one._id) + 1);
  read_into(one, "(:id x 1 (a ~ X *))");
  EXPECT_EQ(one._id, "x");
  one.clear();
  EXPECT_EQ(std::stoi(one._id), std::stoi(two._id) + 1);
}

TEST_F(DepsTest, AClearedTreeLeavesNothingToVariables) {
  read("(1 (a ~ X *))");
  HeldValue held(Value::of(node("1")));
  EXPECT_EQ(held.get().as<DepTree>(), node("1"));
  deps_.clear();
  EXPECT_FALSE(held.get());
  HeldValue other;
  {
    Deps scope;
    other = HeldValue(Value::of(scope.new_node()));
    EXPECT_TRUE(other.get());
  }
  EXPECT_FALSE(other.get());
}

TEST_F(DepsTest, NodesAreUsedAgain) {
  DepTree* first = deps_.new_node();
  first->_weight = 3;
  first->set_label("x");
  deps_.clear();
  EXPECT_TRUE(deps_.is_clear());
  DepTree* second = deps_.new_node();
  EXPECT_EQ(first, second);
  EXPECT_EQ(second->_label, nullptr);
  EXPECT_EQ(second->_weight, 0);
}

TEST_F(DepsTest, ShortForm) {
  read("(1 (a ~ X 2) 2 (b y X *) 3 (c ~ X 2) 4 (d ~ X 3))");
  std::ostringstream out;
  deps_.print_short(out, *node("2"));
  EXPECT_EQ(out.str(), "+++ y\n  (--- a)\n  (+++ c (+++ d))");
}

TEST_F(DepsTest, MuchTextIsReadInTime) {
  std::string chain = "(";
  for (int i = 1; i <= 5000; ++i)
    chain += std::to_string(i) + " (w ~ X " + (i < 5000 ? std::to_string(i + 1) : "*") + ")\n";
  read(chain + ")");
  EXPECT_EQ(errors_, "");
  EXPECT_EQ(lines(deps_).size(), lines(read(written(deps_))).size());
  std::string many = "(";
  for (int i = 0; i < 33000; ++i) many += i < 1000 ? "(w ~ X < nowhere)" : "(w)";
  read(many + ")");
  EXPECT_EQ(deps_.word_count(), Deps::kMostWords + 1);
  EXPECT_NE(errors_.find("only the first 32767 words"), std::string::npos);
}

TEST_F(DepsTest, DamagedTextIsReadAsFarAsItGoes) {
  for (const char* text : {"(((a)))",
                           "((a b) (c))",
                           "(x)",
                           "(1)",
                           "(1 ())",
                           "(1 (()))",
                           "((a ()))",
                           "((a ~ ()))",
                           "((a ~ X ()))",
                           "((a ~ X <))",
                           "((a ~ X < ()))",
                           "((a ~ X -))",
                           "((a ~ X * () (()) (w)))",
                           "((a ~ X * (w (x)) (atts) (gov)))",
                           ":id",
                           "(:id)",
                           "(:id (x))",
                           "(:nogap :nogap)",
                           "(assertions:)",
                           "(assertions: x)",
                           "(assertions: (() (())))",
                           "((\"\" ~ X *))",
                           "(1 (a ~ \"\" 1) 1 (b \"\" X 1))"}) {
    read(text);
    written(deps_);
  }
}

TEST_F(DepsTest, CommandsSetTheFlags) {
  register_deps_commands();
  interpreter().prompt = false;
  interpreter().load_string("(print-governor 1) (print-deptree-weight 2)");
  EXPECT_TRUE(PRINT_GOV);
  EXPECT_TRUE(PRINT_DEPTREE_WEIGHT);
}

}  // namespace
}  // namespace torvane
