#include "cli/sources.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "text/plain_text.h"
#include "text/sentences.h"

namespace torvane {
namespace {

constexpr const char* kBlanks = " \t\r\f\v";

/// A sentence a line; an empty line is none.
class Lines : public Source {
 public:
  explicit Lines(Input& input) : input_(input) {}
  bool next(Task& task) override {
    task = {};
    while (input_.line(task.text))
      if (task.text.find_first_not_of(kBlanks) != task.text.npos) return true;
    return false;
  }

 private:
  Input& input_;
};

/// A sentence a line, with blanks between its words.
class Tokens : public Source {
 public:
  explicit Tokens(Input& input) : lines_(input) {}
  bool next(Task& task) override {
    if (!lines_.next(task)) return false;
    for (std::size_t at = 0; (at = task.text.find_first_not_of(kBlanks, at)) != task.text.npos;) {
      const std::size_t end = std::min(task.text.find_first_of(kBlanks, at), task.text.size());
      task.words.push_back(task.text.substr(at, end - at));
      at = end;
    }
    return true;
  }

 private:
  Lines lines_;
};

/// Running text: paragraphs with empty lines between them.
class Text : public Source {
 public:
  // Where nothing tells a sentence's end, memory still has one.
  static constexpr std::size_t kMostWords = 2000;

  Text(Input& input, Engine& engine) : input_(input), cutter_(engine, kMostWords) {}
  bool next(Task& task) override {
    CutSentence sentence;
    while (!cutter_.next(sentence)) {
      if (ended_) return false;
      read_line();
    }
    task = {};
    task.text = std::move(sentence.text);
    task.starts_paragraph = sentence.starts_paragraph;
    return true;
  }

 private:
  void read_line() {
    ended_ = !input_.line(line_);
    if (ended_ || input_.starts_file() || line_.find_first_not_of(kBlanks) == line_.npos)
      cutter_.end_paragraph();
    if (ended_) return;
    cutter_.add_line(line_);
    // Who types a line waits for the answer.
    if (input_.is_terminal() && !input_.is_waiting()) cutter_.end_paragraph();
  }

  Input& input_;
  SentenceCutter cutter_;
  std::string line_;
  bool ended_ = false;
};

Sentence parse_text(Engine& engine, const std::string& text) {
  const PlainText plain(text);
  Sentence sentence = engine.parse(plain.text());
  plain.restore(sentence);
  return sentence;
}

/// The words stay as they are given; the grammar sees plain ones.
Sentence parse_words(Engine& engine, const std::vector<std::string>& words) {
  std::vector<std::string> plain;
  plain.reserve(words.size());
  for (const std::string& word : words) {
    std::string text = PlainText(word).text();
    text.erase(0, text.find_first_not_of(' '));
    text.erase(text.find_last_not_of(' ') + 1);
    plain.push_back(text.empty() ? word : text);
  }
  Sentence sentence = engine.parse(plain);
  sentence.text.clear();
  for (std::size_t i = 0; i < sentence.words.size() && i < words.size(); ++i) {
    SentenceWord& word = sentence.words[i];
    if (i > 0) sentence.text += ' ';
    word.begin = sentence.text.size();
    word.form = words[i];
    sentence.text += word.form;
    word.end = sentence.text.size();
  }
  return sentence;
}

}  // namespace

Sentence parse_task(Engine& engine, const Task& task) {
  Sentence sentence =
      task.words.empty() ? parse_text(engine, task.text) : parse_words(engine, task.words);
  sentence.id = task.id;
  sentence.starts_paragraph = task.starts_paragraph;
  return sentence;
}

std::unique_ptr<Source> make_source(const std::string& name, Input& input, Engine& engine) {
  if (name == "text") return std::make_unique<Text>(input, engine);
  if (name == "lines") return std::make_unique<Lines>(input);
  if (name == "tokens") return std::make_unique<Tokens>(input);
  return nullptr;
}

std::vector<std::string> source_names() {
  return {"text", "lines", "tokens"};
}

}  // namespace torvane
