#include "cli/sources.h"

#include <algorithm>
#include <cstddef>

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

}  // namespace

Sentence parse_task(Engine& engine, const Task& task) {
  Sentence sentence = task.words.empty() ? engine.parse(task.text) : engine.parse(task.words);
  sentence.id = task.id;
  return sentence;
}

std::unique_ptr<Source> make_source(const std::string& name, Input& input) {
  if (name == "lines") return std::make_unique<Lines>(input);
  if (name == "tokens") return std::make_unique<Tokens>(input);
  return nullptr;
}

std::vector<std::string> source_names() {
  return {"lines", "tokens"};
}

}  // namespace torvane
