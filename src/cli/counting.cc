#include "cli/counting.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <utility>

#include "cli/command.h"
#include "cli/interrupt.h"
#include "counts/triple_rows.h"

namespace torvane {
namespace {

constexpr std::size_t kWaitingEach = 64;

/// The name of a grammar, which a file has without its folders.
std::string name_of_grammar(const std::string& grammar) {
  std::string name = std::filesystem::path(grammar).stem().string();
  std::replace(name.begin(), name.end(), '\n', ' ');
  return name;
}

}  // namespace

std::vector<std::string> counted_source_names() {
  return {"text", "lines", "tokens", "conllu"};
}

void declare_counting(CLI::App& app, CountingChoice& choice) {
  app.add_option("--from", choice.from,
                 "What is read: text, lines (a sentence a line), tokens (words with blanks "
                 "between), conllu (its words)")
      ->check(CLI::IsMember(counted_source_names()))
      ->capture_default_str();
  app.add_flag("--trees", choice.trees,
               "With --from conllu: count the trees of the file, parse nothing");
  app.add_option("--grammar", choice.grammar.grammar, "Name of a grammar, or a start-up file")
      ->capture_default_str();
  app.add_option("--data", choice.grammar.data, "Folder of the grammars");
  choice.grammar.style = "counts";
  app.add_option("--style", choice.grammar.style, "Style of the grammar that prints the rows")
      ->capture_default_str();
  app.add_option("--max-words", choice.grammar.max_words,
                 "A longer sentence is parsed piece by piece")
      ->check(CLI::Range(1, 30000))
      ->capture_default_str();
  app.add_option("-j,--jobs", choice.jobs, "Sentences parsed at the same time")
      ->check(CLI::Range(1, 256))
      ->capture_default_str();
  app.add_option("--memory", choice.memory, "Megabytes for counts; what is more goes to the disk")
      ->check(CLI::Range(1, 1 << 20))
      ->capture_default_str();
}

void tell_fault(const std::string& message) {
  std::cerr << "torvane: " << message << '\n';
}

std::string numbers_text(const CountsHeader& header) {
  return with_commas(header.sentences) + (header.sentences == 1 ? " sentence, " : " sentences, ") +
         with_commas(header.words) + (header.words == 1 ? " word" : " words");
}

Counting::Counting(const CountingChoice& choice) : choice_(choice) {}

bool Counting::load(Printing& printing) const {
  printing.engine =
      load_grammar(files_, choice_.grammar.max_words, Forms::dropped, printing.printed);
  printing.printed.str("");
  return printing.engine != nullptr;
}

bool Counting::start() {
  if (choice_.trees) {
    kind_ = {"conllu", "-", "trees"};
    return true;
  }
  files_ = find_grammar(choice_.grammar);
  if (!load(own_)) return false;
  kind_ = {name_of_grammar(choice_.grammar.grammar), own_.engine->grammar_version(),
           choice_.grammar.style};
  if (choice_.jobs == 1) return true;
  workers_ = std::make_unique<Workers>(choice_.jobs, [this](Workers& all) {
    Printing printing;
    if (!load(printing)) return all.resign();
    while (Job* job = all.take()) {
      const BeforeGrammarEnds in_turn([&] { all.fail(*job); });
      parse_job(printing, *job);
      all.give_back(*job);
    }
  });
  return true;
}

void Counting::parse_job(Printing& printing, Job& job) {
  const Sentence sentence = parse_task(*printing.engine, job.task);
  job.words = sentence.words.size();
  job.written = printing.printed.str();
  printing.printed.str("");
}

void Counting::take(const Job& job, CountSorter& counts, CountsHeader& header) const {
  ++header.sentences;
  header.words += job.words;
  count_printed_rows(job.written, counts);
}

bool Counting::count(LineInput& input, CountSorter& counts, CountsHeader& header,
                     const std::function<void()>& done) {
  if (choice_.trees) {
    const std::unique_ptr<Source> source = make_tree_source("conllu", input);
    for (Task task; counts.error() == 0 && source->next(task); done()) {
      ++header.sentences;
      header.words += task.read->words.size();
      count_tree(*task.read, counts);
    }
    return !is_interrupted();
  }
  const std::unique_ptr<Source> source = make_source(choice_.from, input, *own_.engine);
  return workers_ ? count_in_threads(*source, counts, header, done)
                  : count_here(*source, counts, header, done);
}

bool Counting::count_here(Source& source, CountSorter& counts, CountsHeader& header,
                          const std::function<void()>& done) {
  for (Job job; !is_interrupted() && counts.error() == 0 && source.next(job.task); done()) {
    parse_job(own_, job);
    take(job, counts, header);
  }
  return !is_interrupted();
}

bool Counting::count_in_threads(Source& source, CountSorter& counts, CountsHeader& header,
                                const std::function<void()>& done) {
  bool more = true;
  while (more || workers_->waiting() > 0) {
    while (more && workers_->waiting() < kWaitingEach * choice_.jobs) {
      Task task;
      more = !is_interrupted() && counts.error() == 0 && source.next(task);
      if (more) workers_->add(std::move(task));
    }
    if (workers_->waiting() == 0) break;
    const std::unique_ptr<Job> job = workers_->finished();
    if (job->state == Job::State::failed) _exit(kNoGrammar);
    lost_grammar_ = job->state == Job::State::open;
    if (lost_grammar_) return false;
    take(*job, counts, header);
    done();
  }
  return !is_interrupted();
}

}  // namespace torvane
