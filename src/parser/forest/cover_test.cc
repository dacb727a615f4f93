#include "parser/forest/cover.h"

#include <random>
#include <string>
#include <vector>

#include "parser/forest/dist_table.h"
#include "parser/forest/parse_forest.h"
#include "support/test_support.h"

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

// In long sentences the choice is made without a table. Few costs, so that many rows cost the same;
// trees so dear that they are only in the way of better ones.
TEST_F(CoverTest, TheLongWayAndTheTableAgree) {
  std::mt19937 random(7);
  auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  for (int round = 0; round < 4000; ++round) {
    std::string text;
    int n = 2 + below(16);
    for (int i = 0; i < n; ++i) text += below(8) == 0 ? ',' : static_cast<char>('0' + below(2));
    std::vector<CoverOffer> trees;
    int count = below(64);
    int widest = 1 + below(n);
    for (int i = 0; i < count; ++i) {
      int low = 1 + below(n);
      auto cost = static_cast<float>(below(3) == 0 ? 500 * below(3) : below(4) - 1);
      trees.push_back({nullptr, low, std::min(low + below(widest), n), cost, 0});
    }
    std::string by_way[2];
    for (int way : {0, 1}) {
      cover_ = Cover(way == 0 ? 100 : 0);
      start(text);
      for (int i = 0; i < count; ++i) offer(i, trees[i].low, trees[i].high, trees[i].cost);
      by_way[way] = chosen();
    }
    ASSERT_EQ(by_way[1], by_way[0]) << round << ' ' << text;
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
  EXPECT_EQ(messages_of([&] { table.read(in); }),
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
