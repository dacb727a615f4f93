// A page that holds its drawings, to be read without a script and without anything from outside.
#include "formats/markup.h"
#include "formats/svg.h"

namespace torvane {
namespace {

constexpr const char* kPageStyle = R"(:root { color-scheme: light dark; }
body { margin: 0 auto; max-width: 72rem; padding: 1rem 1.5rem 4rem; background: #ffffff; color: #1c2026; font-family: system-ui, "Noto Sans", sans-serif; }
figure { margin: 0; padding: 1.2rem 0; border-bottom: 1px solid #d8dce2; }
figcaption { line-height: 1.5; overflow-wrap: anywhere; }
figcaption a { color: #69707a; text-decoration: none; margin-inline-end: .6em; }
.note { color: #9c4413; font-size: .85em; margin-inline-start: .6em; }
.drawing { overflow-x: auto; }
@media (prefers-color-scheme: dark) {
body { background: #15181d; color: #e8eaed; }
figure { border-color: #343a43; }
figcaption a { color: #9aa3ae; }
.note { color: #f0a878; }
}
@media print { figure { break-inside: avoid; } }
)";

void add_note(std::string& out, const std::string& note) {
  out += " <span class=\"note\">";
  add_escaped(out, note);
  out += "</span>";
}

}  // namespace

void begin_html(std::string& out) {
  out +=
      "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width\">\n<title>Trees</title>\n<style>\n";
  out += kPageStyle;
  out += svg_style();
  out += "</style>\n</head>\n<body>\n";
}

void write_html(std::string& out, const Sentence& sentence, const Page& page) {
  if (sentence.words.empty()) return;
  out += "<figure id=\"s";
  add_escaped(out, sentence.id);
  out += "\">\n<figcaption><a href=\"#s";
  add_escaped(out, sentence.id);
  out += "\">";
  add_escaped(out, sentence.id);
  out += "</a><bdi>";
  add_escaped(out, sentence.text);
  out += "</bdi>";
  if (sentence.parts > 1) add_note(out, std::to_string(sentence.parts) + " parts");
  if (!sentence.cut.empty()) add_note(out, "cut: " + sentence.cut);
  out += "</figcaption>\n<div class=\"drawing\">\n";
  add_svg(out, sentence, page, false);
  out += "</div>\n</figure>\n";
}

void end_html(std::string& out) {
  out += "</body>\n</html>\n";
}

}  // namespace torvane
