// torvane parse: sentences in, trees out.
#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "cli/grammar.h"
#include "cli/input.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/page.h"
#include "cli/sources.h"
#include "cli/summary.h"
#include "cli/workers.h"
#include "formats/format.h"

namespace torvane {
namespace {

struct ParseOptions {
  std::vector<std::string> files;
  std::string from = "text", to = "conllu", output;
  GrammarChoice grammar;
  std::size_t jobs = 1;
  PageChoice page;
  bool strict = false, quiet = false;
};

/// A run: where it reads and writes, and what it has done.
struct Run {
  Input input;
  Output output;
  const Format& format;
  const Page page;
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

void parse_here(Run& run, Engine& engine) {
  for (Task task; run.next(task);) {
    const Sentence sentence = parse_task(engine, task);
    run.summary.count(sentence);
    run.format.write(run.output.buffer, sentence, run.page);
    run.output.flush(!run.input.is_waiting());
  }
}

/// Each thread has an engine of its own.
void parse_in_threads(Run& run, const ParseOptions& options, const GrammarFiles& grammar) {
  constexpr std::size_t kWaitingEach = 64;
  Workers workers(options.jobs, [&](Workers& all) {
    const std::unique_ptr<Engine> engine = load_grammar(grammar, options.grammar.max_words);
    if (!engine) return all.resign();
    while (Job* job = all.take()) {
      job->sentence = parse_task(*engine, job->task);
      run.format.write(job->written, job->sentence, run.page);
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
    if (!job->done) return;
    run.summary.count(job->sentence);
    run.output.buffer += job->written;
    run.output.flush(workers.waiting() == 0 && !run.input.is_waiting());
  }
}

int parse(const ParseOptions& options) {
  catch_interrupts();
  const GrammarFiles grammar = find_grammar(options.grammar);
  const std::unique_ptr<Engine> engine = load_grammar(grammar, options.grammar.max_words);
  if (!engine) return kNoGrammar;
  Run run{Input(options.files),
          Output(options.output),
          *find_format(options.to),
          page_of(options.page, options.output),
          {},
          {}};
  run.source = make_source(options.from, run.input, *engine);
  run.format.begin(run.output.buffer);
  if (options.jobs == 1) {
    parse_here(run, *engine);
  } else {
    parse_in_threads(run, options, grammar);
  }
  run.format.end(run.output.buffer);
  run.output.flush(true);
  leave_grammar();
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
