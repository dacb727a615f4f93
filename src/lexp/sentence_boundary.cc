#include "lexp/sentence_boundary.h"

#include <memory>
#include <utility>

#include "lexp/offers.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

SBnd::SBnd() : own_type_(type_id_of<SBnd>()) {
  in_type = type_id_of<const char*>();
  out_type = type_id_of<int>();
}

// "*", "+", "?", and the first two with "-" and the most repeats behind it.
bool SBnd::read_marker(const char* text, Marker& marker) {
  if (!text) return false;
  long bound = -1;
  bool plain = text[0] != '\0' && text[1] == '\0';
  bool bounded =
      text[0] != '\0' && text[1] == '-' && is_digit(text[2]) && scan_long(text + 2, bound);
  if (plain && text[0] == '?') {
    marker.optional = true;
    return true;
  }
  if ((text[0] != '*' && text[0] != '+') || !(plain || bounded)) return false;
  marker.repeat = true;
  if (text[0] == '*') marker.optional = true;
  if (bounded) marker.max_repeat = static_cast<int>(std::min(bound, 1000000L));
  return true;
}

void SBnd::init(World& world, IRSlist* args) {
  int tail_from = -1;
  bool next_is_filter = false;
  Marker marker;
  for (IRSlist* item : args->items) {
    if (std::exchange(next_is_filter, false)) {
      _filter = get_exp(world, item);
    } else if (item->is_list()) {
      read_state(world, *item, std::exchange(marker, Marker()));
    } else if (same_word(item->atom, ".")) {
      tail_from = state_count();
    } else if (same_word(item->atom, ":")) {
      next_is_filter = true;
    } else if (!read_marker(item->atom, marker)) {
      get_exp(world, item);  // reports the atom
    }
  }
  if (tail_from >= 0) _tail = state_count() - tail_from;
}

void SBnd::read_state(World& world, IRSlist& form, Marker marker) {
  const char* head = form.nth_str_val(0);
  if (read_marker(head, marker)) {
    if (IRSlist* inner = form.nth(1); inner && inner->is_list()) read_state(world, *inner, marker);
    return;
  }
  if (state_count() == kMostStates) {
    if (!std::exchange(overfull_, true))
      messages() << "(sbnd ...): more than " << kMostStates << " states\n";
    return;
  }
  State state;
  state.marker = marker;
  if (same_word(head, "&")) {
    Bracket bracket;
    bracket.left = get_exp(world, form.find_keyword_node(":left"));
    bracket.right = get_exp(world, form.find_keyword_node(":right"));
    bracket.escape = get_exp(world, form.find_keyword_node(":escape"));
    state.bracket = std::move(bracket);
  } else {
    state.cond = get_exp(world, &form);
  }
  _states.push_back(std::move(state));
}

Value SBnd::eval(Value input, int input_type) {
  if (!accepts(input_type)) return Value();
  const char* text = input.text();
  // A condition could lead back here through a defined function.
  if (!text || _states.empty() || stepping_) return Value::integer(kNoBoundary);
  std::string_view token = text;
  stepping_ = true;
  copy_ = Value::made_text(token);
  int result = step(token);
  stepping_ = false;
  return Value::integer(result);
}

// A token that ends a failed run is tried once more, since it may begin a new one.
int SBnd::step(std::string_view token) {
  _token = token;
  ++_token_count;
  if (_filter && !holds(_filter)) return kNoBoundary;
  if (std::optional<int> result = try_token()) return *result;
  reset();
  _token = token;
  ++_token_count;
  if (std::optional<int> result = try_token()) return *result;
  reset();
  return kNoBoundary;
}

// What the token leads to from the current state; nothing if the run fails on it.
std::optional<int> SBnd::try_token() {
  if (_state >= 0 && state(_state).bracket && state(_state).bracket->depth > 0)
    return step_in_bracket(state(_state));

  int highest = _state;
  for (int s = _state + 1; s < state_count(); ++s) {
    state(s).matched.reset();
    highest = s;
    if (!state(s).marker.optional) break;
  }
  int lowest = _state + 1;
  if (_state >= 0) {
    const Marker& marker = state(_state).marker;
    if (marker.repeat && (marker.max_repeat < 0 || _repeats < marker.max_repeat)) lowest = _state;
  }
  for (int s = highest; s >= lowest; --s) {
    State& next = state(s);
    if (next.bracket) {
      if (!holds(next.bracket->left)) continue;
      go_to(s);
      next.bracket->depth = 1;
      return kNoBoundary;
    }
    if (next.cond && !holds(next.cond)) continue;
    go_to(s);
    return finish_state(next);
  }
  return std::nullopt;
}

std::optional<int> SBnd::step_in_bracket(State& state) {
  Bracket& bracket = *state.bracket;
  if (holds(bracket.left)) {
    ++bracket.depth;
    return kNoBoundary;
  }
  if (holds(bracket.right)) return --bracket.depth > 0 ? kNoBoundary : finish_state(state);
  if (holds(bracket.escape)) return std::nullopt;
  return kNoBoundary;
}

void SBnd::go_to(int s) {
  _repeats = s == _state ? _repeats + 1 : 0;
  _state = s;
}

int SBnd::finish_state(State& state) {
  if (!state.matched) state.matched = _token;
  if (_state >= state_count() - _tail) ++_matched_tail;
  // Kept: no-boundary-is-true
  return _state == state_count() - 1 ? _tail : kNoBoundary;
}

void SBnd::reset() {
  for (State& s : _states)
    if (s.bracket) s.bracket->depth = 0;
  _token.reset();
  _token_count = 0;
  _matched_tail = 0;
  _repeats = 0;
  _state = -1;
}

Value SBnd::current_token() const {
  if (!_token) return {};
  return stepping_ ? copy_ : Value::made_text(*_token);
}

Value SBnd::token(long n) const {
  if (n < 1 || n - 1 > _state) return {};
  const State& reached = _states[static_cast<std::size_t>(n - 1)];
  return reached.matched ? Value::made_text(*reached.matched) : Value();
}

namespace {

struct CurrentToken : Adaptor<CurrentToken, SBnd, Value, const char*> {
  static constexpr const char* kName = "current-token";
  static constexpr const char* kUsage =
      "`(current-token)` the token in hand, in a condition of `sbnd`";
  Value step(SBnd& boundary) const { return boundary.current_token(); }
};

struct MatchedToken : Adaptor<MatchedToken, SBnd, Value, const char*> {
  static constexpr const char* kName = "token";
  static constexpr const char* kUsage = "`(token n)` the token that first matched state n";
  void init(World& world, IRSlist* args) override {
    n_ = args->get_long_val();
    LAdaptor::init(world, args);
  }
  Value step(SBnd& boundary) const { return boundary.token(n_); }

 private:
  long n_ = 0;
};

Value def_sentence_separator(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  if (!name) return Value();
  world.own_object(name, std::make_unique<SntSep>(), "SntSep");
  return Value();
}

constexpr Command kSentenceBoundaryCommands[] = {
    {"def-sentence-separator", def_sentence_separator, nullptr,
     "`(def-sentence-separator NAME)` a named sentence separator"}};

constexpr Prototype kSentenceBoundaryForms[] = {
    form<SBnd>(),
    form<CurrentToken>(),
    form<MatchedToken>(),
};

}  // namespace

constinit const Offer offers::sentence_boundary{kSentenceBoundaryForms, kSentenceBoundaryCommands};

}  // namespace torvane
