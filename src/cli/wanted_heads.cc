#include "cli/wanted_heads.h"

#include <algorithm>
#include <map>

#include "support/nearest.h"
#include "support/text.h"
#include "text/letter_case.h"

namespace torvane {
namespace {

constexpr std::string_view kTop = "*";

std::vector<std::string> parts(std::string_view text, char separator) {
  std::vector<std::string> found;
  while (true) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (end > 0) found.emplace_back(text.substr(0, end));
    if (end == text.size()) return found;
    text.remove_prefix(end + 1);
  }
}

/// The names of a sentence's words, in their order.
std::vector<std::string> names_of(const Sentence& sentence) {
  std::vector<std::string> names;
  std::map<std::string, int> seen;
  for (const SentenceWord& word : sentence.words) {
    std::string name = small_letters(word.form);
    const int n = ++seen[name];
    if (n > 1) name += '.' + std::to_string(n);
    names.push_back(std::move(name));
  }
  return names;
}

std::string head_of(const Sentence& sentence, const std::vector<std::string>& names,
                    std::size_t word) {
  const SentenceWord& found = sentence.words[word];
  if (found.outside) return "none: no tree has the word";
  if (found.head <= 0 || found.part) return std::string(kTop);
  return names[static_cast<std::size_t>(found.head) - 1];
}

WantedHead read_wanted_head(const std::string& written) {
  // A word may be the sign itself.
  const std::size_t sign = written.find('>', 1);
  if (sign == written.npos || sign + 1 == written.size()) return {written, {}, {}};
  WantedHead wanted{written, small_letters(written.substr(0, sign)), {}};
  for (const std::string& head : parts(std::string_view(written).substr(sign + 1), '|'))
    wanted.heads.push_back(small_letters(head));
  return wanted;
}

}  // namespace

WantedTree read_wanted_tree(std::string_view line) {
  WantedTree tree;
  const std::size_t tab = line.find('\t');
  tree.sentence = line.substr(0, tab);
  if (tab == line.npos) {
    tree.fault = "no tab between the sentence and the heads of its words";
    return tree;
  }
  std::string heads(line.substr(tab + 1));
  std::replace_if(heads.begin(), heads.end(), is_space, ' ');
  for (const std::string& written : parts(heads, ' ')) {
    tree.heads.push_back(read_wanted_head(written));
    if (tree.heads.back().heads.empty() && tree.fault.empty())
      tree.fault = written + " is not WORD>HEAD";
  }
  if (tree.heads.empty()) tree.fault = "no heads are wanted";
  return tree;
}

std::vector<std::string> wrong_heads(const Sentence& sentence, const WantedTree& wanted) {
  const std::vector<std::string> names = names_of(sentence);
  std::vector<std::string> wrong;
  for (const WantedHead& head : wanted.heads) {
    const auto word =
        static_cast<std::size_t>(std::find(names.begin(), names.end(), head.word) - names.begin());
    if (word == names.size()) continue;
    const std::string found = head_of(sentence, names, word);
    if (std::find(head.heads.begin(), head.heads.end(), found) == head.heads.end())
      wrong.push_back(head.written + ": the head is " + found);
  }
  return wrong;
}

std::string unknown_words(const Sentence& sentence, const WantedTree& wanted) {
  const std::vector<std::string> names = names_of(sentence);
  auto is_known = [&](const std::string& name) {
    return name == kTop || std::find(names.begin(), names.end(), name) != names.end();
  };
  std::string fault;
  auto look_for = [&](const std::string& name, const std::string& written) {
    if (fault.empty() && !is_known(name))
      fault = written + ": the sentence has no word " + name + hint_for(name, names);
  };
  for (const WantedHead& head : wanted.heads) {
    look_for(head.word, head.written);
    for (const std::string& name : head.heads) look_for(name, head.written);
  }
  return fault;
}

}  // namespace torvane
