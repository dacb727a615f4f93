// Where a sentence ends in a stream of tokens: an automaton over a pattern that a grammar file
// gives. The code knows nothing of full stops.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lexp/form.h"
#include "support/array.h"
#include "support/str_bufs.h"

namespace torvane {

/// The expression `sbnd`. Each evaluation is a step on one token. It gives -1 while no boundary is
/// found, else the number of tokens that belong to the next sentence: a number, not a truth value.
/// The conditions see the automaton itself.
class SBnd : public Form<SBnd> {
 public:
  static constexpr const char* kName = "sbnd";
  static constexpr const char* kUsage =
      "`(sbnd STATE ...)` reads tokens one by one: -1 while no sentence ends, else how many tokens "
      "to give back";
  static constexpr int kMostStates = 32;
  static constexpr int kNoBoundary = -1;

  SBnd();
  void init(World& world, IRSlist* args) override;
  Value eval(Value input, int input_type) override;

  Eras life;  ///< a holder reads null once the expression is gone
  /// The token in hand; null if there is none. A copy, since the next step has another in its
  /// place.
  Value current_token() const;
  /// The token that first matched the nth state of those reached so far, from 1; null if none did.
  Value token(long n) const;

 private:
  /// What markers say of the state behind them.
  struct Marker {
    bool repeat = false;
    bool optional = false;
    int max_repeat = -1;  ///< repeats after the first entry; -1: any number
  };
  /// A balanced region, such as a quotation.
  struct Bracket {
    ExpPtr left, right, escape;
    int depth = 0;
  };
  struct State {
    Marker marker;
    ExpPtr cond;
    std::optional<Bracket> bracket;
    std::optional<std::string> matched;  ///< the first token matched since it was entered
  };

  static bool read_marker(const char* text, Marker& marker);
  void read_state(World& world, IRSlist& form, Marker marker);
  int step(std::string_view token);
  std::optional<int> try_token();
  std::optional<int> step_in_bracket(State& state);
  void go_to(int s);
  int finish_state(State& state);
  void reset();
  bool holds(const ExpPtr& exp) { return static_cast<bool>(exp.eval(Value::of(this), own_type_)); }
  int state_count() const { return static_cast<int>(_states.size()); }
  State& state(int s) { return _states[static_cast<std::size_t>(s)]; }

  std::vector<State> _states;
  ExpPtr _filter;  ///< a token counts only if it passes; null passes
  std::optional<std::string> _token;
  Value copy_;  ///< of the token, while a step goes on
  int _state = -1;
  int _tail = 0;         ///< states behind the boundary
  int _token_count = 0;  ///< tokens since the last reset
  int _matched_tail = 0;
  int _repeats = 0;  ///< of the current state
  int own_type_;
  bool stepping_ = false;
  bool overfull_ = false;  ///< states were left out
};

namespace tags {
inline constexpr TypeTag sbnd{.name = "SBnd*", .life = Life::sentence, .era_of = [](Word word) {
                                return reinterpret_cast<SBnd*>(word)->life.now();
                              }};
}
template <>
struct ValueTraits<SBnd> : TagOf<SBnd, tags::sbnd> {};

/// A separator that a grammar file defines by name; nothing in the engine drives one.
struct SntSep {
  Array<int> states{20};
  StrBufs buffer{4096};
};

namespace tags {
inline constexpr TypeTag snt_sep{"SntSep*"};
}
template <>
struct ValueTraits<SntSep> : TagOf<SntSep, tags::snt_sep> {};

}  // namespace torvane
