#include "formats/conllu_reader.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace torvane {
namespace {

constexpr int kMostWords = 1000000;

/// A number from 0 on, without a sign or zeros in front; -1 for anything else.
int number_of(std::string_view text) {
  int number = -1;
  if (text.empty() || text.front() == '-' || (text.size() > 1 && text.front() == '0')) return -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number <= kMostWords ? number
                                                                                          : -1;
}

std::vector<std::string_view> split(std::string_view line, char at) {
  std::vector<std::string_view> parts;
  for (std::size_t from = 0;;) {
    const std::size_t end = line.find(at, from);
    parts.push_back(line.substr(from, end - from));
    if (end == line.npos) return parts;
    from = end + 1;
  }
}

std::string value_of(std::string_view column) {
  return column == "_" ? std::string() : std::string(column);
}

/// Takes a note off; true if it was there.
bool take_note(std::string& notes, std::string_view note) {
  bool found = false;
  std::string rest;
  for (std::string_view one : split(notes, '|')) {
    if (one == note) {
      found = true;
    } else {
      if (!rest.empty()) rest += '|';
      rest += one;
    }
  }
  if (found) notes = rest;
  return found;
}

}  // namespace

void ConlluReader::start() {
  sentence_ = Sentence();
  sentence_.parts = 1;
  lines_ = fault_line_ = 0;
  word_lines_.clear();
}

void ConlluReader::fail(std::string text, std::size_t line) {
  if (fault_line_ > 0) return;
  fault_line_ = line;
  fault_ = std::move(text);
}

bool ConlluReader::add(std::string_view line) {
  ++lines_;
  if (line.find_first_not_of(" \t") != line.npos) {
    if (line.front() == '#') {
      read_comment(line);
    } else {
      read_row(line);
    }
    return false;
  }
  if (lines_ == 1) {
    start();
    return false;
  }
  if (sentence_.words.empty()) fail("a sentence without words");
  if (fault_line_ == 0) check_heads();
  if (fault_line_ == 0) {
    spell_text();
    return true;
  }
  faults_.push_back({lines_ - fault_line_, fault_});
  start();
  return false;
}

Sentence ConlluReader::take() {
  Sentence sentence = std::move(sentence_);
  start();
  return sentence;
}

std::vector<ReadFault> ConlluReader::take_faults() {
  return std::exchange(faults_, {});
}

void ConlluReader::read_comment(std::string_view line) {
  constexpr std::string_view kId = "# sent_id = ", kText = "# text = ", kParts = "# parts = ",
                             kCut = "# cut = ";
  if (!sentence_.words.empty()) {
    fail("a comment between words");
  } else if (line.starts_with(kId)) {
    sentence_.id = line.substr(kId.size());
  } else if (line.starts_with(kText)) {
    sentence_.text = line.substr(kText.size());
  } else if (line == "# newpar") {
    sentence_.starts_paragraph = true;
  } else if (line.starts_with(kParts)) {
    sentence_.parts = std::max(number_of(line.substr(kParts.size())), 0);
  } else if (line.starts_with(kCut)) {
    sentence_.cut = line.substr(kCut.size());
  } else {
    sentence_.comments.emplace_back(line);
  }
}

void ConlluReader::read_row(std::string_view line) {
  const std::vector<std::string_view> columns = split(line, '\t');
  if (columns.size() != 10) return fail(std::to_string(columns.size()) + " columns, not 10");
  for (std::string_view column : columns)
    if (column.empty()) return fail("an empty column");
  const std::string_view id = columns[0];
  if (id.find('.') != id.npos) return;  // an empty node: no word of the text
  if (id.find('-') != id.npos) return read_range(columns);
  read_word(columns);
}

