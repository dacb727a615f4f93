// The results of a sentence one after the other, the cheapest first. Each part of a derivation
// keeps a ranking of its own and finds the next place of it when somebody asks, so that the first
// tree costs nothing here, and each further one little more than its own size.
//
// What each tree of a result covers stays as in the cheapest one. Of chains that lead back to
// themselves only the best derivation is looked at.
#pragma once

#include <cstddef>
#include <deque>
#include <unordered_map>
#include <vector>

#include "parser/forest/parse_forest.h"

namespace torvane {

class NextTrees {
 public:
  /// Of a forest whose roots were chosen; it must stay as it is while this is in use.
  NextTrees(ParseForest& forest, const Grammar& grammar, const Chart& chart);
  NextTrees(const NextTrees&) = delete;
  NextTrees& operator=(const NextTrees&) = delete;

  /// Goes to the next result; the first call to the second best. False if there is none.
  bool next();
  /// Its roots, and what they cost.
  const Slist<TNode*>& roots() const { return roots_; }
  float cost() const { return cost_; }

 private:
  struct Ranking;

  /// One way to make what is ranked, of the best of its parts, and what that costs.
  struct Step {
    float cost = 0;
    const PItem* item = nullptr;        ///< that is taken apart by it
    const Derivation* entry = nullptr;  ///< that it puts into the derivation, may be null
    TNode* root = nullptr;              ///< a result of the sentence
    Ranking* rest = nullptr;            ///< the head's side, or the results before; may be null
    Ranking* part = nullptr;            ///< the modifier, or the result; may be null
  };
  /// A step with the places that its parts have in their own rankings.
  struct Way {
    float cost;
    std::size_t step, rest, part;
  };
  struct Ranking {
    const Derivations* choices = nullptr;  ///< whose best stands at place 0; null for results
    std::vector<Step> steps;
    std::vector<Way> ways;     ///< found so far, in order
    std::vector<Way> waiting;  ///< a heap of those of which one comes next
  };
  struct Dearer {
    bool operator()(const Way& a, const Way& b) const {
      return a.cost != b.cost ? a.cost > b.cost : a.step > b.step;
    }
  };

  Ranking& new_ranking(const Derivations* choices) {
    return rankings_.emplace_back(Ranking{choices, {}, {}, {}});
  }
  Ranking& ranking_of(const Derivations& choices, const PItem& first);
  Ranking& results_over(int low, int high, const std::vector<TNode*>& all);
  void add_step(Ranking& ranking, const Step& step);
  void find_parts(Step& step);

  bool reach(Ranking& ranking, std::size_t place);
  void await_after(Ranking& ranking, const Way& way);
  void await(Ranking& ranking, std::size_t step, std::size_t rest, std::size_t part);

  void write(Ranking* ranking, std::size_t place, Slist<Derivation*>& out);
  TNode* node_of(TNode& best, Ranking& ranking, std::size_t place);

  std::deque<Ranking> rankings_;
  std::unordered_map<const Derivations*, Ranking*> by_choices_;
  std::deque<TNode> nodes_;
  std::deque<Derivation> entries_;
  Ranking* all_ = nullptr;  // of the sentence; null if it has no result
  std::size_t place_ = 0;
  Slist<TNode*> roots_;
  float cost_ = 0;
};

}  // namespace torvane
