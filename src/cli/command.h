// A command of the command line: `torvane NAME ...`.
#pragma once

#include <functional>
#include <span>

namespace CLI {
class App;
}

namespace torvane {

/// What a run ends with.
enum Status : int {
  kDone = 0,
  kInputOutput = 1,  ///< something could not be read or written
  kUsage = 2,
  kNotWhole = 3,  ///< with --strict: a sentence is not whole; `score`: too few are right
  kNoGrammar = 4,
};

struct CliCommand {
  const char* name;
  const char* what;
  /// Declares its options; gives its work, whose result is a Status.
  std::function<int()> (*declare)(CLI::App& app);
};

/// All of them, in the order of the help page.
std::span<const CliCommand> cli_commands();

std::function<int()> declare_parse(CLI::App& app);
std::function<int()> declare_convert(CLI::App& app);
std::function<int()> declare_why(CLI::App& app);
std::function<int()> declare_repl(CLI::App& app);
std::function<int()> declare_check(CLI::App& app);
std::function<int()> declare_serve(CLI::App& app);
std::function<int()> declare_count(CLI::App& app);
std::function<int()> declare_merge_counts(CLI::App& app);
std::function<int()> declare_build_counts(CLI::App& app);
std::function<int()> declare_shards(CLI::App& app);
std::function<int()> declare_similar(CLI::App& app);
std::function<int()> declare_learn(CLI::App& app);
std::function<int()> declare_score(CLI::App& app);
std::function<int()> declare_help(CLI::App& app);
std::function<int()> declare_completion(CLI::App& app);

}  // namespace torvane
