#include "treerules/tree_rules.h"

#include <array>
#include <bit>
#include <cstdint>
#include <string_view>
#include <utility>

#include "deps/tree_walk.h"
#include "lexp/expressions.h"
#include "lexp/variables.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"
#include "treerules/tree_patterns.h"

namespace torvane {
namespace {

/// The walk whose action runs, and where it stands. Rules that an action runs have walks of their
/// own, after which the outer one counts again.
class CurrentWalk : public WorldPart {
 public:
  static constexpr Place kPlace = treerules;

  struct Standing {
    Iterator* walk = nullptr;
    RSTree* node = nullptr;
  };
  Standing standing;
};

/// Makes a walk the current one while it lives.
class StandOn {
 public:
  StandOn(World& world, Iterator& walk, RSTree* node)
      : current_(world.part<CurrentWalk>()),
        outer_(std::exchange(current_.standing, {&walk, node})) {}
  ~StandOn() { current_.standing = outer_; }
  StandOn(const StandOn&) = delete;
  StandOn& operator=(const StandOn&) = delete;

 private:
  CurrentWalk& current_;
  CurrentWalk::Standing outer_;
};

/// What a rule's expressions declare is the rule's own.
class VariableScope {
 public:
  explicit VariableScope(World& world) : scopes_(expressions(world).scopes) { scopes_.push(-1); }
  ~VariableScope() { scopes_.pop(); }
  VariableScope(const VariableScope&) = delete;
  VariableScope& operator=(const VariableScope&) = delete;

 private:
  Scopes& scopes_;
};

std::unique_ptr<LExp> make_condition(World& world, IRSlist* form) {
  auto cond = LExp::get_exp(world, form);
  if (cond && !is_pattern(*cond))
    messages() << cond->name() << " cannot be used as a condition in tree rules.\n";
  return cond;
}

bool is_word(const IRSlist* item, std::string_view word) {
  return item && item->is_atom() && item->atom == word;
}

std::optional<std::string> take_text(IRSlist* args, const char* keyword) {
  std::unique_ptr<IRSlist> value = args->take_keyword_node(keyword);
  return value && value->atom ? std::optional<std::string>(value->atom) : std::nullopt;
}

/// A condition on each node.
class StructuralRule : public TreeRule {
 public:
  void init(World& world, IRSlist* args) override;

  ExpPtr cond;

 protected:
  template <class Walk>
  void run(RSTree* tree);

 private:
  World* world_ = nullptr;
};

/// A node after its children.
class UpRule : public StructuralRule {
 public:
  void apply(RSTree* tree) override;
};

/// A node before its children.
class DownRule : public StructuralRule {
 public:
  void apply(RSTree* tree) override;
};

/// The root alone, without a condition.
class RootRule : public StructuralRule {
 public:
  void init(World& world, IRSlist* args) override;
  void apply(RSTree* tree) override;
};

/// Several conditions that must all find a node somewhere in the tree.
class FlatRule : public TreeRule {
 public:
  static constexpr int kMostConds = 32;

  void init(World& world, IRSlist* args) override;
  void apply(RSTree* tree) override;

  Array<ExpPtr> conds;
  std::uint32_t required = 0;  ///< those without which the action does not run
  std::uint32_t repeat = 0;    ///< those whose later matches replace earlier ones

