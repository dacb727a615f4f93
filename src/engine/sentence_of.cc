#include "engine/sentence_of.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "support/text.h"

namespace torvane {
namespace {

constexpr const char* kRoot = "root";
constexpr const char* kUnknown = "dep";

/// A word of the sentence under way. Numbers are from 1, as heads are.
struct Place {
  DepTree* node = nullptr;  ///< null: outside all trees
  int depth = 0;            ///< of the node
  int head = 0;
  int low = 0, high = 0;  ///< what the word spans with all that is below it
};

class Assembly {
 public:
  Assembly(const Deps& deps, const Labels& labels, Sentence& sentence, std::vector<int> word_of)
      : deps_(deps),
        labels_(labels),
        sentence_(sentence),
        word_of_(std::move(word_of)),
        places_(sentence.words.size() + 1) {}

  void run() {
    if (sentence_.words.empty()) return;
    if (deps_._root) take_nodes(*deps_._root);
    find_heads();
    find_spans();
    join_parts();
    for (int i = 1; i <= count(); ++i)
      if (!place(i).node) take_outside(i);
    write();
  }

 private:
  int count() const { return static_cast<int>(sentence_.words.size()); }
  Place& place(int i) { return places_[static_cast<std::size_t>(i)]; }
  SentenceWord& word(int i) { return sentence_.words[static_cast<std::size_t>(i - 1)]; }
  int word_at(int position) const {
    return position > 0 && static_cast<std::size_t>(position) < word_of_.size()
               ? word_of_[static_cast<std::size_t>(position)]
               : 0;
  }

  // Where a given word was cut, its node is the one nearest to the top: so heads form no circle.
  void take_nodes(DepTree& top) {
    std::vector<std::pair<DepTree*, int>> waiting{{&top, 0}};
    while (!waiting.empty()) {
      DepTree* node = waiting.back().first;
      const int depth = waiting.back().second;
      waiting.pop_back();
      if (int i = word_at(node->_pos); i > 0) {
        Place& here = place(i);
        if (!here.node || depth < here.depth) {
          here.node = node;
          here.depth = depth;
        }
      }
      node->for_each_child([&](DepTree* child) { waiting.emplace_back(child, depth + 1); });
    }
  }

  void find_heads() {
    for (int i = 1; i <= count(); ++i) {
      if (!place(i).node) continue;
      for (DepTree* up = place(i).node->parent(); up && !place(i).head; up = up->parent())
        if (int head = word_at(up->_pos); head != i) place(i).head = head;
    }
  }

  void find_spans() {
    for (int i = 1; i <= count(); ++i) place(i).low = place(i).high = i;
    for (int i = 1; i <= count(); ++i)
      for (int up = place(i).head; up > 0; up = place(up).head) {
        place(up).low = std::min(place(up).low, place(i).low);
        place(up).high = std::max(place(up).high, place(i).high);
      }
  }

  // Of several trees the grammar may call the top of one the root, and then the others have
  // relations to it; else the one with the most words gives the root.
  void join_parts() {
    std::vector<int> size(places_.size());
    int tops = 0, top = 0;
    for (int i = 1; i <= count(); ++i)
      for (int up = i; up > 0 && place(i).node; up = place(up).head)
        ++size[static_cast<std::size_t>(up)];
    for (int i = 1; i <= count(); ++i) {
      if (!place(i).node || place(i).head) continue;
      ++sentence_.parts;
      if (labels_.relation(*place(i).node) == kRoot) {
        ++tops;
        top = i;
      }
      if (root_ == 0 || size[static_cast<std::size_t>(i)] > size[static_cast<std::size_t>(root_)])
        root_ = i;
    }
    if (tops == 1) root_ = top;
    for (int i = 1; i <= count(); ++i)
      if (place(i).node && !place(i).head && i != root_) word(i).part = true;
    if (root_ == 0) {
      for (int i = 1; i <= count() && root_ == 0; ++i)
        if (labels_.outside_relation(word(i).form) != "punct") root_ = i;
      root_ = std::max(root_, 1);
    }
  }

  /// The highest word above the nearest one in a tree on that side whose span does not pass `i`; 0
  /// if there is none.
  int neighbour(int i, int step) {
    int at = i + step;
    while (at > 0 && at <= count() && !place(at).node) at += step;
    if (at <= 0 || at > count()) return 0;
    auto stays = [&](int up) { return step < 0 ? place(up).high < i : place(up).low > i; };
    while (place(at).head > 0 && stays(place(at).head)) at = place(at).head;
    return at;
  }

