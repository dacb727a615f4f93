// A small regular expression language over the positions of a sentence, whose tests are expressions
// on words and on lexical items. Every pattern can be matched anchored at its right end or at its
// left end.
#pragma once

#include <memory>

#include "lex/patterns/match.h"
#include "lex/patterns/match_run.h"
#include "lexp/lexp.h"
#include "shell/offer.h"
#include "shell/world.h"

namespace torvane {

class LPattern {
 public:
  virtual ~LPattern() = default;
  /// Scans the sentence.
  virtual void match(MatchRun& run, MatchList& results) const;
  /// All matches whose last (first) position is `pos`, added to an empty list.
  void match_end(MatchRun& run, int pos, MatchList& results) const {
    match_at(run, Anchor::end, pos, results);
  }
  void match_start(MatchRun& run, int pos, MatchList& results) const {
    match_at(run, Anchor::start, pos, results);
  }
  /// The same for a pattern that is part of another.
  virtual void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const = 0;
  virtual std::unique_ptr<LPattern> clone() const = 0;
  /// Takes the arguments (the head is off already).
  virtual void init(World&, IRSlist*) {}
  /// Takes stock of its expressions, once all of them are there.
  void settle_reach() { reach_ = constraint_.reach() | parts_reach(); }
  /// What its expressions and those of its parts read and change. A pattern that stays within the
  /// input of its expressions gives at a position what the chart has there, whoever asks and when.
  Reach reach() const { return reach_; }

 protected:
  virtual Reach parts_reach() const { return Reach::input; }
  /// Takes an option off the front of the arguments; false if something else stands there.
  bool take_option(World& world, IRSlist* args);
  /// The same for a keyword with a number after it.
  static bool take_number(IRSlist* args, const char* keyword, long& number);
  /// What `produce` adds to a list, as far as it passes the constraint.
  template <class Produce>
  void add_constrained(MatchList& results, Produce produce) const;

  bool passes_constraint(Match& match) const;
  const ExpPtr& constraint() const { return constraint_; }
  /// The scan goes from the first word to the last.
  bool front_to_back() const { return front_to_back_; }
  /// The scan looks inside earlier matches too.
  bool overlapping() const { return overlapping_; }

 private:
  void match_at(MatchRun& run, Anchor anchor, int pos, MatchList& results) const;

  bool front_to_back_ = false;
  bool overlapping_ = false;
  ExpPtr constraint_;  // on Match*, may be null
  Reach reach_ = Reach::anything;
};

namespace tags {
inline constexpr TypeTag l_pattern{"LPattern*"};
}
template <>
struct ValueTraits<LPattern> : TagOf<LPattern, tags::l_pattern> {};

/// Supplies `clone` of a pattern class whose members copy deeply by themselves.
template <class D, class Base = LPattern>
class PatternOf : public Base {
 public:
  using Base::Base;
  std::unique_ptr<LPattern> clone() const override {
    return std::make_unique<D>(static_cast<const D&>(*this));
  }
};

/// An owned part of a pattern, null if there is none; a copy of it clones the part.
class PatternPtr {
 public:
  PatternPtr() = default;
  PatternPtr(std::unique_ptr<LPattern> pattern) : pattern_(std::move(pattern)) {}
  PatternPtr(const PatternPtr& other)
      : pattern_(other.pattern_ ? other.pattern_->clone() : nullptr) {}
  PatternPtr(PatternPtr&&) noexcept = default;
  PatternPtr& operator=(PatternPtr other) noexcept {
    pattern_ = std::move(other.pattern_);
    return *this;
  }
  explicit operator bool() const { return pattern_ != nullptr; }
  LPattern* operator->() const { return pattern_.get(); }
  Reach reach() const { return pattern_ ? pattern_->reach() : Reach::input; }
  /// The matches at a position; a part that is missing has none.
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const {
    if (pattern_) pattern_->find(run, anchor, pos, results);
  }

 private:
  std::unique_ptr<LPattern> pattern_;
};

/// A test of one position by an expression. No expression passes everything.
class AtomicPat : public LPattern {
 public:
  AtomicPat() = default;
  explicit AtomicPat(ExpPtr exp) : exp_(std::move(exp)) {}
  void init(World& world, IRSlist* args) override;

 protected:
  Reach parts_reach() const override { return exp_.reach(); }

  ExpPtr exp_;
};

/// A word that satisfies the expression.
class WordPat : public PatternOf<WordPat, AtomicPat> {
 public:
  using PatternOf::PatternOf;
  void find(MatchRun& run, Anchor anchor, int pos, MatchList& results) const override;
};

/// A pattern from a form: an atom is a test for that word. Null after a message if the form is no
/// pattern.
std::unique_ptr<LPattern> make_pattern(World& world, IRSlist* form);

template <class Produce>
void LPattern::add_constrained(MatchList& results, Produce produce) const {
  if (!constraint_) {
    produce(results);
    return;
  }
  MatchList found;
  produce(found);
  for (const Ref<Match>& match : found)
    if (passes_constraint(*match)) results.add(match);
  results.finish();
}

/// The row of a pattern class for its file's table; a class may stand under several names.
template <class D>
constexpr Prototype pattern(const char* name, const char* doc) {
  constexpr const char* kPatterns = "LPattern";
  return {kPatterns, name, nullptr, doc, [](World& world, const Prototype& row) {
            world.families.open(row.family, "Lexical Patterns", nullptr);
            auto* prototype = world.own(std::make_unique<D>());
            world.families.add_proto(row.family, row.name, Value::of<LPattern>(prototype), row.doc);
          }};
}

}  // namespace torvane
