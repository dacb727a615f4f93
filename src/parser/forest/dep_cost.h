// What it costs to put one word under another by a relation: how far apart they stand, and how
// seldom a database of counts has seen the two together.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "deps/dep_statistics.h"
#include "parser/chart/p_item.h"
#include "parser/forest/dist_table.h"
#include "support/name_table.h"

namespace torvane {

class World;

/// A head as costs see it.
struct HeadSide {
  explicit HeadSide(const PItem& item);
  std::string_view word;
  std::string_view category;
  int position;
  bool preposition;
  const char* pform;  ///< of a preposition, may be null
  const char* name;   ///< the relation string of its lexical item, may be null
};

/// A modifier as costs see it. Alternatives that are equal here cost the same.
struct ModifierSide {
  explicit ModifierSide(const PItem& item);
  std::string_view word;
  std::string_view category;
  int position;
  friend bool operator==(const ModifierSide&, const ModifierSide&) = default;
};

/// What the costs of all parsers of a world share.
struct SharedCosts {
  /// The table "dist.txt", read when it is first asked for.
  const DistTable& distances(World& world);

  long debug_weight = 0;  ///< not 0: costs that are looked up are reported, and not kept for long

 private:
  std::unique_ptr<DistTable> distances_;
};

/// What a database of counts does to the prices of a grammar.
enum class CountsUse {
  replace,  ///< a dependency costs what the counts and the distance say, not what the links say
  advise,   ///< it costs what the links say, and less where its words are often seen so
};

/// The costs of one parser.
class DepCosts {
 public:
  DepCosts(World& world, SharedCosts& shared) : world_(world), shared_(shared) {}

  DepStatistics* _reldb = nullptr;  ///< null: costs are the weights of parsing
  CountsUse use = CountsUse::replace;
  /// Nothing changes the counts while they are in use: whether a pair was looked up before makes no
  /// difference.
  bool fixed_counts = false;
  /// Whether looking up more pairs than are needed can be told from outside.
  bool look_ups_show() const { return _reldb && (!fixed_counts || shared_.debug_weight); }

  /// The weights of parsing count, with or without a database.
  bool keeps_weights() const { return !_reldb || use == CountsUse::advise; }

  float dep_cost(const HeadSide& head, const ModifierSide& modifier, const char* relation);
  /// A set of triples that are never good.
  void set_bad_triples(std::istream& in);
  /// A new sentence begins.
  void reset() {
    if (shared_.debug_weight && _cost_cache) _cost_cache->clear();
  }
  /// The sides asked about from now on are of other items than before.
  void forget_pairs() { ++items_; }

 private:
  /// A head and a modifier, by the places of their texts: within a sentence the same pair comes up
  /// many times, and is told at once.
  struct Pair {
    const char* head = nullptr;
    const char* head_category = nullptr;
    const char* pform = nullptr;
    const char* name = nullptr;
    const char* modifier = nullptr;
    const char* modifier_category = nullptr;
    const char* relation = nullptr;
    std::uint64_t items = 0;  // whose texts they are
    int distance = 0;
    bool preposition = false;

    std::size_t place() const;
    friend bool operator==(const Pair&, const Pair&) = default;
  };
  struct PairCost {
    Pair pair;
    float cost = 0;
  };
  static constexpr int kPairBits = 10;

  float new_cost(const HeadSide& head, const ModifierSide& modifier, const char* relation);
  float distance_cost(int distance);
  float association_cost();

  World& world_;
  SharedCosts& shared_;
  std::unique_ptr<NameTable<float>> _cost_cache;  // by triple, for all sentences; null until used
  std::unique_ptr<NameTable<char>> _bad_triples;  // a set; null if there are none
  std::uint64_t items_ = 1;
  std::vector<PairCost> pairs_;  // a pair has one place; who comes later takes it
  // Of the dependency in hand.
  std::string relation_, word1_, key_, word2_, triple_;
};

/// The relation of a merged item's modifier to its head.
Name step_relation(const PItem& merged);

}  // namespace torvane
