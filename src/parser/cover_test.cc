#include "parser/cover.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "parser/dist_table.h"
#include "parser/parse_forest.h"

namespace torvane {
namespace {

class CoverTest : public testing::Test {
 protected:
  /// Words from a text: "," and "." are punctuation; a digit is a word of that cost.
  void start(const std::string& text) {
    auto& words = cover_.start(static_cast<int>(text.size()) + 1);
    for (std::size_t i = 0; i < text.size(); ++i) {
      bool punctuation = text[i] == ',' || text[i] == '.';
      words[i + 1] = {punctuation ? 0.0f : static_cast<float>(text[i] - '0'), punctuation,
                      punctuation};
    }
  }
  /// Tree number n over a span.
  void offer(int n, int low, int high, float cost) { cover_.offer(&trees_[n], low, high, cost); }
  std::string chosen() {
    std::string numbers;
    for (TNode* tree : cover_.choose()) numbers += std::to_string(tree - trees_) + " ";
    return numbers;
  }

  Cover cover_;
  TNode trees_[64];
};

TEST_F(CoverTest, ChoosesTheCheapestRow) {
  struct Tree {
    int low, high;
    float cost;
  };
  struct {
    const char* words;
    std::vector<Tree> trees;  // numbered from 1
    const char* chosen;
  } const cases[] = {
      // A tree over all is not compared with a split.
      {"000", {{1, 2, 0}, {1, 3, 500}, {1, 3, 500}}, "2 "},
      {"000", {{1, 3, 2}, {1, 3, 1}}, "2 "},
      // One join at 35 against two at 10: joins cost less beside punctuation.
      {"00,00", {{1, 2, 0}, {4, 5, 0}, {1, 3, 0}, {1, 4, 0}}, "3 2 "},
      {"0000", {{1, 1, 0}, {2, 4, 34}, {1, 3, 34}}, "1 2 "},
      // A word's own cost stands for its tree.
      {"19", {{1, 1, 1000}, {2, 2, -5}}, "1 2 "},
      // A dear tree inside is worse than the words alone, but it is the only way to its span.
      {"000", {{1, 2, 400}, {2, 3, 399}}, "2 "},
      // Punctuation behind all trees is dropped.
      {"0..", {{1, 1, 0}}, "1 "},
      {"...", {}, ""},
      {"", {}, ""},
      // Only trees over words of the sentence are taken.
      {"00", {{1, 0, 0}, {0, 1, 0}, {2, 3, 0}, {0, -1, 0}}, ""},
  };
  for (const auto& [words, trees, wanted] : cases) {
    start(words);
    int n = 0;
    for (auto [low, high, cost] : trees) offer(++n, low, high, cost);
    EXPECT_EQ(chosen(), wanted) << words;
  }
}

// In long sentences the cover is found word by word. Without overpriced trees it is the same.
TEST_F(CoverTest, TheLongWayAndTheTableAgree) {
  std::mt19937 random(7);
  auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  for (int round = 0; round < 20; ++round) {
    std::string text;
    for (int i = 0; i < 40; ++i) text += below(6) == 0 ? ',' : static_cast<char>('0' + below(10));
    struct Tree {
      int low, high;
      float cost;
    };
    std::vector<Tree> trees;
    for (int i = 0; i < 30; ++i) {
      int low = 1 + below(36);
      trees.push_back({low, low + below(4), static_cast<float>(below(8))});
    }
    start(text);
    for (int i = 0; i < 30; ++i) offer(i, trees[i].low, trees[i].high, trees[i].cost);
    std::string by_table = chosen();
    // The same text, far from the start of a long one that has nothing else.
    start(text + std::string(Cover::kMostTableWords, ','));
    for (int i = 0; i < 30; ++i) offer(i, trees[i].low, trees[i].high, trees[i].cost);
    offer(63, static_cast<int>(text.size()) + 1, Cover::kMostTableWords + 20, 0);
    EXPECT_EQ(chosen(), by_table + "63 ") << text;
  }
}

TEST(DistTable, ProbabilityLeansOnThePriorUntilThereIsEnough) {
  DistTable table;
  std::istringstream in(
      "subj\t1\tx\t300\nsubj\t3\tx\t100\r\nobj\t1\tx\t30\tobj\n2\tx\t10\nobj2\t0\tx\t1");
  table.read(in);
  EXPECT_DOUBLE_EQ(table.probability("subj", 1), 0.75);
  EXPECT_DOUBLE_EQ(table.probability("subj", 0), 0.75);
  EXPECT_DOUBLE_EQ(table.probability("subj", 2), 1 / 400.0);
  EXPECT_DOUBLE_EQ(table.probability("subj", 99), 0.25);
  EXPECT_NEAR(table.probability("obj", 1), 0.8 * 40 / 3 + 0.2 * 30 / 40, 1e-9);
  EXPECT_NEAR(table.probability("obj", 9), 0.8 * 40 / 3 + 0.2 * 10 / 40, 1e-9);
  EXPECT_NEAR(table.probability("obj2", 4), 0.995 + 0.005, 1e-9);
  EXPECT_DOUBLE_EQ(table.probability("new", 4), 0.25);
}

TEST(DistTable, BadRecordsAreReportedAndLeftOut) {
  DistTable table;
  std::istringstream in(
      "a\t-1\tx\t5\na\t99999999\tx\t5\na\tq\tx\t5\na\t1\tx\tnan\na\t1\tx\t-4\na\t1\tx\t300\na\t1");
  testing::internal::CaptureStderr();
  table.read(in);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "dist.txt: a bad record: a -1 5\ndist.txt: a bad record: a 99999999 5\n"
            "dist.txt: a bad record: a q 5\ndist.txt: a bad record: a 1 nan\n"
            "dist.txt: a bad record: a 1 -4\ndist.txt: the last record is cut off\n");
  EXPECT_DOUBLE_EQ(table.probability("a", 1), 1.0);
  std::istringstream zero("z\t1\tx\t0\n");
  table.read(zero);
  EXPECT_DOUBLE_EQ(table.probability("z", 2), 0.5);
}

}  // namespace
}  // namespace torvane
