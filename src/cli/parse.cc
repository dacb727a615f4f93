// torvane parse: sentences in, trees out.
#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/grammar.h"
#include "cli/input.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/sources.h"
#include "cli/summary.h"
#include "formats/format.h"

namespace torvane {
namespace {

struct ParseOptions {
  std::vector<std::string> files;
  std::string from = "text", to = "conllu", output;
  GrammarChoice grammar;
  bool strict = false, quiet = false;
};

int parse(const ParseOptions& options) {
  catch_interrupts();
  Engine* engine = load_grammar(find_grammar(options.grammar), options.grammar.max_words);
  if (!engine) return kNoGrammar;
  Input input(options.files);
  Output output(options.output);
  std::unique_ptr<Source> source = make_source(options.from, input, *engine);
  const Format& format = *find_format(options.to);
  Summary summary;
  Task task;
  for (std::uint64_t number = 1; !output.is_shut() && source->next(task); ++number) {
    if (task.id.empty()) task.id = std::to_string(number);
    const Sentence sentence = parse_task(*engine, task);
    summary.count(sentence);
    format.write(output.buffer, sentence);
    output.flush(!input.is_waiting());
  }
  output.flush(true);
  leave_grammar();
  if (is_interrupted()) end_by_interrupt();
  if (!options.quiet) std::cerr << summary.text() << '\n';
  if (input.failed() || output.failed()) return kInputOutput;
  return options.strict && !summary.all_whole() ? kNotWhole : kDone;
}

}  // namespace

std::function<int()> declare_parse(CLI::App& app) {
  auto options = std::make_shared<ParseOptions>();
  std::vector<std::string> formats;
  for (const Format& format : all_formats()) formats.emplace_back(format.name);
  app.add_option("FILE", options->files, "Files to read; none, or -: standard input");
  app.add_option("--from", options->from,
                 "What is read: lines (a sentence a line), tokens (words "
                 "with blanks between)")
      ->check(CLI::IsMember(source_names()))
      ->capture_default_str();
  app.add_option("--to", options->to, "What is written")
      ->check(CLI::IsMember(formats))
      ->capture_default_str();
  app.add_option("-o,--output", options->output, "File to write; none, or -: standard output");
  app.add_option("--grammar", options->grammar.grammar, "Name of a grammar, or a start-up file")
      ->capture_default_str();
  app.add_option("--data", options->grammar.data, "Folder of the grammars");
  app.add_option("--style", options->grammar.style,
                 "Head style: content, where the grammar has it, or grammar");
  app.add_option("--max-words", options->grammar.max_words,
                 "A longer sentence is parsed piece by piece")
      ->check(CLI::Range(1, 30000))
      ->capture_default_str();
  app.add_flag("--strict", options->strict, "Status 3 when a sentence is not one whole tree");
  app.add_flag("--quiet", options->quiet, "No summary on standard error");
  return [options] { return parse(*options); };
}

}  // namespace torvane
