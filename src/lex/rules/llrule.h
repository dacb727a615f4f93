// Rules that ride on an entry of the lexicon: where an item with such a meaning is matched, the
// items left and right of it are tested, and an action runs on the match widened by them.
#pragma once

#include <memory>

#include "lex/lexicon/meaning.h"
#include "lex/patterns/pattern.h"
#include "support/ref.h"

namespace torvane {

class World;

class LLRule : public Counted<LLRule> {
 public:
  /// `(LEFT ... ~ RIGHT ...)` and the action; a null action makes a rule that does nothing.
  LLRule(World& world, IRSlist* context, IRSlist* action);

  bool has_context() const { return left_ || right_; }
  /// Whether the action ran.
  bool apply(const Ref<Match>& match);

 private:
  void act(const Ref<Match>& match, const Match* left, const Match* right);

  PatternPtr left_;   ///< against what stands before the match; null: no test
  PatternPtr right_;  ///< against what stands after it; null: no test
  ExpPtr action_;     ///< on Match*
};

namespace tags {
inline constexpr TypeTag ll_rule{"LLRule*"};
}
template <>
struct ValueTraits<LLRule> : TagOf<LLRule, tags::ll_rule> {};

/// The meaning kind `llrule`: `(llrule NAME)`, or `(llrule ((LEFT ~ RIGHT) ACTION))` in place.
class LLRuleMeaning : public Meaning {
 public:
  const char* type() const override { return "llrule"; }
  std::unique_ptr<Meaning> clone() const override { return std::make_unique<LLRuleMeaning>(*this); }
  /// The same rule is equal; two rules have nothing in common.
  Subsumption compare(const Meaning* other) const override;
  void init(World& world, IRSlist* form) override;

  Ref<LLRule> rule;  ///< may be null
};

}  // namespace torvane
