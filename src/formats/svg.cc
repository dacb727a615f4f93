#include "formats/svg.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "formats/arc_layout.h"
#include "formats/markup.h"
#include "text/display.h"

namespace torvane {
namespace {

// Pixels.
constexpr int kCharacter = 9;  // of a line's width
constexpr int kWordSize = 16, kLabelSize = 11, kTagSize = 10;
constexpr int kMargin = 16, kLevel = 20, kArrow = 6, kCorner = 6, kWordBelow = 18, kTagBelow = 33,
              kLineBelow = 24;
constexpr std::size_t kLongestWord = 60, kLongestLabel = 30;  // characters

/// The width of a text in a common face, a little more rather than less.
int width_of(std::string_view text, int size) {
  int thousandths = 0;
  std::size_t others = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (static_cast<unsigned char>(c) >= 128) {
      const std::size_t from = at;
      while (at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) >= 128) ++at;
      others += display_width(text.substr(from, at + 1 - from));
    } else if (std::string_view("ijl.,;:'|!I ").find(c) != std::string_view::npos) {
      thousandths += 300;
    } else if (std::string_view("ftr()[]{}-\"/\\`").find(c) != std::string_view::npos) {
      thousandths += 400;
    } else if (c == 'm' || c == 'w' || c == 'M' || c == 'W' || c == '@' || c == '%') {
      thousandths += 930;
    } else {
      thousandths += c >= 'A' && c <= 'Z' ? 700 : 580;
    }
  }
  return (thousandths * size + 999) / 1000 + static_cast<int>(others) * size * 6 / 10;
}

class SvgDrawing {
 public:
  SvgDrawing(std::string& out, const Sentence& sentence, const Page& page)
      : out_(out), sentence_(sentence), mirrored_(runs_right_to_left(sentence.text)) {
    ArcMeasures measures;
    for (const SentenceWord& word : sentence.words) {
      forms_.push_back(clipped(word.form, kLongestWord));
      labels_.push_back(clipped(word.relation, kLongestLabel));
      tags_.push_back(clipped(word.upos.empty() ? word.xpos : word.upos, kLongestLabel));
      measures.words.push_back(std::max(
          {width_of(forms_.back(), kWordSize), width_of(tags_.back(), kTagSize), 2 * kHeadShift}));
      measures.labels.push_back(width_of(labels_.back(), kLabelSize));
    }
    measures.line = static_cast<int>(std::min<std::size_t>(page.width, 10000)) * kCharacter;
    measures.gap = 14;
    measures.label_gap = 9;
    measures.shift = kHeadShift;
    arcs_ = lay_out_arcs(sentence, measures);
  }

  void write(bool with_style) {
    int height = kMargin;
    for (const ArcLine& line : arcs_.lines) {
      base_.push_back(height + line.levels * kLevel + kLabelSize);
      height = base_.back() + kTagBelow + kLineBelow;
    }
    height += kMargin - kLineBelow;
    const std::string size[] = {std::to_string(arcs_.width + 2 * kMargin), std::to_string(height)};
    out_ += "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"torvane\" width=\"" + size[0] +
            "\" height=\"" + size[1] + "\" viewBox=\"0 0 " + size[0] + ' ' + size[1] + "\">\n";
    if (with_style) {
      out_ += "<style>\n";
      out_ += svg_style();
      out_ += "</style>\n";
    }
    out_ += "<rect class=\"paper\" width=\"100%\" height=\"100%\"/>\n";
    for (const ArcPiece& piece : arcs_.pieces) add_arc(piece);
    for (const ArcPiece& piece : arcs_.pieces)
      if (piece.dependent > 0) add_label(piece);
    for (std::size_t i = 0; i < arcs_.words.size(); ++i) add_word(i);
    out_ += "</svg>\n";
  }

 private:
  static constexpr int kHeadShift = 6;  // from a word's middle to where its arcs start
  static constexpr int kOutward = 8;    // beyond the end of a line, of what goes on

  // Places are in reading direction; on paper they may run from right to left.
  int x_of(int x) const { return kMargin + (mirrored_ ? arcs_.width - x : x); }
  int forward(int length) const { return mirrored_ ? -length : length; }

  const SentenceWord& word(int number) const {
    return sentence_.words[static_cast<std::size_t>(number) - 1];
  }

  void put(std::initializer_list<std::string_view> texts) {
    for (std::string_view text : texts) out_ += text;
  }
  static std::string at(int x, int y) { return std::to_string(x) + ' ' + std::to_string(y); }