  // A sign between two phrases belongs to the one that depends on the other: to what stands before
  // its head, else to what follows.
  void take_outside(int i) {
    if (i == root_) return;
    const int left = neighbour(i, -1), right = neighbour(i, 1);
    const std::string& form = word(i).form;
    const bool is_quote = form == "\"";
    int head = root_;
    if ((is_quote || is_one_of(form, kClosing)) && !opened_.empty() &&
        (word(opened_.back()).form == "\"") == is_quote) {
      head = place(opened_.back()).head;  // a pair has one head
      opened_.pop_back();
    } else if (left == 0 || right == 0) {
      head = left + right > 0 ? left + right : root_;
    } else if (is_quote || is_one_of(form, kOpening)) {
      head = right;
      opened_.push_back(i);
    } else if (place(right).head == left) {
      head = right;
    } else if (place(left).head > i) {
      head = left;
    } else if (place(right).head > 0 && place(right).head < i) {
      head = right;
    } else {
      head = place(right).head == 0 && right != root_ ? right : left;
    }
    place(i).head = head;
  }

  void write() {
    for (int i = 1; i <= count(); ++i) {
      SentenceWord& to = word(i);
      Place& here = place(i);
      to.head = i == root_ ? 0 : here.head > 0 ? here.head : root_;
      if (here.node) {
        write_node(*here.node, to);
      } else {
        to.upos = labels_.outside_category(to.form);
        to.relation = labels_.outside_relation(to.form);
        to.lemma = to.form;
        to.outside = to.relation == kUnknown;
      }
      if (i == root_) {
        to.relation = kRoot;
      } else if (to.relation == kRoot || to.relation.empty()) {
        to.relation = kUnknown;
      }
    }
  }

  void write_node(DepTree& node, SentenceWord& to) {
    to.lemma = labels_.lemma(node);
    if (to.lemma.empty()) to.lemma = or_empty(node.root_word());
    to.xpos = or_empty(node._cat);
    to.upos = labels_.category(node);
    to.features = labels_.features(node);
    to.relation = labels_.relation(node);
    if (to.relation.empty()) to.relation = or_empty(node._rel);
  }

  static constexpr std::array kOpening{"(", "[", "{", "``", "`", "-LRB-"};
  static constexpr std::array kClosing{")", "]", "}", "''", "'", "-RRB-"};
  template <std::size_t N>
  static bool is_one_of(std::string_view form, const std::array<const char*, N>& all) {
    return std::find(all.begin(), all.end(), form) != all.end();
  }

