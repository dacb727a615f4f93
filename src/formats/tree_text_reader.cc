#include "formats/tree_text_reader.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "shell/tokenizer.h"
#include "support/text.h"

namespace torvane {
namespace {

constexpr std::size_t kMostWords = 32767;

/// The form of one tree, token by token.
class TreeForm {
 public:
  /// Gives what is wrong: its line from 0, and the text; an empty text if all is well.
  ReadFault read(const std::string& form, Sentence& sentence) {
    const auto tokenizer = Tokenizer::make_default(false);
    tokenizer->set_string_input(form.c_str(), static_cast<long>(form.size()));
    while (const char* token = tokenizer->next_token()) {
      const std::string_view text(token, tokenizer->token_length());
      if (text.empty()) break;
      take(text);
      line_ += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    }
    finish();
    sentence = std::move(sentence_);
    return fault_;
  }

 private:
  struct Node {
    std::size_t line = 0;
    int word = 0;                    // its number; 0: none
    std::vector<std::string> atoms;  // word, base form, category, head, relation
    bool is_open = true;             // for atoms: no list stood behind them yet
  };

  void take(std::string_view token) {
    const char c = token.front();
    if (is_space(c) || c == ';' || c == '\0') return;
    if (c == ')' && depth_ == 0) return;
    if (c == '(') {
      ++depth_;
      if (depth_ == 2) open_node();
      if (depth_ == 3) open_list();
    } else if (c == ')') {
      if (--depth_ == 1 && !rest_ignored_) close_node();
    } else if (c == '"') {
      take_atom(std::string(token.substr(1, token.size() - 2)));
    } else {
      take_atom(std::string(token));
    }
  }

  void open_node() {
    node_ = Node();
    node_.line = line_;
  }

  // In the place of the word it says that there is none.
  void open_list() {
    if (node_.atoms.empty()) {
      node_.atoms.emplace_back();
    } else {
      node_.is_open = false;
    }
  }

  void take_atom(std::string atom) {
    if (rest_ignored_) return;
    if (depth_ == 2 && node_.is_open) {
      node_.atoms.push_back(std::move(atom));
    } else if (depth_ == 1 && is_id_) {
      sentence_.id = std::move(atom);
      is_id_ = false;
    } else if (depth_ == 1 && same_word(atom.c_str(), ":nogap")) {
      if (!sentence_.words.empty()) sentence_.words.back().space_after = false;
    } else if (depth_ == 1 && same_word(atom.c_str(), ":id")) {
      is_id_ = true;
    } else if (depth_ == 1 && atom == "assertions:") {
      rest_ignored_ = true;
    } else if (depth_ == 1) {
      label_ = std::move(atom);
    }
  }

  void close_node() {
    node_.atoms.resize(std::max<std::size_t>(node_.atoms.size(), 1));
    if (!node_.atoms.front().empty()) {
      SentenceWord& word = sentence_.words.emplace_back();
      node_.word = static_cast<int>(sentence_.words.size());
      word.form = node_.atoms.front();
      if (sentence_.words.size() == kMostWords + 1) fail(node_.line, "more words than a tree has");
    }
    if (!label_.empty() && !numbers_.try_emplace(label_, nodes_.size()).second)
      fail(node_.line, "once more the label " + label_);
    label_.clear();
    nodes_.push_back(std::move(node_));
  }

  void finish() {
    if (sentence_.words.empty()) return fail(0, "a tree without words");
    for (const Node& node : nodes_)
      if (node.word > 0) nodes_of_words_.push_back(&node);
    std::vector<int> parents;
    parents.reserve(nodes_.size());
    for (const Node& node : nodes_) parents.push_back(parent_of(node));
    if (!fault_.text.empty()) return;
    find_heads(parents);
    if (!fault_.text.empty()) return;
    join_tops();
    spell_text();
  }

  // From a node without a word it is the head's head.
  void find_heads(const std::vector<int>& parents) {
    for (const Node& node : nodes_) {
      if (node.word == 0) continue;
      SentenceWord& word = sentence_.words[static_cast<std::size_t>(node.word) - 1];
      int at = static_cast<int>(&node - nodes_.data());
      std::size_t steps = 0;
      do {
        at = parents[static_cast<std::size_t>(at)];
        if (++steps > nodes_.size())
          return fail(node.line, "a circle of heads at word " + std::to_string(node.word));
      } while (at >= 0 && nodes_[static_cast<std::size_t>(at)].word == 0);
      word.head = at < 0 ? 0 : nodes_[static_cast<std::size_t>(at)].word;
      fill_in(node, word);
    }
    if (const std::size_t word = find_circle(sentence_.words))
      fail(nodes_of_words_[word - 1]->line, "a circle of heads at word " + std::to_string(word));
  }

  static void fill_in(const Node& node, SentenceWord& word) {
    const std::vector<std::string>& atoms = node.atoms;
    if (atoms.size() > 1) word.lemma = atoms[1] == "~" ? word.form : atoms[1];
    if (atoms.size() > 2 && atoms[2] != "U") word.xpos = atoms[2];
    const std::size_t relation = names_word(node) ? 5 : 4;
    if (atoms.size() > relation) word.relation = atoms[relation];
    word.outside = atoms.size() <= 2;
  }

  /// The head is given by a direction and a word, or by a dash and a label.
  static bool names_word(const Node& node) {
    return node.atoms.size() > 3 && !node.atoms[3].empty() &&
           std::string_view("<>-").find(node.atoms[3].front()) != std::string_view::npos;
  }

