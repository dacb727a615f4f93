// Explanations as text for a reader.
#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "formats/layout.h"
#include "formats/why_format.h"
#include "text/display.h"

namespace torvane {
namespace {

using Row = std::vector<std::string>;

/// Columns as wide as what they hold, two blanks between them, without blanks at the ends.
void add_table(std::string& out, const std::vector<Row>& rows) {
  std::vector<std::size_t> widths;
  for (const Row& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i)
      widths[i] = std::max(widths[i], display_width(row[i]));
  }
  for (const Row& row : rows) {
    std::string line = "  ";
    for (std::size_t i = 0; i < row.size(); ++i)
      line += row[i] + std::string(widths[i] - display_width(row[i]) + 2, ' ');
    line.erase(line.find_last_not_of(' ') + 1);
    out += line + '\n';
  }
}

std::string word_text(const Sentence& sentence, int word) {
  if (word == 0) return "the root";
  if (word < 0) return "nothing";
  return std::to_string(word) + " " + sentence.words[static_cast<std::size_t>(word - 1)].form;
}

std::string place_text(const WhyPlace& place) {
  if (place.line == 0) return {};
  std::string text = "at " + place.file + ":" + std::to_string(place.line);
  return place.form.empty() ? text : text + ", in " + place.form;
}

void add_reason(std::string& out, const WhyReason& reason, const char* indent) {
  out += indent + reason.text + '\n';
  for (const std::string& detail : reason.details) out.append(indent).append("  ") += detail + '\n';
  if (const std::string place = place_text(reason.place); !place.empty())
    out.append(indent).append("  ") += place + '\n';
}

void add_readings(std::string& out, const Sentence& sentence,
                  const std::vector<WhyReading>& readings) {
  std::vector<Row> rows;
  for (const WhyReading& reading : readings) {
    std::string words;
    for (int i = std::max(reading.first, 1); i <= reading.last; ++i)
      words += (words.empty() ? "" : " ") + sentence.words[static_cast<std::size_t>(i - 1)].form;
    std::string note;
    if (reading.lost) {
      note = reading.lost_by.empty() ? "dropped" : "dropped by the rule " + reading.lost_by;
      if (const std::string place = place_text(reading.place); !place.empty()) note += " " + place;
    }
    rows.push_back({words, reading.category.empty() ? "-" : reading.category, reading.root,
                    reading.attributes, note});
  }
  add_table(out, rows);
}

std::string row_text(const Sentence& sentence, const WhyCost& row) {
  std::string text = word_text(sentence, row.word);
  if (row.head > 0) text += " <- " + word_text(sentence, row.head);
  return text;
}

/// What the two tables share stands once; what differs is marked.
void add_costs(std::string& out, const Sentence& sentence, const WhyCosts& chosen,
               const WhyCosts& wanted) {
  std::vector<Row> rows{{"", "dependency", "relation", "chosen", "with it"}};
  std::vector<bool> used(wanted.rows.size());
  std::vector<std::pair<int, Row>> by_word;
  for (const WhyCost& row : chosen.rows) {
    Row told{" ", row_text(sentence, row), row.relation, cost_text(row.cost), "-"};
    for (std::size_t i = 0; i < wanted.rows.size(); ++i) {
      const WhyCost& other = wanted.rows[i];
      if (used[i] || other.word != row.word || other.head != row.head ||
          other.relation != row.relation)
        continue;
      used[i] = true;
      told[4] = cost_text(other.cost);
      break;
    }
    if (told[3] != told[4]) told[0] = "*";
    by_word.emplace_back(row.word, std::move(told));
  }
  for (std::size_t i = 0; i < wanted.rows.size(); ++i) {
    const WhyCost& row = wanted.rows[i];
    if (!used[i])
      by_word.emplace_back(
          row.word, Row{"*", row_text(sentence, row), row.relation, "-", cost_text(row.cost)});
  }
  std::stable_sort(by_word.begin(), by_word.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (auto& [word, row] : by_word) rows.push_back(std::move(row));
  rows.push_back({"", "together", "", cost_text(chosen.total), cost_text(wanted.total)});
  add_table(out, rows);
}

}  // namespace

void write_why_text(std::string& out, const WhyPair& why, std::size_t most_links) {
  if (!why.fault.empty()) {
    out += why.fault + '\n';
    return;
  }
  const Sentence& sentence = why.sentence;
  out += "Why is " + word_text(sentence, why.modifier) + " not " +
         (why.head == 0 ? "the root" : "under " + word_text(sentence, why.head)) + "?\n";
  add_reason(out, why.answer, "  ");
  if (why.own != why.head || why.shown != why.own) {
    out += "  it is under " + word_text(sentence, why.own);
    if (why.shown != why.own)
      out += "; the tree rules show it under " + word_text(sentence, why.shown);
    out += '\n';
  }
  for (const auto& [word, readings] :
       {std::pair{why.modifier, &why.modifier_readings}, std::pair{why.head, &why.head_readings}}) {
    if (word == 0) continue;
    out += "\nReadings of " + word_text(sentence, word) + ":\n";
    add_readings(out, sentence, *readings);
  }
  if (!why.links.empty()) out += "\nLinks that could join them, those that came furthest first:\n";
  std::size_t told = 0;
  for (const WhyLink& link : why.links) {
    if (most_links > 0 && told == most_links) {
      out += "  and " + std::to_string(why.links.size() - told) + " more (--all)\n";
      break;
    }
    ++told;
    out += "  " + link.child + (link.relation.empty() ? "" : " as " + link.relation) + " " +
           (link.before ? "before " : "behind ") + link.parent;
    if (const std::string place = place_text(link.place); !place.empty()) out += "  " + place;
    out += '\n';
    WhyReason reason = link.reason;
    if (reason.place.line == link.place.line && reason.place.file == link.place.file)
      reason.place = {};
    add_reason(out, reason, "    ");
  }
  if (why.dearer && why.own != why.head) {
    out += "\nWhat the two trees cost:\n";
    add_costs(out, sentence, why.chosen, why.wanted);
  }
}

void write_why_text(std::string& out, const WhyTree& why) {
  if (!why.fault.empty()) {
    out += why.fault + '\n';
    return;
  }
  std::vector<Row> rows{{"word", "head", "relation", "cost", "else", "dearer by"}};
  for (std::size_t i = 0; i < why.words.size(); ++i) {
    const WhyWord& word = why.words[i];
    Row row{word_text(why.sentence, static_cast<int>(i) + 1)};
    if (word.head < 0) {
      row.insert(row.end(), {"-", "", "", "", ""});
    } else {
      row.insert(row.end(),
                 {word_text(why.sentence, word.head), word.relation, cost_text(word.cost)});
      if (word.dearer)
        row.insert(row.end(), {word_text(why.sentence, word.other_head) +
                                   (word.other_head > 0 && !word.other_relation.empty()
                                        ? " (" + word.other_relation + ")"
                                        : ""),
                               cost_text(*word.dearer)});
      else
        row.insert(row.end(), {"nothing", ""});
    }
    rows.push_back(std::move(row));
  }
  add_table(out, rows);
  float rest = 0;
  for (const WhyCost& row : why.costs.rows)
    if (row.relation.empty()) rest += row.cost;
  out += "  the words by themselves " + cost_text(rest) + ", together " +
         cost_text(why.costs.total) + '\n';
}

}  // namespace torvane