void ConlluReader::read_word(const std::vector<std::string_view>& columns) {
  const int next = static_cast<int>(sentence_.words.size()) + 1;
  if (number_of(columns[0]) != next)
    return fail("the id " + std::string(columns[0]) + ", not " + std::to_string(next));
  word_lines_.push_back(lines_);
  SentenceWord& word = sentence_.words.emplace_back();
  word.form = columns[1];
  word.lemma = columns[1] == "_" ? std::string(columns[2]) : value_of(columns[2]);
  word.upos = value_of(columns[3]);
  word.xpos = value_of(columns[4]);
  word.features = value_of(columns[5]);
  word.head = columns[6] == "_" ? -1 : number_of(columns[6]);
  if (word.head < 0 && columns[6] != "_") fail("the head " + std::string(columns[6]));
  word.relation = value_of(columns[7]);
  word.misc = value_of(columns[9]);
  word.space_after = !take_note(word.misc, "SpaceAfter=No");
  word.outside = take_note(word.misc, "Torvane=outside");
  word.part = take_note(word.misc, "Torvane=part");
}

void ConlluReader::read_range(const std::vector<std::string_view>& columns) {
  const std::size_t dash = columns[0].find('-');
  const int first = number_of(columns[0].substr(0, dash));
  const int last = number_of(columns[0].substr(dash + 1));
  const bool overlaps = !sentence_.ranges.empty() && sentence_.ranges.back().last >= first;
  if (first != static_cast<int>(sentence_.words.size()) + 1 || last < first || overlaps)
    return fail("the range " + std::string(columns[0]));
  sentence_.ranges.push_back({first, last, std::string(columns[1]), value_of(columns[9])});
}

/// Heads are words of the sentence, and lead to a root.
void ConlluReader::check_heads() {
  const auto count = sentence_.words.size();
  if (!sentence_.ranges.empty() && static_cast<std::size_t>(sentence_.ranges.back().last) > count)
    return fail("a range ends behind the last word");
  for (std::size_t i = 1; i <= count; ++i)
    if (const int head = sentence_.words[i - 1].head; head > static_cast<int>(count))
      return fail("the head " + std::to_string(head) + " of word " + std::to_string(i),
                  word_lines_[i - 1]);
  if (const std::size_t word = find_circle(sentence_.words))
    fail("a circle of heads at word " + std::to_string(word), word_lines_[word - 1]);
}

/// Where the words stand in the text; a text that does not have them is made of them.
void ConlluReader::spell_text() {
  auto range = sentence_.ranges.begin();
  const std::string given = std::move(sentence_.text);
  std::string& text = sentence_.text;
  text.clear();
  const int count = static_cast<int>(sentence_.words.size());
  for (int i = 1; i <= count;) {
    const bool in_range = range != sentence_.ranges.end() && range->first == i;
    const int last = in_range ? range->last : i;
    auto word = [this](int k) -> SentenceWord& {
      return sentence_.words[static_cast<std::size_t>(k - 1)];
    };
    if (in_range) word(last).space_after = !take_note(range->misc, "SpaceAfter=No");
    const bool space = word(last).space_after;
    const std::size_t begin = text.size();
    std::string spelt;
    for (int k = i; k <= last; ++k) {
      word(k).begin = begin + spelt.size();
      spelt += word(k).form;
      word(k).end = begin + spelt.size();
      if (k < last) word(k).space_after = false;
    }
    text += in_range ? range->form : spelt;
    for (int k = i; k <= last && in_range && spelt != range->form; ++k) {
      word(k).begin = begin;
      word(k).end = text.size();
    }
    if (space && last < count) text += ' ';
    if (in_range) ++range;
    i = last + 1;
  }
  if (given == text || given.empty()) return;
  // The text may have other blanks.
  std::size_t at = 0;
  std::vector<std::size_t> place(text.size() + 1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ' ') {
      place[i] = at;
      continue;
    }
    while (at < given.size() && given[at] == ' ') ++at;
    if (at == given.size() || given[at] != text[i]) return;
    place[i] = at++;
  }
  for (SentenceWord& word : sentence_.words) {
    if (word.begin == word.end) continue;
    word.end = place[word.end - 1] + 1;
    word.begin = place[word.begin];
  }
  text = given;
}

}  // namespace torvane
