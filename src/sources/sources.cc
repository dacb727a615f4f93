#include "sources/sources.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "formats/conllu_reader.h"
#include "text/plain_text.h"
#include "text/sentences.h"

namespace torvane {
namespace {

constexpr const char* kBlanks = " \t\r\f\v";

/// A sentence a line; an empty line is none.
class Lines : public Source {
 public:
  explicit Lines(LineInput& input) : input_(input) {}
  bool next(Task& task) override {
    task = {};
    while (input_.line(task.text))
      if (task.text.find_first_not_of(kBlanks) != task.text.npos) return true;
    return false;
  }

 private:
  LineInput& input_;
};

/// A sentence a line, with blanks between its words.
class Tokens : public Source {
 public:
  explicit Tokens(LineInput& input) : lines_(input) {}
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

  Text(LineInput& input, Engine& engine) : input_(input), cutter_(engine, kMostWords) {}
  bool next(Task& task) override {
    CutSentence sentence;
    while (!cutter_.next(sentence)) {
      if (ended_) return false;
      read_line();
    }
    task = {};
    task.text = std::move(sentence.text);
    task.starts_paragraph = sentence.starts_paragraph;
    task.space_after = sentence.space_after;
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

  LineInput& input_;
  SentenceCutter cutter_;
  std::string line_;
  bool ended_ = false;
};

/// Trees that were made before: their words are kept.
class Conllu : public Source {
 public:
  explicit Conllu(LineInput& input) : input_(input) {}
  bool next(Task& task) override {
    for (bool more = true; more;) {
      more = input_.line(line_);
      const bool complete = reader_.add(more ? line_ : "");
      for (const ConlluReader::Fault& fault : reader_.take_faults())
        input_.tell(fault.lines_back - (more ? 0 : 1), fault.text);
      if (!complete) continue;
      task = {};
      task.read = std::make_unique<Sentence>(reader_.take());
      task.id = task.read->id;
      for (const SentenceWord& word : task.read->words) task.words.push_back(word.form);
      return true;
    }
    return false;
  }

 private:
  LineInput& input_;
  ConlluReader reader_;
  std::string line_;
};

/// The tree that the grammar gives to words that were read, with what else the file has of them.
Sentence merged(Sentence read, const Sentence& parsed) {
  for (std::size_t i = 0; i < read.words.size() && i < parsed.words.size(); ++i) {
    SentenceWord& word = read.words[i];
    const SentenceWord& now = parsed.words[i];
    word.lemma = now.lemma;
    word.upos = now.upos;
    word.xpos = now.xpos;
    word.features = now.features;
    word.head = now.head;
    word.relation = now.relation;
    word.outside = now.outside;
    word.part = now.part;
  }
  read.parts = parsed.parts;
  read.cost = parsed.cost;
  read.cut = parsed.cut;
  return read;
}

enum class Which { best, next };

std::optional<Sentence> parse_text(Engine& engine, const std::string& text, Which which) {
  const PlainText plain(text);
  std::optional<Sentence> sentence =
      which == Which::next ? engine.next() : engine.parse(plain.text());
  if (sentence) plain.restore(*sentence);
  return sentence;
}

/// The words stay as they are given; the grammar sees plain ones.
std::optional<Sentence> parse_words(Engine& engine, const std::vector<std::string>& words,
                                    Which which) {
  std::vector<std::string> plain;
  plain.reserve(words.size());
  for (const std::string& word : words) {
    std::string text = PlainText(word).text();
    text.erase(0, text.find_first_not_of(' '));
    text.erase(text.find_last_not_of(' ') + 1);
    plain.push_back(text.empty() ? word : text);
  }
  std::optional<Sentence> sentence = which == Which::next ? engine.next() : engine.parse(plain);
  if (!sentence) return {};
  sentence->text.clear();
  for (std::size_t i = 0; i < sentence->words.size() && i < words.size(); ++i) {
    SentenceWord& word = sentence->words[i];
    if (i > 0) sentence->text += ' ';
    word.begin = sentence->text.size();
    word.form = words[i];
    sentence->text += word.form;
    word.end = sentence->text.size();
  }
  return sentence;
}

std::optional<Sentence> tree_of(Engine& engine, const Task& task, Which which) {
  std::optional<Sentence> sentence = task.words.empty() ? parse_text(engine, task.text, which)
                                                        : parse_words(engine, task.words, which);
  if (!sentence) return {};
  if (task.read) sentence = merged(*task.read, *sentence);
  sentence->id = task.id;
  sentence->starts_paragraph |= task.starts_paragraph;
  if (!task.space_after && !sentence->words.empty()) sentence->words.back().space_after = false;
  return sentence;
}

}  // namespace

Sentence parse_task(Engine& engine, const Task& task) {
  return tree_of(engine, task, Which::best).value();
}

std::optional<Sentence> next_tree(Engine& engine, const Task& task) {
  return tree_of(engine, task, Which::next);
}

std::unique_ptr<Source> make_source(const std::string& name, LineInput& input, Engine& engine) {
  if (name == "text") return std::make_unique<Text>(input, engine);
  if (name == "lines") return std::make_unique<Lines>(input);
  if (name == "tokens") return std::make_unique<Tokens>(input);
  if (name == "conllu") return make_tree_source(input);
  return nullptr;
}

std::unique_ptr<Source> make_tree_source(LineInput& input) {
  return std::make_unique<Conllu>(input);
}

std::vector<std::string> source_names() {
  return {"text", "lines", "tokens", "conllu"};
}

}  // namespace torvane
