// How long what expressions give lives.
//
// A value stays what it was for as long as the running form can reach it, and memory follows what
// is alive, not what was. Both meet in rounds. Every loop that may run for long opens one, and ends
// a turn of it each time it comes round: texts made in the turn go then, and so does what was let
// go in it, provided that it was born within the loop, since nobody outside the loop can have seen
// it. What is older waits for the round around the loop, and at last for the moment when nothing
// runs. Nothing of a turn may be carried over into the next but by a holder (HeldValue, Ref).
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace torvane {

/// Texts, the last one on top. They never move.
class TextStack {
 public:
  /// A copy, with a zero byte behind it.
  const char* push(std::string_view text) {
    std::size_t bytes = text.size() + 1;
    if (end_ - top_ < bytes) take_block(bytes);
    char* copy = block_ + (top_ - base_);
    std::char_traits<char>::copy(copy, text.data(), text.size());
    copy[text.size()] = 0;
    top_ += bytes;
    return copy;
  }
  /// The place of the next text; places grow.
  std::size_t top() const { return top_; }
  /// Takes off every text from a place on.
  void cut(std::size_t top) {
    if (top < stays_from_) drop_blocks(top);
    top_ = top;
  }
  /// The place of a text in here.
  std::size_t place_of(const char* text) const;

 private:
  struct Block {
    std::unique_ptr<char[]> chars;
    std::size_t size = 0;
    std::size_t base = 0;  // the place of its first byte
  };
  void take_block(std::size_t bytes);
  void drop_blocks(std::size_t top);
  void stand_on_top();

  std::size_t top_ = 0;
  char* block_ = nullptr;  // the one on top, from its base to its end
  std::size_t base_ = 0;
  std::size_t end_ = 0;
  std::size_t stays_from_ = 0;  // a cut from here on leaves the block where it is
  std::vector<Block> blocks_;   // those behind the ones in use wait with their memory
  std::size_t in_use_ = 0;
};

class Lifetimes {
 public:
  constexpr Lifetimes() = default;
  ~Lifetimes();
  Lifetimes(const Lifetimes&) = delete;
  Lifetimes& operator=(const Lifetimes&) = delete;

  /// What ends a thing when its time has come.
  using End = void (*)(std::intptr_t word);

  /// How many edits the trees that live here had: a walk asks whether there were more.
  std::uint64_t tree_edits = 0;

  /// The moment. Whoever is born remembers it.
  std::uint64_t now() const { return clock_; }
  /// A copy of a text, until the turn in hand ends.
  const char* keep(std::string_view text) { return texts_.push(text); }
  /// Ends a thing once nothing can reach it that has seen it since its birth.
  void drop(std::uint64_t birth, End end, std::intptr_t word) {
    dropped_.push_back({birth, end, word});
    ++dropped_count_;
  }
  /// Ends everything that was dropped, and every text: where nothing runs.
  void end_all();
  /// The same, but not while an expression waits for commands that it runs: to be called where no
  /// other expression runs, such as between two sentences.
  void settle() {
    if (waiting_ == 0) end_all();
  }
  bool expression_waits() const { return waiting_ > 0; }

  /// A turn of a round, to be asked later whether it is still going on; the first one never is.
  struct Turn {
    std::uint32_t depth = 0;
    std::uint64_t number = 0;
  };
  /// The turn that a text given by `keep` lives through.
  Turn turn_of_kept(const char* text) const;
  bool goes_on(Turn turn) const {
    return turn.depth <= outer_.size() && at(turn.depth).turn == turn.number;
  }

 private:
  friend class Round;
  friend class TextScope;
  friend class WaitForCommands;
  struct Dropped {
    std::uint64_t birth;
    End end;
    std::intptr_t word;
  };
  struct Open {
    std::uint64_t start = 0;  // what is born from then on is the round's own
    std::uint64_t turn = 1;
    std::size_t dropped = 0;  // how many things were dropped before
    std::size_t texts = 0;    // where the texts of before end
  };

  const Open& at(std::size_t depth) const { return depth < outer_.size() ? outer_[depth] : open_; }
  void end_turn() {
    if (dropped_count_ != open_.dropped || texts_.top() != open_.texts) end_things();
  }
  void end_things();
  void end_dropped(std::uint64_t from_birth, std::size_t from);
  void drop_texts(std::size_t top);

  std::uint64_t clock_ = 1;
  Open open_;                // the innermost round; at the bottom, what no round is around
  std::vector<Open> outer_;  // those around it, outermost first
  std::vector<Dropped> dropped_;
  std::size_t dropped_count_ = 0;  // its size, which is asked for often
  TextStack texts_;
  int waiting_ = 0;
};

namespace lifetime_detail {
// Never destroyed: what still lives at the end of the process is nobody's business any more.
union Immortal {
  constexpr Immortal() : lifetimes() {}
  ~Immortal() {}
  Lifetimes lifetimes;
};
inline constinit Immortal immortal;
inline constinit thread_local Lifetimes* current = &immortal.lifetimes;
}  // namespace lifetime_detail

/// Those of what runs in this thread. What runs outside any world shares the process's own.
inline Lifetimes& lifetimes() {
  return *lifetime_detail::current;
}

/// While it lives, what this thread runs lives in the lifetimes given.
class LivesIn {
 public:
  explicit LivesIn(Lifetimes& all) : outer_(std::exchange(lifetime_detail::current, &all)) {}
  ~LivesIn() { lifetime_detail::current = outer_; }
  LivesIn(const LivesIn&) = delete;
  LivesIn& operator=(const LivesIn&) = delete;

 private:
  Lifetimes* outer_;
};

/// Opens a round while it lives.
class Round {
 public:
  Round() : all_(lifetimes()) {
    all_.outer_.push_back(all_.open_);
    std::uint64_t start = ++all_.clock_;
    all_.open_ = {start, start, all_.dropped_count_, all_.texts_.top()};
  }
  ~Round() {
    all_.end_turn();
    all_.open_ = all_.outer_.back();
    all_.outer_.pop_back();
  }
  Round(const Round&) = delete;
  Round& operator=(const Round&) = delete;

  /// Ends a turn and begins the next. Rounds opened since have ended.
  void next() { all_.end_turn(); }

 private:
  Lifetimes& all_;
};

/// For what only gives a truth or a number: the texts made while it lives end with it.
class TextScope {
 public:
  TextScope() : all_(lifetimes()), top_(all_.texts_.top()) {}
  ~TextScope() {
    if (all_.texts_.top() != top_) all_.drop_texts(top_);
  }
  TextScope(const TextScope&) = delete;
  TextScope& operator=(const TextScope&) = delete;

 private:
  Lifetimes& all_;
  std::size_t top_;
};

/// While it lives, an expression waits for commands that it runs.
class WaitForCommands {
 public:
  WaitForCommands() { ++lifetimes().waiting_; }
  ~WaitForCommands() { --lifetimes().waiting_; }
  WaitForCommands(const WaitForCommands&) = delete;
  WaitForCommands& operator=(const WaitForCommands&) = delete;
};

/// Ends a thing once nothing can reach it.
template <class T>
void drop(std::unique_ptr<T> thing, std::uint64_t birth) {
  if (!thing) return;
  lifetimes().drop(
      birth, [](std::intptr_t word) { delete reinterpret_cast<T*>(word); },
      reinterpret_cast<std::intptr_t>(thing.release()));
}

/// Gives a counted thing (Counted) out as a value: it stays until the turn in hand ends, whoever
/// drops it, without being counted for that.
template <class T>
void lend(const T& object) {
  if (std::exchange(object.lent, true)) return;
  Lifetimes& all = lifetimes();
  all.drop(
      all.now(),
      [](std::intptr_t word) {
        auto* lent = reinterpret_cast<T*>(word);
        lent->lent = false;
        if (lent->refcount == 0) T::end(lent);
      },
      reinterpret_cast<std::intptr_t>(&object));
}

}  // namespace torvane
