// What an expression sees of the match that a rule is about, and the walk over its components.
#include <utility>
#include <vector>

#include "lex/patterns/match.h"
#include "lex/patterns/offers.h"
#include "lexp/form.h"

namespace torvane {

namespace {

template <class D, class R, class Out = std::remove_const_t<std::remove_pointer_t<R>>>
using MatchAccessor = Adaptor<D, Match, R, Out>;

struct MatchItem : MatchAccessor<MatchItem, LexItem*> {
  static constexpr const char* kName = "litem";
  static constexpr const char* kUsage = "`(litem)` the match's item";
  LexItem* step(Match& match) const { return match.item; }
};

struct MatchMeaning : MatchAccessor<MatchMeaning, Meaning*> {
  static constexpr const char* kName = "meaning";
  static constexpr const char* kUsage = "`(meaning)` the meaning of the match's item";
  Meaning* step(Match& match) const { return match.item ? match.item->meaning.get() : nullptr; }
};

struct MatchLow : MatchAccessor<MatchLow, int> {
  static constexpr const char* kName = "low";
  static constexpr const char* kUsage = "`(low)` the match's first position";
  int step(Match& match) const { return match.low; }
};

struct MatchHigh : MatchAccessor<MatchHigh, int> {
  static constexpr const char* kName = "high";
  static constexpr const char* kUsage = "`(high)` the match's last position";
  int step(Match& match) const { return match.high; }
};

struct MatchWord : MatchAccessor<MatchWord, Value, const char*> {
  static constexpr const char* kName = "matching-word";
  static constexpr const char* kUsage = "`(matching-word)` the match's text";
  Value step(Match& match) const {
    if (match.is_empty()) return Value();
    LexAnalyzer& chart = *match.analyzer;
    return chart.text_value(match.low == match.high ? chart.word(match.low)
                                                    : chart.surface(match.low, match.high));
  }
};

struct MatchAnalyzer : MatchAccessor<MatchAnalyzer, LexAnalyzer*> {
  static constexpr const char* kName = "analyzer";
  static constexpr const char* kUsage = "`(analyzer)` the match's analyser";
  LexAnalyzer* step(Match& match) const { return match.analyzer; }
};

struct MatchComponent : MatchAccessor<MatchComponent, Match*> {
  static constexpr const char* kName = "$";
  static constexpr const char* kUsage =
      "`($ n)` component n of the match: from 1 at the left, from -1 at the right";
  void init(World& world, IRSlist* args) override {
    n_ = args->get_long_val();
    LAdaptor::init(world, args);
  }
  Match* step(Match& match) const {
    int count = match.component_count();
    return n_ >= -count && n_ <= count ? match.component(static_cast<int>(n_)) : nullptr;
  }

 private:
  long n_ = 0;
};

class ForEachMatchComp : public Form<ForEachMatchComp> {
 public:
  static constexpr const char* kName = "foreach-match-component";
  static constexpr const char* kUsage =
      "`(foreach-match-component exp)` evaluates `exp` on each component";
  ForEachMatchComp() { in_type = type_id_of<Match>(); }
  void init(World& world, IRSlist* args) override { sub_ = get_exp(world, args->nth(0)); }
  Value eval(Value input, int input_type) override {
    if (!accepts(input_type)) return Value();
    Match* match = input.as<Match>();
    if (!match) return Value();
    std::vector<Ref<Match>> components;
    match->append_components(components);
    Round round;
    for (const Ref<Match>& component : components) {
      sub_.eval(Value::of(component.get()), type_id_of<Match>());
      round.next();
    }
    return Value();
  }

 private:
  ExpPtr sub_;
};

constexpr Prototype kMatchAccessorsForms[] = {
    pure_form<MatchItem>(),      pure_form<MatchMeaning>(), pure_form<MatchLow>(),
    pure_form<MatchHigh>(),      pure_form<MatchWord>(),    pure_form<MatchAnalyzer>(),
    pure_form<MatchComponent>(), form<ForEachMatchComp>(),
};

}  // namespace

constinit const Offer offers::match_accessors{kMatchAccessorsForms};

}  // namespace torvane
