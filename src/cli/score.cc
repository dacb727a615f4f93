// torvane score: how many words of a list of sentences get the heads that they should have.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/grammar.h"
#include "cli/input.h"
#include "cli/output.h"
#include "cli/wanted_heads.h"
#include "sources/sources.h"

namespace torvane {
namespace {

struct ScoreOptions {
  GrammarChoice grammar;
  std::string list;
  double want = 100;
  bool quiet = false;
};

struct Score {
  std::size_t heads = 0, right = 0, sentences = 0, whole = 0;

  bool reaches(double percent) const {
    return 100.0 * static_cast<double>(whole) >= percent * static_cast<double>(sentences);
  }
  std::string text() const {
    return "heads " + std::to_string(right) + " of " + std::to_string(heads) +
           ", sentences wholly right " + std::to_string(whole) + " of " +
           std::to_string(sentences) + '\n';
  }
};

bool same_heads(const Sentence& a, const Sentence& b) {
  if (a.words.size() != b.words.size()) return false;
  for (std::size_t i = 0; i < a.words.size(); ++i)
    if (a.words[i].head != b.words[i].head) return false;
  return true;
}

/// What is wrong with the tree of a line; a fault of the line itself in `wanted`.
std::vector<std::string> faults_of(Engine& engine, WantedTree& wanted) {
  Task task;
  task.text = wanted.sentence;
  const Sentence sentence = parse_task(engine, task);
  wanted.fault = unknown_words(sentence, wanted);
  if (!wanted.fault.empty()) return {};
  std::vector<std::string> faults = wrong_heads(sentence, wanted);
  if (!same_heads(sentence, parse_task(engine, task)))
    faults.emplace_back("a second parse gives another tree");
  return faults;
}

int score(const ScoreOptions& options) {
  const std::unique_ptr<Engine> engine =
      load_grammar(find_grammar(options.grammar), options.grammar.max_words);
  if (!engine) return kNoGrammar;
  Input input({options.list});
  Output output("");
  Score total;
  for (std::string line; input.line(line);) {
    if (line.empty() || line.starts_with('#')) continue;
    WantedTree wanted = read_wanted_tree(line);
    std::vector<std::string> faults;
    if (wanted.fault.empty()) faults = faults_of(*engine, wanted);
    if (!wanted.fault.empty()) {
      input.tell(0, wanted.fault);
      continue;
    }
    total.heads += wanted.heads.size();
    total.right += wanted.heads.size() - std::min(faults.size(), wanted.heads.size());
    ++total.sentences;
    total.whole += faults.empty() ? 1 : 0;
    if (options.quiet) continue;
    for (const std::string& fault : faults)
      output.buffer.append(input.place()).append(": ").append(fault).append("\n");
  }
  output.buffer += total.text();
  output.flush(true);
  if (input.failed() || input.has_faults() || output.failed()) return kInputOutput;
  return total.reaches(options.want) ? kDone : kNotWhole;
}

}  // namespace

std::function<int()> declare_score(CLI::App& app) {
  auto options = std::make_shared<ScoreOptions>();
  options->grammar.style = "grammar";
  app.add_option("GRAMMAR", options->grammar.grammar, "Name of a grammar, or a start-up file")
      ->required();
  app.add_option("LIST", options->list,
                 "Sentences, each with a tab and the heads of its words behind it: "
                 "WORD>HEAD|HEAD ...; - is standard input")
      ->required();
  app.add_option("--data", options->grammar.data, "Folder of the grammars");
  app.add_option("--style", options->grammar.style,
                 "Head style of the list: grammar, or one that the grammar has")
      ->capture_default_str();
  app.add_option("--want", options->want, "Status 3 when fewer sentences in a hundred are right")
      ->check(CLI::Range(0.0, 100.0))
      ->capture_default_str();
  app.add_flag("--quiet", options->quiet, "The sum alone, no wrong heads");
  return [options] { return score(*options); };
}

}  // namespace torvane