  void add_arc(const ArcPiece& piece) {
    const int base = base_[piece.line], top = base - piece.level * kLevel;
    const int left = x_of(piece.left) - forward(piece.comes_from_left ? kOutward : 0);
    const int right = x_of(piece.right) + forward(piece.goes_on ? kOutward : 0);
    const bool arrow_left = piece.dependent > 0 && (piece.ends_left || piece.is_root);
    const bool arrow_right = piece.dependent > 0 && !arrow_left;
    put({"<g class=\"", class_of(piece.dependent), "\">"});
    if (piece.dependent > 0) add_title(piece.dependent);
    const int corner = std::min(kCorner, (piece.right - piece.left) / 2);
    auto foot = [&](bool has_arrow) { return std::to_string(base - (has_arrow ? kArrow : 0)); };
    put({"<path d=\"M"});
    if (piece.is_root) {
      put({at(left, top), "V", foot(true)});
    } else {
      if (piece.comes_from_left) {
        put({at(left, top)});
      } else {
        put({std::to_string(left), " ", foot(arrow_left), "V", std::to_string(top + corner), "Q",
             at(left, top), " ", at(left + forward(corner), top)});
      }
      if (piece.goes_on) {
        put({"H", std::to_string(right)});
      } else {
        put({"H", std::to_string(right - forward(corner)), "Q", at(right, top), " ",
             at(right, top + corner), "V", foot(arrow_right)});
      }
    }
    put({"\"/>"});
    if (piece.dependent > 0) {
      const int tip = arrow_left ? left : right;
      put({"<path class=\"tip\" d=\"M", at(tip - 4, base - kArrow - 2), "L", at(tip, base), "L",
           at(tip + 4, base - kArrow - 2), "Z\"/>"});
    }
    put({"</g>\n"});
  }

  // Above all arcs, also those that cross its own.
  void add_label(const ArcPiece& piece) {
    const auto number = static_cast<std::size_t>(piece.dependent);
    const SentenceWord& one = sentence_.words[number - 1];
    add_text(one.outside || one.part ? "label loose" : "label",
             x_of((piece.left + piece.right) / 2),
             base_[piece.line] - piece.level * kLevel + kLabelSize / 3, labels_[number - 1]);
    put({"\n"});
  }

  const char* class_of(int number) const {
    if (number == 0) return "arc";
    return word(number).outside || word(number).part ? "arc loose" : "arc";
  }

  /// What is shown when one points at an arc: its words.
  void add_title(int number) {
    const SentenceWord& dependent = word(number);
    put({"<title>"});
    if (dependent.head > 0) {
      add_escaped(out_, clipped(word(dependent.head).form, kLongestWord));
      put({" → "});
    }
    add_escaped(out_, forms_[static_cast<std::size_t>(number) - 1]);
    put({"</title>"});
  }

  void add_word(std::size_t i) {
    const SentenceWord& one = sentence_.words[i];
    const int x = x_of(arcs_.words[i].x), base = base_[arcs_.words[i].line];
    put({one.outside ? "<g class=\"word loose\"><title>" : "<g class=\"word\"><title>"});
    for (const std::string* text : {&one.form, &one.lemma, &one.xpos, &one.features}) {
      if (text->empty()) continue;
      if (text != &one.form) put({"\n"});
      add_escaped(out_, clipped(*text, 2 * kLongestWord));
    }
    if (one.outside) put({"\noutside the tree"});
    put({"</title>"});
    add_text("form", x, base + kWordBelow, forms_[i]);
    add_text("tag", x, base + kTagBelow, tags_[i]);
    put({"</g>\n"});
  }

  void add_text(const char* kind, int x, int y, std::string_view text) {
    if (text.empty()) return;
    put({"<text class=\"", kind, "\" x=\"", std::to_string(x), "\" y=\"", std::to_string(y),
         "\">"});
    add_escaped(out_, text);
    put({"</text>"});
  }

  std::string& out_;
  const Sentence& sentence_;
  const bool mirrored_;
  std::vector<std::string> forms_, labels_, tags_;
  ArcLayout arcs_;
  std::vector<int> base_;  // of each line, where the arcs come down
};

}  // namespace

void add_svg(std::string& out, const Sentence& sentence, const Page& page, bool with_style) {
  SvgDrawing(out, sentence, page).write(with_style);
}

const char* svg_style() {
  return R"(.torvane { color-scheme: light dark; font-family: system-ui, "Noto Sans", sans-serif; }
.torvane .paper { fill: #ffffff; }
.torvane text { text-anchor: middle; fill: #1c2026; }
.torvane .form { font-size: 16px; }
.torvane .tag { font-size: 10px; fill: #69707a; }
.torvane .arc path { fill: none; stroke: #5b7fa8; stroke-width: 1.4; }
.torvane .arc .tip { fill: #5b7fa8; stroke: none; }
.torvane .label { font-size: 11px; fill: #2f4b6e; stroke: #ffffff; stroke-width: 5px; stroke-linejoin: round; paint-order: stroke; }
.torvane .loose path { stroke: #b3541e; stroke-dasharray: 4 3; }
.torvane .loose .tip { fill: #b3541e; }
.torvane .label.loose, .torvane .loose text { fill: #9c4413; }
.torvane .arc:hover path { stroke-width: 2.4; }
@media (prefers-color-scheme: dark) {
.torvane .paper { fill: #15181d; }
.torvane text { fill: #e8eaed; }
.torvane .tag { fill: #9aa3ae; }
.torvane .arc path { stroke: #6f97c4; }
.torvane .arc .tip { fill: #6f97c4; }
.torvane .label { fill: #b9d0ec; stroke: #15181d; }
.torvane .loose path { stroke: #e08b55; }
.torvane .loose .tip { fill: #e08b55; }
.torvane .label.loose, .torvane .loose text { fill: #f0a878; }
}
)";
}

void write_svg(std::string& out, const Sentence& sentence, const Page& page) {
  if (!sentence.words.empty()) add_svg(out, sentence, page, true);
}

}  // namespace torvane
