// Parsing for the sake of counts: what depends on what in sentences, as a grammar prints it.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "cli/grammar.h"
#include "cli/workers.h"
#include "counts/count_sorter.h"
#include "counts/counts_file.h"
#include "sources/line_input.h"
#include "sources/sources.h"

namespace CLI {
class App;
}

namespace torvane {

/// How sentences are read and parsed.
struct CountingChoice {
  std::string from = "text";
  bool trees = false;  ///< the trees that were read are counted, nothing is parsed
  GrammarChoice grammar;
  std::size_t jobs = 1;
  std::size_t memory = 256;  ///< megabytes for counts
};

/// What `--from` can be.
std::vector<std::string> counted_source_names();
/// The options of it, but for that of where sentences come from.
void declare_counting(CLI::App& app, CountingChoice& choice);

/// Writes a message of a command.
void tell_fault(const std::string& message);
/// `2,040 sentences, 11,400 words`
std::string numbers_text(const CountsHeader& header);

class Counting {
 public:
  explicit Counting(const CountingChoice& choice);

  /// Loads the grammar; false after a message.
  bool start();
  /// What the counts are of, without numbers.
  const CountsHeader& kind() const { return kind_; }
  /// Counts all sentences of an input, and adds their numbers to the header; `done` is called now
  /// and then. False when it had to stop: interrupted, or without a grammar.
  bool count(LineInput& input, CountSorter& counts, CountsHeader& header,
             const std::function<void()>& done);
  /// A thread could not load the grammar.
  bool lost_grammar() const { return lost_grammar_; }
  std::size_t memory_bytes() const { return choice_.memory << 20; }

 private:
  /// An engine, and what its grammar prints.
  struct Printing {
    std::ostringstream printed;
    std::unique_ptr<Engine> engine;
  };
  bool load(Printing& printing) const;
  static void parse_job(Printing& printing, Job& job);
  void take(const Job& job, CountSorter& counts, CountsHeader& header) const;
  bool count_here(Source& source, CountSorter& counts, CountsHeader& header,
                  const std::function<void()>& done);
  bool count_in_threads(Source& source, CountSorter& counts, CountsHeader& header,
                        const std::function<void()>& done);

  const CountingChoice choice_;
  GrammarFiles files_;
  CountsHeader kind_;
  Printing own_;
  std::unique_ptr<Workers> workers_;  // null: this thread parses
  bool lost_grammar_ = false;
};

}  // namespace torvane
