// A drawing for the terminal: a line a word in the order of the text, the branches to its left, its
// relation and category to its right.
#include <algorithm>
#include <cstddef>

#include "formats/box_lines.h"
#include "formats/format.h"
#include "formats/layout.h"
#include "text/display.h"

namespace torvane {
namespace {

/// What the row of a word says at its end.
const char* mark_of(const SentenceWord& word) {
  return word.outside ? "outside" : word.part ? "part" : "";
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

  void write(std::string& out, const Page& page) const {
    // A narrow page has narrower branches, and at last shortens the words.
    constexpr std::size_t kShortest = 8;
    const std::size_t relation = widest(&SentenceWord::relation);
    const std::size_t rest = 1 + 2 + relation + 2 + kMarkWidth;
    std::size_t form = widest(&SentenceWord::form);
    const bool narrow = width_ + form + rest > page.width;
    const std::size_t branches = narrow ? width_ / 2 + 1 : width_;
    if (branches + form + rest > page.width)
      form =
          std::min(form, std::max(kShortest, page.width - std::min(page.width, branches + rest)));
    for (std::size_t i = 0; i < sentence_.words.size(); ++i) {
      const SentenceWord& word = sentence_.words[i];
      for (std::size_t x = 0; x < width_; ++x)
        if (!narrow || x % 2 == 1 || x == 0) add_box(out, cells_[i * width_ + x], page.ascii);
      out += ' ';
      add_padded(out, clipped(word.form, form, page.ascii), form);
      add_padded(out, word.relation, relation);
      add_padded(out, word.upos.empty() ? word.xpos : word.upos, kCategoryWidth);
      out += mark_of(word);
      while (out.back() == ' ') out.pop_back();
      out += '\n';
    }
    out += '\n';
  }

 private:
  static constexpr std::size_t kCategoryWidth = 5;
  static constexpr std::size_t kMarkWidth = kCategoryWidth + 2;

  std::size_t widest(std::string SentenceWord::*column) const {
    std::size_t width = 0;
    for (const SentenceWord& word : sentence_.words)
      width = std::max(width, display_width(word.*column));
    return width;
  }

  static void add_padded(std::string& out, std::string_view text, std::size_t width) {
    for (char c : text) out += static_cast<unsigned char>(c) < 32 ? ' ' : c;
    out.append(width + 2 - std::min(width, display_width(text)), ' ');
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

void write_tree(std::string& out, const Sentence& sentence, const Page& page) {
  if (sentence.best > 0) {
    out += std::to_string(sentence.best) + ':';
    if (sentence.cost) out += " cost " + cost_text(*sentence.cost);
    out += '\n';
  }
  if (!sentence.words.empty()) Drawing(sentence).write(out, page);
}

}  // namespace torvane
