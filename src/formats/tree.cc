// A drawing for the terminal: a line a word in the order of the text, the branches to its left, its
// relation and category to its right.
#include <algorithm>
#include <cstddef>

#include "formats/format.h"
#include "formats/layout.h"
#include "text/utf8.h"

namespace torvane {
namespace {

// What a cell of the picture has lines to.
enum Line : unsigned char { kUp = 1, kDown = 2, kLeft = 4, kRight = 8 };

const char* sign_of(unsigned char lines) {
  switch (lines) {
    case 0:
      return " ";
    case kUp | kDown:
      return "│";
    case kUp | kRight:
      return "└";
    case kDown | kRight:
      return "┌";
    case kUp | kDown | kRight:
      return "├";
    case kLeft | kRight:
      return "─";
    case kUp | kLeft:
      return "┘";
    case kDown | kLeft:
      return "┐";
    case kUp | kDown | kLeft:
      return "┤";
    case kUp | kLeft | kRight:
      return "┴";
    case kDown | kLeft | kRight:
      return "┬";
    case kUp | kDown | kLeft | kRight:
      return "┼";
    default:
      return "─";
  }
}

/// Each head has a column, farther left the higher it stands; its arm leads down and up to the rows
/// of its dependents.
class Drawing {
 public:
  explicit Drawing(const Sentence& sentence)
      : sentence_(sentence), dependents_(dependents_of(sentence)), depth_(dependents_.size()) {
    measure();
    cells_.assign(sentence.words.size() * width_, 0);
    for (std::size_t head = 0; head < dependents_.size(); ++head) draw_arm(head);
  }

  void write(std::string& out) const {
    std::size_t form = 0, relation = 0;
    for (const SentenceWord& word : sentence_.words) {
      form = std::max(form, utf8_count(word.form));
      relation = std::max(relation, utf8_count(word.relation));
    }
    for (std::size_t i = 0; i < sentence_.words.size(); ++i) {
      const SentenceWord& word = sentence_.words[i];
      for (std::size_t x = 0; x < width_; ++x) out += sign_of(cells_[i * width_ + x]);
      out += ' ';
      add_padded(out, word.form, form);
      add_padded(out, word.relation, relation);
      out += word.upos.empty() ? word.xpos : word.upos;
      while (out.back() == ' ') out.pop_back();
      out += '\n';
    }
    out += '\n';
  }

 private:
  static void add_padded(std::string& out, std::string_view text, std::size_t width) {
    for (char c : text) out += static_cast<unsigned char>(c) < 32 ? ' ' : c;
    out.append(width + 2 - utf8_count(text), ' ');
  }

  void measure() {
    std::size_t deepest = 0;
    std::vector<int> waiting(dependents_[0]);
    while (!waiting.empty()) {
      const auto at = static_cast<std::size_t>(waiting.back());
      waiting.pop_back();
      for (int below : dependents_[at]) {
        depth_[static_cast<std::size_t>(below)] = depth_[at] + 1;
        waiting.push_back(below);
      }
      deepest = std::max(deepest, depth_[at]);
    }
    width_ = 2 * deepest + 2;
  }

  unsigned char& cell(std::size_t row, std::size_t x) { return cells_[row * width_ + x]; }

  // The arm of a head stands in the column of its own depth; a dependent's line leads right from
  // there to its word.
  void draw_arm(std::size_t head) {
    const std::vector<int>& below = dependents_[head];
    if (below.empty()) return;
    if (head == 0) {
      for (int root : below) draw_line(static_cast<std::size_t>(root) - 1, 0);
      return;
    }
    const std::size_t x = 2 * depth_[head] + 1;
    const std::size_t own = head - 1;
    const std::size_t top = std::min(own, static_cast<std::size_t>(below.front()) - 1);
    const std::size_t bottom = std::max(own, static_cast<std::size_t>(below.back()) - 1);
    for (std::size_t row = top; row <= bottom; ++row) {
      if (row > top) cell(row, x) |= kUp;
      if (row < bottom) cell(row, x) |= kDown;
    }
    cell(own, x) |= kLeft;
    for (int one : below) draw_line(static_cast<std::size_t>(one) - 1, x);
  }

  void draw_line(std::size_t row, std::size_t from) {
    cell(row, from) |= kRight;
    for (std::size_t x = from + 1; x < width_; ++x) cell(row, x) |= kLeft | kRight;
  }

  const Sentence& sentence_;
  std::vector<std::vector<int>> dependents_;
  std::vector<std::size_t> depth_;
  std::size_t width_ = 0;
  std::vector<unsigned char> cells_;
};

}  // namespace

void write_tree(std::string& out, const Sentence& sentence) {
  if (sentence.best > 0) {
    out += std::to_string(sentence.best) + ':';
    if (sentence.cost) out += " cost " + cost_text(*sentence.cost);
    out += '\n';
  }
  if (!sentence.words.empty()) Drawing(sentence).write(out);
}

}  // namespace torvane
