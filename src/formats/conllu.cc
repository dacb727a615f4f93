// CoNLL-U: comments, then a line of ten columns for each word, then an empty line.
#include <cstddef>

#include "formats/format.h"
#include "formats/layout.h"

namespace torvane {
namespace {

/// A column must not be empty, and nothing in it may end it.
void add_column(std::string& out, std::string_view text) {
  if (text.empty()) {
    out += '_';
  } else {
    for (char c : text) out += c == '\t' || c == '\n' || c == '\r' ? ' ' : c;
  }
}

/// Of what must not hold a blank either.
void add_name(std::string& out, std::string_view text) {
  if (text.empty()) {
    out += '_';
  } else {
    for (char c : text) out += c == ' ' || c == '\t' || c == '\n' || c == '\r' ? '_' : c;
  }
}

void add_comment(std::string& out, std::string_view name, std::string_view text) {
  out += "# ";
  out += name;
  out += " = ";
  for (char c : text) out += c == '\n' || c == '\r' || c == '\t' ? ' ' : c;
  out += '\n';
}

void add_note(std::string& notes, std::string_view note) {
  if (note.empty()) return;
  if (!notes.empty()) notes += '|';
  notes += note;
}

std::string notes_of(const SentenceWord& word) {
  std::string notes;
  if (!word.space_after) add_note(notes, "SpaceAfter=No");
  if (word.outside) add_note(notes, "Torvane=outside");
  if (word.part) add_note(notes, "Torvane=part");
  add_note(notes, word.misc);
  return notes;
}

void add_range(std::string& out, const WordRange& range) {
  out += std::to_string(range.first) + '-' + std::to_string(range.last) + '\t';
  add_column(out, range.form);
  out += "\t_\t_\t_\t_\t_\t_\t_\t";
  add_column(out, range.misc);
  out += '\n';
}

void add_word(std::string& out, const SentenceWord& word, std::size_t number) {
  out += std::to_string(number);
  out += '\t';
  add_column(out, word.form);
  out += '\t';
  add_column(out, word.lemma);
  for (const std::string* name : {&word.upos, &word.xpos, &word.features}) {
    out += '\t';
    add_name(out, *name);
  }
  out += '\t' + (word.head < 0 ? std::string("_") : std::to_string(word.head)) + '\t';
  add_name(out, word.relation);
  out += "\t_\t";
  add_column(out, notes_of(word));
  out += '\n';
}

}  // namespace

void write_conllu(std::string& out, const Sentence& sentence) {
  if (sentence.words.empty()) return;
  if (sentence.best > 0) {
    add_comment(out, "best", std::to_string(sentence.best));
    if (sentence.cost) add_comment(out, "cost", cost_text(*sentence.cost));
  }
  for (const std::string& comment : sentence.comments) {
    out += comment;
    out += '\n';
  }
  if (sentence.starts_paragraph) out += "# newpar\n";
  if (!sentence.id.empty()) add_comment(out, "sent_id", sentence.id);
  add_comment(out, "text", sentence.text);
  if (sentence.parts != 1) add_comment(out, "parts", std::to_string(sentence.parts));
  if (!sentence.cut.empty()) add_comment(out, "cut", sentence.cut);
  std::size_t number = 0;
  auto range = sentence.ranges.begin();
  for (const SentenceWord& word : sentence.words) {
    ++number;
    if (range != sentence.ranges.end() && static_cast<std::size_t>(range->first) == number)
      add_range(out, *range++);
    add_word(out, word, number);
  }
  out += '\n';
}

}  // namespace torvane
