#include "triples/db/mutual_info.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <tuple>

namespace torvane {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// A database beside the raw counts that it was made of.
class Statistics : public testing::Test {
 protected:
  using Triple = std::tuple<std::string, std::string, std::string>;

  void add(const char* head, const char* rel, const char* word, float count) {
    db.add_triple(head, db.feature_id(rel, true), word, count);
    counts[{head, rel, word}] += count;
  }
  /// Sum of the counts of a head, relation and word, each empty for any.
  double sum(const std::string& head, const std::string& rel, const std::string& word) const {
    double total = 0;
    for (const auto& [triple, count] : counts) {
      const auto& [h, r, w] = triple;
      if ((head.empty() || h == head) && (rel.empty() || r == rel) && (word.empty() || w == word))
        total += count;
    }
    return total;
  }
  void add_some() {
    const char* rels[] = {"subj", "obj", "mod"};
    unsigned state = 7;
    auto below = [&](unsigned n) { return (state = state * 1664525 + 1013904223) / 65536 % n; };
    for (int i = 0; i < 400; ++i) {
      std::string head = "h" + std::to_string(below(12)), word = "w" + std::to_string(below(20));
      add(head.c_str(), rels[below(3)], word.c_str(), 0.5F + static_cast<float>(below(9)));
    }
  }

  TripleDb db{101, 101, false};
  std::map<Triple, double> counts;
};

void expect_near(double wanted, double got, const std::string& what) {
  EXPECT_NEAR(got, wanted, 1e-4 * std::max(1.0, std::fabs(wanted))) << what;
}

TEST_F(Statistics, LogLikelihoodOfEveryTriple) {
  add_some();
  auto l = [](double p, double k, double n) {
    return p == 0 || p == 1 ? 0 : k * std::log(p) + (n - k) * std::log(1 - p);
  };
  for (const auto& [triple, k1] : counts) {
    const auto& [h, r, w] = triple;
    double n1 = sum(h, r, ""), k2 = sum("", r, w) - k1, n2 = sum("", r, "") - k1;
    double p = (k1 + k2) / (n1 + n2);
    double wanted = l(k1 / n1, k1, n1) + l(k2 / n2, k2, n2) - l(p, k1, n1) - l(p, k2, n2);
    const RelInfo* rel = db.find(h.c_str())->find_rel(db.feature_id(r.c_str(), false));
    expect_near(wanted, log_likelihood(*rel->find_word(w.c_str()), *rel, db), h + r + w);
  }
}

TEST_F(Statistics, DependencyProbabilityOfKnownAndUnknownWords) {
  add_some();
  double n = sum("", "", "");
  for (std::string h : {"h1", "h2", "w3", "nobody"})
    for (std::string r : {"subj", "obj"})
      for (std::string w : {"w1", "w2", "h3", "nobody"}) {
        double a = sum("", "", w) + 1000, b = sum(h, "", "") + 1000, t = a * b / n;
        double p = 0.7 * sum(h, r, w) / b + 0.1 * (sum("", r, w) + 1) / n +
                   0.2 * (t + sum(h, r, "")) * (t + sum("", r, w)) / (b * sum("", r, ""));
        expect_near(p, db.dependency_probability(h.c_str(), r.c_str(), w.c_str()), h + r + w);
      }
  expect_near(1 / n, db.dependency_probability("h1", "nosuch", "w1"), "unknown relation");
  EXPECT_GT(db.dependency_probability(nullptr, "subj", nullptr), 0);
}

TEST_F(Statistics, AssociationsCompareAHeadWithOthersOfItsCategory) {
  add("paint", "V:with:N", "with", 3000);
  add("paint", "V:obj:N", "wall", 1000);
  add("see", "V:with:N", "with", 100);
  add("see", "V:obj:N", "wall", 5900);
  add("paint", "N:with:N", "with", 10000);  // a noun too, which is no matter to the verb
  auto expect = [&](double together, double of_head, double everywhere, const char* head,
                    const char* relation, const char* word) {
    const double share = everywhere / 10000;
    expect_near(std::log((together + 1000 * share) / (of_head + 1000) / share),
                db.association(head, relation, word), std::string(head) + relation);
  };
  expect(3000, 4000, 3100, "paint", "V:with:N", "with");
  expect(5900, 6000, 6900, "See", "V:obj:N", "WALL");
  EXPECT_FLOAT_EQ(db.association("see", "V:with:N", "with"), -0.3F);  // seldom: told with care
  for (const char* relation : {"V:on:N", "with", "nosuch", "::", ""})
    EXPECT_EQ(db.association("paint", relation, "with"), 0) << relation;
  EXPECT_EQ(db.association("nobody", "V:with:N", "with"), 0);
  EXPECT_EQ(db.association("paint", "V:with:N", "wall"), 0);
}

TEST_F(Statistics, RareEventsAreDiscounted) {
  EXPECT_EQ(db.mutinfo(1, 1, 1), -100);  // nothing is counted yet
  db.add_count(100);
  EXPECT_FLOAT_EQ(db.mutinfo(1, 1, 1), static_cast<float>(std::log(100.0) / 9));
  EXPECT_EQ(db.mutinfo(0, 5, 7), -100);
  EXPECT_EQ(db.mutinfo(3, 0, 7), -100);
  EXPECT_EQ(db.mutinfo(-1, -2, -2), -100);
  EXPECT_EQ(db.mutinfo(kInfinity, kInfinity, 1), -100);
}

TEST_F(Statistics, CountsThatMakeNoSense) {
  EXPECT_GT(db.dependency_probability("a", "r", "b"), 0);
  add("a", "r", "b", -3);
  db.find("r")->freq = 0;
  RelInfo& rel = *db.find("a")->find_rel(db.feature_id("r", false));
  EXPECT_EQ(log_likelihood(*rel.begin(), rel, db), 0);
  for (float count : {-1000.0F, 2000.0F, kInfinity, -kInfinity}) {
    db.find("a")->freq = db.find("r")->freq = count;
    EXPECT_GT(db.dependency_probability("a", "r", "b"), 0) << count;
    EXPECT_FALSE(std::isnan(log_likelihood(*rel.begin(), rel, db))) << count;
  }
}

}  // namespace
}  // namespace torvane
