// torvane parse: sentences in, trees out.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "cli/grammar.h"
#include "cli/input.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/page.h"
#include "cli/progress.h"
#include "cli/summary.h"
#include "cli/workers.h"
#include "formats/format.h"
#include "sources/sources.h"

namespace torvane {
namespace {

struct ParseOptions {
  std::vector<std::string> files;
  std::string from = "text", to = "conllu", output;
  GrammarChoice grammar;
  std::string counts;
  std::size_t jobs = 1;
  int best = 0;
  PageChoice page;
  bool strict = false, quiet = false;
};

/// A run: where it reads and writes, and what it has done.
struct Run {
  explicit Run(const ParseOptions& options)
      : input(options.files),
        output(options.output),
        format(*find_format(options.to)),
        page(page_of(options.page, options.output)),
        progress(!options.quiet && !output.is_terminal()) {}

  Input input;
  Output output;
  const Format& format;
  const Page page;
  Progress progress;
  Summary summary;
  std::unique_ptr<Source> source;
  std::uint64_t tasks = 0;

  bool next(Task& task) {
    if (output.is_shut() || !source->next(task)) return false;
    ++tasks;
    if (task.id.empty()) task.id = std::to_string(tasks);
    return true;
  }
};

std::unique_ptr<Engine> make_engine(const ParseOptions& options, const GrammarFiles& grammar) {
  std::unique_ptr<Engine> engine = load_grammar(grammar, options.grammar.max_words);
  if (!engine || options.counts.empty()) return engine;
  const std::string fault = engine->use_counts(options.counts);
  if (fault.empty()) return engine;
  std::cerr << "torvane: " << fault << '\n';
  return nullptr;
}

/// Writes the tree of a task, or as many of the best ones as are wanted.
Outcome parse_and_write(Engine& engine, const Task& task, const ParseOptions& options,
                        const Format& format, const Page& page, std::string& out) {
  Sentence sentence = parse_task(engine, task);
  const Outcome outcome = outcome_of(sentence);
  for (sentence.best = std::min(options.best, 1);;) {
    format.write(out, sentence, page);
    if (sentence.best >= options.best) return outcome;
    std::optional<Sentence> next = next_tree(engine, task);
    if (!next) return outcome;
    next->best = sentence.best + 1;
    next->starts_paragraph = false;
    next->id += '-' + std::to_string(next->best);
    sentence = std::move(*next);
  }
}

void parse_here(Run& run, const ParseOptions& options, Engine& engine) {
  const BeforeGrammarEnds written([&] { run.output.flush(true); });
  for (Task task; run.next(task);) {
    run.summary.count(
        parse_and_write(engine, task, options, run.format, run.page, run.output.buffer));
    run.output.flush(!run.input.is_waiting());
    run.progress.show(run.summary, run.input);
  }
}

/// Each thread has an engine of its own.
void parse_in_threads(Run& run, const ParseOptions& options, const GrammarFiles& grammar) {
  constexpr std::size_t kWaitingEach = 64;
  Workers workers(options.jobs, [&](Workers& all) {
    const std::unique_ptr<Engine> engine = make_engine(options, grammar);
    if (!engine) return all.resign();
    while (Job* job = all.take()) {
      const BeforeGrammarEnds in_turn([&] { all.fail(*job); });
      job->outcome =
          parse_and_write(*engine, job->task, options, run.format, run.page, job->written);
      all.give_back(*job);
    }
  });
  bool more = true;
  while (more || workers.waiting() > 0) {
    while (more && workers.waiting() < kWaitingEach * options.jobs &&
           (workers.waiting() == 0 || run.input.is_waiting())) {
      Task task;
      more = run.next(task);
      if (more) workers.add(std::move(task));
    }
    if (workers.waiting() == 0) continue;
    const std::unique_ptr<Job> job = workers.finished();
    if (job->state == Job::State::open) return;
    if (job->state == Job::State::failed) {
      run.output.flush(true);
      _exit(kNoGrammar);
    }
    run.summary.count(job->outcome);
    run.output.buffer += job->written;
    run.output.flush(workers.waiting() == 0 && !run.input.is_waiting());
    run.progress.show(run.summary, run.input);
  }
}

int parse(const ParseOptions& options) {
  catch_interrupts();
  const GrammarFiles grammar = find_grammar(options.grammar);
  const std::unique_ptr<Engine> engine = make_engine(options, grammar);
  if (!engine) return kNoGrammar;
  Run run(options);
  run.source = make_source(options.from, run.input, *engine);
  run.format.begin(run.output.buffer);
  if (options.jobs == 1) {
    parse_here(run, options, *engine);
  } else {
    parse_in_threads(run, options, grammar);
  }
  run.format.end(run.output.buffer);
  run.output.flush(true);
  run.progress.end();
  if (is_interrupted()) end_by_interrupt();
  if (!options.quiet) std::cerr << run.summary.text() << '\n';
  if (run.input.failed() || run.input.has_faults() || run.output.failed()) return kInputOutput;
  return options.strict && !run.summary.all_whole() ? kNotWhole : kDone;
}

}  // namespace

std::function<int()> declare_parse(CLI::App& app) {
  auto options = std::make_shared<ParseOptions>();
  std::vector<std::string> formats;
  for (const Format& format : all_formats()) formats.emplace_back(format.name);
  app.add_option("FILE", options->files, "Files to read; none, or -: standard input")->take_all();
  app.add_option("--from", options->from,
                 "What is read: text, lines (a sentence a line), tokens (words with blanks "
                 "between), conllu (its words), trees (tree text: tree rules only)")
      ->check(CLI::IsMember(source_names()))
      ->capture_default_str();
  app.add_option("--to", options->to, "What is written")
      ->check(CLI::IsMember(formats))
      ->capture_default_str();
  app.add_option("-o,--output", options->output, "File to write; none, or -: standard output");
  declare_page(app, options->page);
  app.add_option("--grammar", options->grammar.grammar, "Name of a grammar, or a start-up file")
      ->capture_default_str();
  app.add_option("--data", options->grammar.data, "Folder of the grammars");
  app.add_option("--style", options->grammar.style,
                 "Head style: content, where the grammar has it, or grammar");
  app.add_option(
      "--counts", options->counts,
      "Folder of a database of counts, as torvane learn leaves it: what it has seen is cheaper");
  app.add_option("--best", options->best, "So many of the best trees of each sentence")
      ->check(CLI::Range(1, 1000));
  app.add_option("--max-words", options->grammar.max_words,
                 "A longer sentence is parsed piece by piece")
      ->check(CLI::Range(1, 30000))
      ->capture_default_str();
  app.add_option("-j,--jobs", options->jobs, "Sentences parsed at the same time")
      ->check(CLI::Range(1, 256))
      ->capture_default_str();
  app.add_flag("--strict", options->strict, "Status 3 when a sentence is not one whole tree");
  app.add_flag("--quiet", options->quiet, "No summary on standard error");
  return [options] { return parse(*options); };
}

}  // namespace torvane
