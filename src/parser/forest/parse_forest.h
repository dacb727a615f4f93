// All results of a sentence, with shared subtrees, ranked by cost. An item is taken apart into a
// head and one modifier a step; head and modifier are each the first of a chain of alternatives, of
// which the cheapest counts.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "parser/chart/chart.h"
#include "parser/forest/dep_cost.h"
#include "support/slist.h"

namespace torvane {

struct Derivation;
struct TNode;

/// The decompositions of a chain. Of those, the cheapest is all that is ever asked for.
struct Derivations {
  Derivation* best = nullptr;  ///< of equals, the one that stands first in the chain
  float _cost = 0;             ///< of the best, with what belongs to the chain as a whole
  float own_weight = 0;        ///< that part
  int n_trees = 0;
};

/// The decompositions of a chain that begins with `first` and goes on with `rest`.
Derivations join(const Derivations& first, const Derivations& rest);

/// One step of a decomposition. The rest of it, the head's side, is shared by all steps to that
/// head.
struct Derivation {
  int _is_head = 0;                   ///< the entry stands for the head word's side
  PItem* _item = nullptr;             ///< of this step
  PItem* merged = nullptr;            ///< the item that this step made; null at a word
  const Link* _link = nullptr;        ///< of this step, may be null
  TNode* _child = nullptr;            ///< the subtree; null for a word, which is a leaf
  float _cost = 0;                    ///< total
  float _local_cost = 0;              ///< of this dependency alone
  const Derivations* head = nullptr;  ///< the head's decompositions; null where `_is_head`
};

/// A distinct chain of alternatives.
struct TNode {
  PItem* _item = nullptr;  ///< first of the chain
  const Derivations* _choices = nullptr;
  Slist<Derivation*> _best;  ///< the flattened best decomposition, filled on demand
  float _weight = 0;         ///< cost of the best decomposition
  int _root_penalty = 0;
  int _expanded = 0;  ///< 1 once `_best` is filled
  int _n_trees = 0;
  bool is_root = false;  ///< stands in the forest's roots

  /// The best decomposition, from the outermost modifier to the head.
  const Slist<Derivation*>& best();
};

/// What is known of an item: how it was made, and the chain that begins with it.
struct ForestChain {
  enum class State : std::uint8_t { fresh, building, built };

  PItem* first = nullptr;
  PItem* cursor = nullptr;      // while building: the alternative whose parts are looked at
  const PItem* word = nullptr;  // at the end of the item's head children
  TNode* node = nullptr;
  Derivations own;  // of the item alone
  Derivations choices;
  int number = -1;             // among those of a circle being built
  int sides = -1;              // the number of its row of sides, -1 before there is one
  State state = State::fresh;  // of `choices`
};

class ParseForest {
 public:
  /// `costs` may be null: then all steps cost the same, but for their links.
  explicit ParseForest(DepCosts* costs);
  ParseForest(const ParseForest&) = delete;
  ParseForest& operator=(const ParseForest&) = delete;

  /// Forgets the sentence; the memory stays for the next one.
  void clear();

  /// The TNode of the item's chain, made on first request.
  TNode* get_tnode(PItem* item);
  /// Fills `_roots` by the grammar's root table. Where results span the sentence, the others cannot
  /// be chosen, and are not built but for look-ups that show.
  void collect_roots(const Grammar& grammar, const Chart& chart);

  Slist<TNode*> _roots;

 private:
  using Chain = ForestChain;
  /// Head or modifier of an item, with the decompositions that are open to it.
  struct Part {
    Chain* chain = nullptr;
    const Derivations* choices = nullptr;
  };
  class Circles;
  /// Objects that are used again for each sentence.
  template <class T>
  class Pool {
   public:
    T* take() {
      if (used_ == all_.size()) all_.emplace_back();
      return &all_[used_++];
    }
    void reset() { used_ = 0; }

   private:
    std::deque<T> all_;
    std::size_t used_ = 0;
  };

  Chain* chain_of(PItem* first);
  /// Builds the chain's decompositions, and before them those of all chains that they consist of.
  Chain* expand(PItem* first);
  Chain* unbuilt_part(Chain& chain);
  void build(Chain& chain);
  /// The same where items lead back to themselves.
  void build_circles(Chain& wanted);
  Part part_of(PItem* item);
  void derive(Chain& chain, Part head, Part modifier);
  Derivation* new_entry(PItem& item);
  TNode* new_node(Part part);
  TNode* tnode_of(Part part);
  float step_cost(const PItem& merged, const Chain& head);
  float dependency_cost(const PItem& merged, const Chain& head);
  float best_cost(const PItem& head, PItem* modifier, Name relation);
  const std::vector<ModifierSide>& sides_of(Chain& chain);
  /// An item that the root table takes.
  struct Result {
    PItem* item;
    int penalty;
    bool has_penalty;
  };
  void collect(const RootRule& rule, const Chart& chart, int last);
  int last_of_whole(const LexAnalyzer& lex) const;
  void add_root(const Result& result);

  DepCosts* costs_;
  Pool<Chain> chains_;
  Pool<TNode> tnodes_;
  Pool<Derivation> derivations_;
  Pool<Derivations> views_;
  std::uint64_t sentence_;
  std::deque<std::vector<ModifierSide>> sides_;  // the different alternatives, as costs see them
  std::size_t sides_used_ = 0;
  const PItem* head_ = nullptr;  // the last one asked about
  std::optional<HeadSide> head_side_;
  std::vector<Chain*> stack_;
  std::vector<Chain*> alternatives_;
  std::vector<Result> results_;
};

}  // namespace torvane
