#include "formats/arc_layout.h"

#include <algorithm>

#include "formats/layout.h"

namespace torvane {
namespace {

/// An arc that would pass more lines than this leaves its line and is taken up at its end only.
constexpr std::size_t kMostPassed = 4;

class Layout {
 public:
  Layout(const Sentence& sentence, const ArcMeasures& measures)
      : sentence_(sentence), measures_(measures), dependents_(dependents_of(sentence)) {
    arcs_.words.resize(sentence.words.size());
  }

  ArcLayout run() {
    for (std::size_t first = 0; first < count(); first = arcs_.lines.back().last + 1)
      fill_line(first);
    for (std::size_t i = 0; i < count(); ++i) add_arc(i);
    for (std::size_t i = 0; i < count(); ++i) add_trunks(i);
    std::stable_sort(arcs_.pieces.begin(), arcs_.pieces.end(),
                     [](const ArcPiece& a, const ArcPiece& b) { return a.line < b.line; });
    auto from = arcs_.pieces.begin();
    for (std::size_t line = 0; line < arcs_.lines.size(); ++line) {
      const auto to = std::find_if(from, arcs_.pieces.end(),
                                   [line](const ArcPiece& piece) { return piece.line != line; });
      set_levels(from, to, arcs_.lines[line]);
      from = to;
    }
    return std::move(arcs_);
  }

 private:
  using Pieces = std::vector<ArcPiece>::iterator;

  std::size_t count() const { return sentence_.words.size(); }
  /// The head's index; `count()` for a root, and for a word without one.
  std::size_t head_of(std::size_t i) const {
    const int head = sentence_.words[i].head;
    const bool has_head = head > 0 && static_cast<std::size_t>(head) <= count() &&
                          static_cast<std::size_t>(head) != i + 1;
    return has_head ? static_cast<std::size_t>(head) - 1 : count();
  }
  int room_for_label(std::size_t i) const {
    return measures_.labels[i] + 2 * measures_.label_gap + measures_.shift;
  }

  // As many words as fit, with room for the labels of their arcs.
  void fill_line(std::size_t first) {
    const std::size_t line = arcs_.lines.size();
    std::size_t end = first;
    int right = 0;
    for (; end < count(); ++end) {
      const int x = place(first, end, end == first ? 0 : right + measures_.gap);
      right = x - measures_.words[end] / 2 + measures_.words[end];
      if (end > first && right > measures_.line) break;
      arcs_.words[end] = {line, x};
    }
    while (end > first + 1 && right_of(first, end) > measures_.line) --end;
    arcs_.lines.push_back({first, end - 1, 0});
    arcs_.width = std::max(arcs_.width, right_of(first, end));
  }

  /// The middle of word i on the line that starts with `first`, if its left end is not before
  /// `left`.
  int place(std::size_t first, std::size_t i, int left) const {
    int x = left + measures_.words[i] / 2;
    const std::size_t head = head_of(i);
    if (sentence_.words[i].head == 0) x = std::max(x, measures_.labels[i] / 2);
    if (head < first) x = std::max(x, room_for_label(i));
    if (head >= first && head < i) x = std::max(x, arcs_.words[head].x + room_for_label(i));
    for (int below : dependents_[i + 1]) {
      const auto one = static_cast<std::size_t>(below) - 1;
      if (one >= i) break;
      if (one >= first) x = std::max(x, arcs_.words[one].x + room_for_label(one));
    }
    return x;
  }

  /// Where the line of these words ends, with the labels of arcs that leave it there.
  int right_of(std::size_t first, std::size_t end) const {
    const int last = measures_.words[end - 1];
    int right = arcs_.words[end - 1].x - last / 2 + last;
    for (std::size_t i = first; i < end; ++i) {
      const std::size_t head = head_of(i);
      if (head >= end && head < count())
        right = std::max(right, arcs_.words[i].x + room_for_label(i));
      if (sentence_.words[i].head == 0)
        right = std::max(right, arcs_.words[i].x + (measures_.labels[i] + 1) / 2);
    }
    return right;
  }

