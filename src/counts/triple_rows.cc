#include "counts/triple_rows.h"

#include <algorithm>
#include <string>

#include "support/text.h"

namespace torvane {
namespace {

void add_lower(std::string& key, std::string_view word) {
  for (char c : word) key += lower(c);
}

void count_triple(std::string_view head, std::string_view relation, std::string_view modifier,
                  CountSorter& counts) {
  std::string key;
  add_lower(key, head);
  key.append("\t").append(relation).append("\t");
  add_lower(key, modifier);
  key += '\t';
  counts.add(key, 1);
}

std::string or_blank(const std::string& text) {
  return text.empty() ? "_" : text;
}

}  // namespace

void count_printed_rows(std::string_view printed, CountSorter& counts) {
  for (std::size_t at = 0; at < printed.size();) {
    const std::size_t end = std::min(printed.find('\n', at), printed.size());
    const std::string_view row = printed.substr(at, end - at);
    at = end + 1;
    const std::size_t first = row.find('\t');
    const std::size_t second = first == row.npos ? row.npos : row.find('\t', first + 1);
    if (second == row.npos || row.find('\t', second + 1) != row.npos) continue;
    count_triple(row.substr(first + 1, second - first - 1), row.substr(0, first),
                 row.substr(second + 1), counts);
  }
}

void count_tree(const Sentence& sentence, CountSorter& counts) {
  const auto word_of = [](const SentenceWord& word) {
    return word.lemma.empty() ? word.form : word.lemma;
  };
  for (const SentenceWord& word : sentence.words) {
    if (word.head <= 0) continue;
    const SentenceWord& head = sentence.words[static_cast<std::size_t>(word.head - 1)];
    const std::string relation =
        or_blank(head.upos) + ':' + or_blank(word.relation) + ':' + or_blank(word.upos);
    count_triple(word_of(head), relation, word_of(word), counts);
  }
}

}  // namespace torvane
