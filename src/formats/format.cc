#include "formats/format.h"

namespace torvane {
namespace {

constexpr Format kFormats[] = {
    {"conllu", "CoNLL-U, ten columns a word", write_conllu},
    {"json", "one object a line", write_json},
    {"table", "position, word, category and head, a line a word", write_table},
    {"deps", "tree text, to be read back", write_deps},
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
