#include "formats/format.h"

namespace torvane {
namespace {

constexpr Format kFormats[] = {
    {"conllu", "CoNLL-U, ten columns a word", write_conllu},
    {"json", "one object a line", write_json},
    {"tree", "a drawing for the terminal", write_tree},
    {"arcs", "a drawing for the terminal, arcs above the words", write_arcs},
    {"table", "position, word, category and head, a line a word", write_table},
    {"deps", "tree text, to be read back", write_deps},
    {"brackets", "a line a sentence, each word in brackets with its dependents", write_brackets},
    {"dot", "a graph for drawing programs", write_dot},
    {"svg", "a drawing a sentence", write_svg},
    {"html", "a page of drawings", write_html, begin_html, end_html},
};

}  // namespace

std::span<const Format> all_formats() {
  return kFormats;
}

const Format* find_format(std::string_view name) {
  for (const Format& format : kFormats)
    if (name == format.name) return &format;
  return nullptr;
}

}  // namespace torvane