  /// The place of the head among the nodes; -1: at the top.
  int parent_of(const Node& node) {
    if (node.atoms.size() <= 3 || node.atoms[3] == "*") return -1;
    const std::string& where = node.atoms[3];
    const bool has_word = names_word(node);
    const std::string name = !has_word ? where : node.atoms.size() > 4 ? node.atoms[4] : "";
    if (has_word && where.front() != '-') {
      const int word = walk(node.word, where, name);
      if (word > 0)
        return static_cast<int>(nodes_of_words_[static_cast<std::size_t>(word) - 1] -
                                nodes_.data());
    } else if (const auto found = numbers_.find(name); found != numbers_.end()) {
      return static_cast<int>(found->second);
    }
    fail(node.line, "no head " + (has_word ? where + ' ' + name : name));
    return -1;
  }

  /// The word that so many steps to the left or right lead to, each to the next one of that form.
  int walk(int from, const std::string& direction, const std::string& form) const {
    for (char c : direction) {
      do {
        from += c == '>' ? -1 : 1;
      } while (from > 0 && static_cast<std::size_t>(from) <= sentence_.words.size() &&
               sentence_.words[static_cast<std::size_t>(from) - 1].form != form);
      if (from <= 0 || static_cast<std::size_t>(from) > sentence_.words.size()) return 0;
    }
    return from;
  }

  // One root a sentence: the top with the most words below it, if it is no bare word.
  void join_tops() {
    std::vector<SentenceWord>& words = sentence_.words;
    std::vector<int> size(words.size());
    for (std::size_t i = 0; i < words.size(); ++i)
      for (int at = static_cast<int>(i) + 1; at > 0;
           at = words[static_cast<std::size_t>(at) - 1].head)
        ++size[static_cast<std::size_t>(at) - 1];
    auto weight = [&](std::size_t i) { return words[i].outside ? 0 : size[i]; };
    std::size_t root = words.size();
    for (std::size_t i = 0; i < words.size(); ++i) {
      if (words[i].head != 0) continue;
      if (!words[i].outside) ++sentence_.parts;
      if (root == words.size() || weight(i) > weight(root)) root = i;
    }
    for (std::size_t i = 0; i < words.size(); ++i) {
      if (words[i].head != 0) continue;
      if (i != root) words[i].head = static_cast<int>(root) + 1;
      words[i].part = i != root && !words[i].outside;
      if (words[i].relation.empty()) words[i].relation = i == root ? "root" : "dep";
    }
  }

  void spell_text() {
    std::string& text = sentence_.text;
    for (SentenceWord& word : sentence_.words) {
      word.begin = text.size();
      text += word.form;
      word.end = text.size();
      if (word.space_after && &word != &sentence_.words.back()) text += ' ';
    }
  }

  void fail(std::size_t line, std::string text) {
    if (fault_.text.empty()) fault_ = {line, std::move(text)};
  }

  std::size_t line_ = 0, depth_ = 0;
  std::string label_;
  bool is_id_ = false, rest_ignored_ = false;
  Node node_;
  std::vector<Node> nodes_;
  std::vector<const Node*> nodes_of_words_;
  std::unordered_map<std::string, std::size_t> numbers_;  // of nodes, by their labels
  Sentence sentence_;
  ReadFault fault_{};
};

/// What begins a tree, and stands in none.
bool begins_tree(std::string_view line) {
  return line == "(" || line.starts_with("(:id") || line.starts_with("( :id");
}

}  // namespace

void TreeTextReader::add(std::string_view line) {
  ++lines_;
  if (depth_ > 0 && begins_tree(line)) end();
  for (char c : line) read(c);
  read('\n');
}

void TreeTextReader::end() {
  if (depth_ > 0) leave_out(first_line_, "the tree that begins here is not closed");
  depth_ = 0;
  state_ = State::blank;
}

void TreeTextReader::read(char c) {
  if (depth_ > 0) form_ += c;
  switch (state_) {
    case State::text:
      if (c == '\\') state_ = State::escaped;
      if (c == '"') state_ = State::blank;
      return;
    case State::escaped:
      state_ = State::text;
      return;
    case State::comment:
      if (c == '\\') state_ = State::escaped_comment;
      if (c == '\n') state_ = State::blank;
      return;
    case State::escaped_comment:
      state_ = State::comment;
      return;
    case State::blank:
    case State::word:
      break;
  }
  const bool in_word = state_ == State::word;
  state_ = State::blank;
  if (c == ';') {
    state_ = State::comment;
  } else if (c == '(') {
    if (depth_++ > 0) return;
    first_line_ = lines_;
    told_ = false;
    form_ = c;
  } else if (depth_ == 0) {
    if (!is_space(c) && !std::exchange(told_, true))
      leave_out(lines_, c == ')' ? "a parenthesis closes nothing" : "text outside of all trees");
  } else if (c == ')') {
    if (--depth_ == 0) end_tree();
  } else if (c == '"' && !in_word) {
    state_ = State::text;
  } else if (!is_space(c)) {
    state_ = State::word;
  }
}

void TreeTextReader::end_tree() {
  TreeText& tree = ready_.emplace_back();
  tree.form = std::move(form_);
  form_.clear();
  ReadFault fault = TreeForm().read(tree.form, tree.sentence);
  if (fault.text.empty()) return;
  ready_.pop_back();
  leave_out(first_line_ + fault.lines_back, std::move(fault.text));
}

void TreeTextReader::leave_out(std::size_t line, std::string text) {
  faults_.push_back({line, std::move(text)});
}

bool TreeTextReader::next(TreeText& tree) {
  if (ready_.empty()) return false;
  tree = std::move(ready_.front());
  ready_.pop_front();
  return true;
}

std::vector<ReadFault> TreeTextReader::take_faults() {
  for (ReadFault& fault : faults_) fault.lines_back = lines_ - fault.lines_back;
  return std::exchange(faults_, {});
}

}  // namespace torvane