  void add_arc(std::size_t i) {
    const ArcWord& word = arcs_.words[i];
    const std::size_t head = head_of(i);
    ArcPiece piece;
    piece.line = word.line;
    piece.left = piece.right = word.x;
    piece.dependent = static_cast<int>(i) + 1;
    if (head == count()) {
      piece.is_root = true;
      if (sentence_.words[i].head != 0) return;
    } else if (head < i) {
      piece.comes_from_left = arcs_.words[head].line != word.line;
      piece.left = piece.comes_from_left ? 0 : arcs_.words[head].x + measures_.shift;
    } else {
      piece.ends_left = true;
      piece.goes_on = arcs_.words[head].line != word.line;
      piece.right = piece.goes_on ? arcs_.width : arcs_.words[head].x - measures_.shift;
    }
    arcs_.pieces.push_back(piece);
  }

  /// What leaves the line of a head on its way to dependents on others.
  void add_trunks(std::size_t head) {
    const std::vector<int>& below = dependents_[head + 1];
    if (below.empty()) return;
    const ArcWord& word = arcs_.words[head];
    auto line_of = [&](int i) { return arcs_.words[static_cast<std::size_t>(i) - 1].line; };
    if (const std::size_t first = line_of(below.front()); first < word.line) {
      add_trunk(word.line, 0, word.x - measures_.shift, true, false);
      add_passing(first, word.line);
    }
    if (const std::size_t last = line_of(below.back()); last > word.line) {
      add_trunk(word.line, word.x + measures_.shift, arcs_.width, false, true);
      add_passing(word.line, last);
    }
  }

  void add_trunk(std::size_t line, int left, int right, bool comes_from_left, bool goes_on) {
    ArcPiece piece;
    piece.line = line;
    piece.left = left;
    piece.right = right;
    piece.comes_from_left = comes_from_left;
    piece.goes_on = goes_on;
    arcs_.pieces.push_back(piece);
  }

  void add_passing(std::size_t from, std::size_t to) {
    if (to - from > kMostPassed + 1) return;
    for (std::size_t line = from + 1; line < to; ++line)
      add_trunk(line, 0, arcs_.width, true, true);
  }

  // Shorter arcs lie below longer ones.
  void set_levels(Pieces from, Pieces to, ArcLine& line) const {
    auto left_of = [this](const ArcPiece& piece) {
      return piece.is_root ? piece.left - label_of(piece) / 2
                           : piece.left - (piece.comes_from_left ? 1 : 0);
    };
    auto right_of = [this](const ArcPiece& piece) {
      return piece.is_root ? piece.right + (label_of(piece) + 1) / 2
                           : piece.right + (piece.goes_on ? 1 : 0);
    };
    auto length_of = [](const ArcPiece& piece) {
      return piece.right - piece.left + (piece.comes_from_left ? 1 : 0) + (piece.goes_on ? 1 : 0);
    };
    std::stable_sort(from, to, [&](const ArcPiece& a, const ArcPiece& b) {
      if (a.is_root != b.is_root) return b.is_root;
      return length_of(a) < length_of(b);
    });
    for (auto one = from; one != to; ++one) {
      int level = 0;
      for (auto lower = from; lower != one; ++lower)
        if (left_of(*lower) < right_of(*one) && left_of(*one) < right_of(*lower))
          level = std::max(level, lower->level);
      one->level = level + 1;
      line.levels = std::max(line.levels, one->level);
    }
  }

  int label_of(const ArcPiece& piece) const {
    return measures_.labels[static_cast<std::size_t>(piece.dependent) - 1] + 2;
  }

  const Sentence& sentence_;
  const ArcMeasures& measures_;
  const std::vector<std::vector<int>> dependents_;
  ArcLayout arcs_;
};

}  // namespace

ArcLayout lay_out_arcs(const Sentence& sentence, const ArcMeasures& measures) {
  return Layout(sentence, measures).run();
}

}  // namespace torvane