 private:
  class Progress;
  void read_conds(World& world, IRSlist* list);
};

void StructuralRule::init(World& world, IRSlist* args) {
  world_ = &world;
  TreeRule::init(world, args);
  VariableScope scope(world);
  cond = make_condition(world, args->nth(0));
  action = LExp::get_exp(world, args->nth(1));
}

template <class Walk>
void StructuralRule::run(RSTree* tree) {
  Walk walk(tree);
  Round round;
  while (RSTree* node = walk.next()) {
    MatchScope matches;
    Value match = cond.eval(Value::of(node), type_id_of<RSTree>());
    if (!match.as<TreeMatch>()) continue;
    StandOn current(*world_, walk, node);
    if (action.eval(match, type_id_of<TreeMatch>()) && shallow) walk.skip();
    round.next();
  }
}

void UpRule::apply(RSTree* tree) {
  run<PostIterator>(tree);
}

void DownRule::apply(RSTree* tree) {
  run<PreIterator>(tree);
}

void RootRule::init(World& world, IRSlist* args) {
  // Kept: root-rule-has-no-options
  action = LExp::get_exp(world, args->nth(0));
}

void RootRule::apply(RSTree* tree) {
  MatchScope matches;
  action.eval(Value::of(tree), type_id_of<RSTree>());
}

void FlatRule::init(World& world, IRSlist* args) {
  TreeRule::init(world, args);
  VariableScope scope(world);
  if (IRSlist* list = args->nth(0)) read_conds(world, list);
  action = LExp::get_exp(world, args->nth(1));
}

void FlatRule::read_conds(World& world, IRSlist* list) {
  std::uint32_t bit = 1;
  required = bit;
  for (IRSlist* item : list->items) {
    if (is_word(item, "?")) {
      required &= ~bit;
    } else if (is_word(item, ":max")) {
      repeat |= bit;
    } else if (conds.count() == kMostConds) {
      messages() << "A flat rule has more than " << kMostConds
                 << " conditions. The rest is left out.\n";
      return;
    } else {
      conds.append(make_condition(world, item));
      bit <<= 1;
      required |= bit;
    }
  }
}

/// What has matched since the action last ran.
class FlatRule::Progress {
 public:
  explicit Progress(const FlatRule& rule) : rule_(rule), all_(mask(rule.conds.count())) {}

  /// Tries the conditions on a node. The match of all, once the required ones have theirs.
  TreeMatch* visit(RSTree* node) {
    for (std::uint32_t open = (pending_ | rule_.repeat) & all_; open; open &= open - 1) {
      int i = std::countr_zero(open);
      TreeMatch* match = new_match(rule_.conds[i], node);
      if (!match) continue;
      matches_[static_cast<std::size_t>(i)] = match;
      pending_ &= ~(1U << i);
      if (!(pending_ & rule_.required)) return gather();
    }
    return nullptr;
  }
  bool has_none() const { return pending_ == all_; }
  void reset() { pending_ = all_; }

 private:
  static std::uint32_t mask(int bits) { return bits == 32 ? ~0U : (1U << bits) - 1; }

  TreeMatch* gather() const {
    TreeMatch* whole = TreeMatch::make(nullptr);
    for (int i = 0; i < rule_.conds.count(); ++i)
      whole->append(pending_ >> i & 1 ? TreeMatch::make(nullptr)
                                      : matches_[static_cast<std::size_t>(i)]);
    return whole;
  }

  const FlatRule& rule_;
  std::uint32_t all_;
  std::uint32_t pending_ = all_;
  std::array<TreeMatch*, kMostConds> matches_{};
};

void FlatRule::apply(RSTree* tree) {
  PostIterator walk(tree);
  Progress progress(*this);
  RSTree* node = walk.next();
  for (Round round; node; round.next()) {
    // As long as nothing is kept, what was tried can go.
    MatchScope matches;
    do {
      if (TreeMatch* match = progress.visit(node)) {
        if (action.eval(Value::of(match), type_id_of<TreeMatch>()) && shallow) return;
        progress.reset();
      }
      node = walk.next();
    } while (node && !progress.has_none());
  }
}

}  // namespace

void remove_from_walk(World& world, RSTree* node) {
  const CurrentWalk::Standing& current = world.part<CurrentWalk>().standing;
  if (current.walk && current.node == node) current.walk->remove();
}

void TreeRule::init(World&, IRSlist* args) {
  if (is_word(args->nth(0), "shallow")) {
    shallow = true;
    args->pop_front();
  }
  name = take_text(args, ":name");
  comments = take_text(args, ":comments");
}

std::unique_ptr<TreeRule> make_tree_rule(World& world, IRSlist* form) {
  if (form->empty() || !form->nth(0)->is_atom()) return nullptr;
  std::unique_ptr<TreeRule> rule;
  // Kept: unknown-rule-is-passed
  std::string_view kind = form->nth(0)->atom;
  if (kind == "up") {
    rule = std::make_unique<UpRule>();
  } else if (kind == "flat") {
    rule = std::make_unique<FlatRule>();
  } else if (kind == "root") {
    rule = std::make_unique<RootRule>();
  } else if (kind == "down") {
    rule = std::make_unique<DownRule>();
  } else {
    return nullptr;
  }
  form->pop_front();
  PlaceScope here(world.places, form->place);
  rule->init(world, form);
  return rule;
}

}  // namespace torvane
