// A drawing for the terminal: words on lines, arcs with their relations above them, an arrow at
// each dependent.
#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "formats/arc_layout.h"
#include "formats/box_lines.h"
#include "formats/format.h"
#include "text/display.h"

namespace torvane {
namespace {

constexpr std::size_t kNarrowest = 20;

std::string category_of(const SentenceWord& word) {
  return word.upos.empty() ? word.xpos : word.upos;
}

std::string without_controls(std::string text) {
  for (char& c : text)
    if (static_cast<unsigned char>(c) < 32 || c == 127) c = ' ';
  return text;
}

class ArcDrawing {
 public:
  ArcDrawing(const Sentence& sentence, const Page& page)
      : sentence_(sentence), page_(page), width_(std::max(page.width, kNarrowest)) {
    ArcMeasures measures;
    for (const SentenceWord& word : sentence.words) {
      forms_.push_back(clipped(without_controls(word.form), width_ - 2, page.ascii));
      const std::size_t widest =
          std::max({display_width(forms_.back()), display_width(category_of(word)), kArcsWidth});
      measures.words.push_back(static_cast<int>(widest));
      labels_.push_back(clipped(without_controls(word.relation), width_ / 2 - 3, page.ascii));
      measures.labels.push_back(static_cast<int>(display_width(labels_.back())));
    }
    measures.line = static_cast<int>(width_) - 1;
    measures.gap = 1;
    measures.label_gap = 1;
    measures.shift = 1;
    arcs_ = lay_out_arcs(sentence, measures);
  }

  void write(std::string& out) {
    auto from = arcs_.pieces.cbegin();
    for (std::size_t number = 0; number < arcs_.lines.size(); ++number) {
      const ArcLine& line = arcs_.lines[number];
      const auto to = std::find_if(from, arcs_.pieces.cend(), [number](const ArcPiece& piece) {
        return piece.line != number;
      });
      const auto rows = static_cast<std::size_t>(line.levels) + 1;
      columns_ = static_cast<std::size_t>(arcs_.width) + 1;
      cells_.assign(rows * columns_, 0);
      texts_.assign(rows * columns_, {});
      for (auto piece = from; piece != to; ++piece) draw(*piece, rows - 1);
      for (auto piece = from; piece != to; ++piece) put_label(*piece, rows - 1);
      for (std::size_t row = 0; row < rows; ++row) write_row(out, row);
      write_words(out, line, [this](std::size_t i) { return forms_[i]; });
      write_words(out, line, [this](std::size_t i) { return category_of(sentence_.words[i]); });
      out += '\n';
      from = to;
    }
  }

 private:
  static constexpr std::size_t kArcsWidth = 3;  // an arc down to the word, and one to each side

  unsigned char& cell(std::size_t row, int x) {
    return cells_[row * columns_ + static_cast<std::size_t>(x)];
  }

  // Down from a level to the row of the arrows, which is the last one.
  void draw_down(std::size_t row, int x, std::size_t arrows) {
    cell(row, x) |= kDown;
    for (++row; row < arrows; ++row) cell(row, x) |= kUp | kDown;
    cell(arrows, x) |= kUp | kDown;
  }

  void draw(const ArcPiece& piece, std::size_t arrows) {
    const std::size_t row = arrows - static_cast<std::size_t>(piece.level);
    for (int x = piece.left; x <= piece.right; ++x) {
      if (x > piece.left || piece.comes_from_left) cell(row, x) |= kLeft;
      if (x < piece.right || piece.goes_on) cell(row, x) |= kRight;
    }
    if (!piece.comes_from_left) draw_down(row, piece.left, arrows);
    if (!piece.goes_on) draw_down(row, piece.right, arrows);
    if (piece.dependent == 0) return;
    const int at = piece.is_root || piece.ends_left ? piece.left : piece.right;
    texts_[arrows * columns_ + static_cast<std::size_t>(at)] = page_.ascii ? "v" : "▼";
  }

  void put_label(const ArcPiece& piece, std::size_t arrows) {
    if (piece.dependent == 0) return;
    const std::string& label = labels_[static_cast<std::size_t>(piece.dependent) - 1];
    const auto length = static_cast<int>(display_width(label));
    int from = (piece.left + piece.right - length + 1) / 2;
    from = std::clamp(from, 0, std::max(0, static_cast<int>(columns_) - length));
    const std::size_t row = arrows - static_cast<std::size_t>(piece.level);
    const auto at = row * columns_ + static_cast<std::size_t>(from);
    texts_[at] = label;
    for (std::size_t i = 1; i < static_cast<std::size_t>(length) && from + i < columns_; ++i)
      texts_[at + i] = kCovered;
  }

  void write_row(std::string& out, std::size_t row) const {
    std::string text;
    for (std::size_t x = 0; x < columns_; ++x) {
      const std::string& here = texts_[row * columns_ + x];
      if (here.empty()) {
        add_box(text, cells_[row * columns_ + x], page_.ascii);
      } else if (here != kCovered) {
        text += here;
      }
    }
    add_line(out, text);
  }

  template <class TextOf>
  void write_words(std::string& out, const ArcLine& line, TextOf text_of) const {
    std::string text;
    std::size_t column = 0;
    for (std::size_t i = line.first; i <= line.last; ++i) {
      const std::string word = text_of(i);
      const std::size_t width = display_width(word);
      const auto middle = static_cast<std::size_t>(arcs_.words[i].x);
      const std::size_t begin = std::max(middle - std::min(middle, width / 2), column);
      text.append(begin - column, ' ');
      text += word;
      column = begin + width;
    }
    add_line(out, text);
  }

  static void add_line(std::string& out, const std::string& text) {
    out.append(text, 0, text.find_last_not_of(' ') + 1);
    out += '\n';
  }

  static constexpr const char* kCovered = "\n";  // by a label that starts before

  const Sentence& sentence_;
  const Page& page_;
  std::size_t width_;
  std::vector<std::string> forms_, labels_;
  ArcLayout arcs_;
  std::size_t columns_ = 0;
  std::vector<unsigned char> cells_;
  std::vector<std::string> texts_;  // what covers the lines of a cell
};

}  // namespace

void write_arcs(std::string& out, const Sentence& sentence, const Page& page) {
  if (!sentence.words.empty()) ArcDrawing(sentence, page).write(out);
}

}  // namespace torvane
