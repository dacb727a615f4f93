// JSON: one object a sentence, on a line of its own.
#include <cstddef>

#include "formats/format.h"
#include "formats/json_string.h"
#include "formats/layout.h"
#include "text/utf8.h"

namespace torvane {
namespace {

void add_text(std::string& out, const char* name, std::string_view text) {
  if (text.empty()) return;
  out += ",\"";
  out += name;
  out += "\":";
  add_json_string(out, text);
}

void add_number(std::string& out, const char* name, std::size_t number) {
  out += ",\"";
  out += name;
  out += "\":";
  out += std::to_string(number);
}

void add_ranges(std::string& out, const std::vector<WordRange>& ranges) {
  if (ranges.empty()) return;
  out += ",\"ranges\":";
  char before = '[';
  for (const WordRange& range : ranges) {
    out += before;
    out += "{\"first\":" + std::to_string(range.first);
    add_number(out, "last", static_cast<std::size_t>(range.last));
    add_text(out, "form", range.form);
    out += '}';
    before = ',';
  }
  out += ']';
}

}  // namespace

void write_json(std::string& out, const Sentence& sentence, const Page&) {
  out += "{\"text\":";
  add_json_string(out, sentence.text);
  add_text(out, "id", sentence.id);
  add_number(out, "parts", static_cast<std::size_t>(sentence.parts));
  add_text(out, "cut", sentence.cut);
  if (sentence.best > 0) add_number(out, "best", static_cast<std::size_t>(sentence.best));
  if (sentence.cost) out += ",\"cost\":" + cost_text(*sentence.cost);
  out += ",\"words\":[";
  std::size_t id = 0, byte = 0, character = 0;
  auto character_at = [&](std::size_t to) {
    if (to > byte) character += utf8_count(std::string_view(sentence.text).substr(byte, to - byte));
    byte = to;
    return character;
  };
  for (const SentenceWord& word : sentence.words) {
    out += id == 0 ? "{\"id\":" : ",{\"id\":";
    out += std::to_string(++id);
    add_text(out, "form", word.form);
    add_text(out, "lemma", word.lemma);
    add_text(out, "upos", word.upos);
    add_text(out, "xpos", word.xpos);
    add_text(out, "feats", word.features);
    if (word.head >= 0) add_number(out, "head", static_cast<std::size_t>(word.head));
    add_text(out, "deprel", word.relation);
    add_number(out, "start", character_at(word.begin));
    add_number(out, "end", character_at(word.end));
    if (word.outside) out += ",\"outside\":true";
    if (word.part) out += ",\"part\":true";
    out += '}';
  }
  out += ']';
  add_ranges(out, sentence.ranges);
  out += "}\n";
}

}  // namespace torvane