  const Deps& deps_;
  const Labels& labels_;
  Sentence& sentence_;
  std::vector<int> word_of_;  // the word of the sentence, by the parser's position
  std::vector<Place> places_;
  int root_ = 0;
  std::vector<int> opened_;  // brackets and quotes that are still to be closed
};

bool is_blank(char c) {
  return is_space(c);
}

/// Appends the blank-separated pieces of a stretch of the text as words.
void add_words(Sentence& sentence, std::size_t from, std::size_t to) {
  while (from < to) {
    while (from < to && is_blank(sentence.text[from])) ++from;
    std::size_t end = from;
    while (end < to && !is_blank(sentence.text[end])) ++end;
    if (end > from) {
      SentenceWord& word = sentence.words.emplace_back();
      word.begin = from;
      word.end = end;
    }
    from = end;
  }
}

void finish_words(Sentence& sentence) {
  const std::string& text = sentence.text;
  for (SentenceWord& word : sentence.words) {
    word.form = text.substr(word.begin, word.end - word.begin);
    word.space_after = word.end >= text.size() || is_blank(text[word.end]);
  }
  name_ranges(sentence);
}

/// Letters of `word` at the front that stand at the end of the text before it.
std::size_t letters_before(std::string_view text, std::string_view word, std::string_view token) {
  const std::size_t missing = word.size() - std::min(word.size(), token.size());
  if (missing >= text.size()) return 0;
  const std::string_view end = text.substr(text.size() - missing);
  return std::equal(end.begin(), end.end(), word.begin(),
                    [](char a, char b) { return lower(a) == b; })
             ? missing
             : 0;
}

/// Finds the words that are written as one, and cuts them where the grammar says.
void find_ranges(Sentence& sentence, const Labels& labels) {
  const std::string_view text = sentence.text;
  for (std::size_t i = 1; i < sentence.words.size(); ++i) {
    SentenceWord &before = sentence.words[i - 1], &word = sentence.words[i];
    if (before.end != word.begin) continue;
    const std::string_view token = text.substr(word.begin, word.end - word.begin);
    const std::string clitic = labels.clitic(token);
    if (clitic.empty()) continue;
    const std::size_t moved =
        letters_before(text.substr(before.begin, before.end - before.begin), clitic, token);
    before.end = word.begin -= moved;
    const int number = static_cast<int>(i) + 1;
    if (sentence.ranges.empty() || sentence.ranges.back().last != number - 1)
      sentence.ranges.push_back({number - 1, number, {}, {}});
    sentence.ranges.back().last = number;
  }
}

}  // namespace

Sentence sentence_of(const Deps& deps, std::string_view text, const Labels& labels,
                     std::vector<int>* positions) {
  Sentence sentence;
  sentence.text = text;
  std::vector<int> word_of(1);
  std::size_t at = 0;
  for (int i = 1; i < deps.word_count(); ++i) {
    const std::string_view form = or_empty(deps.word(i));
    const std::size_t begin = text.find(form, at);
    if (form.empty() || begin == text.npos) {
      word_of.push_back(0);
      continue;
    }
    add_words(sentence, at, begin);
    if (begin == at && !sentence.words.empty() &&
        labels.is_one_word(text.substr(sentence.words.back().begin,
                                       begin + form.size() - sentence.words.back().begin))) {
      at = sentence.words.back().end = begin + form.size();
      word_of.push_back(static_cast<int>(sentence.words.size()));
      continue;
    }
    at = begin + form.size();
    SentenceWord& word = sentence.words.emplace_back();
    word.begin = begin;
    word.end = at;
    word_of.push_back(static_cast<int>(sentence.words.size()));
  }
  add_words(sentence, at, text.size());
  find_ranges(sentence, labels);
  finish_words(sentence);
  if (positions) *positions = word_of;
  Assembly(deps, labels, sentence, std::move(word_of)).run();
  return sentence;
}

Sentence sentence_of(const Deps& deps, const std::vector<std::string>& words,
                     const Labels& labels) {
  Sentence sentence;
  for (const std::string& form : words) {
    if (!sentence.text.empty()) sentence.text += ' ';
    SentenceWord& word = sentence.words.emplace_back();
    word.form = form;
    word.begin = sentence.text.size();
    sentence.text += form;
    word.end = sentence.text.size();
  }
  std::vector<int> word_of(1);
  std::size_t i = 0, done = 0;  // bytes of word i that the parser's words have used
  for (int position = 1; position < deps.word_count(); ++position) {
    if (i < words.size() && done >= words[i].size()) {
      ++i;
      done = 0;
    }
    done += std::strlen(or_empty(deps.word(position)));
    word_of.push_back(i < words.size() ? static_cast<int>(i) + 1 : 0);
  }
  Assembly(deps, labels, sentence, std::move(word_of)).run();
  return sentence;
}

void append(Sentence& first, Sentence&& second, std::string_view gap) {
  int root = 0;
  for (std::size_t i = 0; i < first.words.size() && root == 0; ++i)
    if (first.words[i].head == 0) root = static_cast<int>(i) + 1;
  const int shift = static_cast<int>(first.words.size());
  if (!first.words.empty() && gap.empty()) first.words.back().space_after = false;
  first.text += gap;
  const std::size_t offset = first.text.size();
  for (SentenceWord& word : second.words) {
    if (word.head == 0 && root > 0) {
      word.relation = kUnknown;
      word.part = !word.outside;
      word.head = root;
    } else if (word.head > 0) {
      word.head += shift;
    }
    word.begin += offset;
    word.end += offset;
    first.words.push_back(std::move(word));
  }
  for (WordRange& range : second.ranges) {
    range.first += shift;
    range.last += shift;
    first.ranges.push_back(std::move(range));
  }
  first.text += second.text;
  first.parts += second.parts;
  if (second.cost) first.cost = first.cost.value_or(0) + *second.cost;
}

}  // namespace torvane
