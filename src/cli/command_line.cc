#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <string>
#include <utility>
#include <vector>

#include "cli/command.h"
#include "support/nearest.h"

namespace torvane {
namespace {

std::vector<std::string> option_names(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    for (const std::string& name : option->get_snames()) names.push_back("-" + name);
  }
  return names;
}

/// What is wrong with the arguments, with the name that may have been meant.
std::string fault_of(const CLI::App& app, const CLI::App& asked, const CLI::ParseError& error) {
  const std::vector<std::string> left = app.remaining(true);
  const bool is_unknown =
      error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError) || &asked == &app;
  if (!is_unknown || left.empty()) return error.what();
  const std::string& written = left.front();
  if (written.starts_with('-'))
    return "unknown option " + written +
           hint_for(written.substr(0, written.find('=')), option_names(asked));
  if (&asked != &app) return error.what();
  std::vector<std::string> names;
  for (const CliCommand& command : cli_commands()) names.emplace_back(command.name);
  return "unknown command " + written + hint_for(written, names);
}

constexpr CliCommand kCommands[] = {
    {"parse", "Parse text into dependency trees", declare_parse},
    {"convert", "Turn trees from one format into another", declare_convert},
    {"repl", "Parse and explain sentences at a prompt", declare_repl},
    {"why", "Tell why a sentence has its tree, and not another one", declare_why},
    {"check", "Tell what is wrong with a grammar, and where", declare_check},
    {"serve", "Serve a page on which text is parsed, and the same to programs", declare_serve},
    {"score", "Count the words of a list of sentences that get the heads they should have",
     declare_score},
    {"learn", "Count a corpus, and make a database and similar words of it", declare_learn},
    {"count", "Parse text and count what depends on what", declare_count},
    {"merge-counts", "Add files of counts", declare_merge_counts},
    {"build-counts", "Make a database of counts, which parse --counts takes", declare_build_counts},
    {"similar", "Find similar words by a database of counts", declare_similar},
    {"shards", "Cut a corpus into pieces to be counted by themselves", declare_shards},
    {"help", "Show the page of a command, or a reference page", declare_help},
    {"completion", "Write what bash completes", declare_completion},
};

}  // namespace

std::span<const CliCommand> cli_commands() {
  return kCommands;
}

int run_command_line(int argc, char** argv, const char* version) {
  CLI::App app{"A dependency parser whose languages are data."};
  app.name("torvane");
  app.set_version_flag("--version", std::string("torvane ") + version);
  app.require_subcommand(1);
  app.footer(
      "Without arguments the first line of the file sentense.dat is parsed with "
      "./data/torvane.lsp.");
  std::vector<std::pair<CLI::App*, std::function<int()>>> works;
  for (const CliCommand& command : cli_commands()) {
    CLI::App* sub = app.add_subcommand(command.name, command.what);
    sub->option_defaults()->take_last();
    sub->footer("");
    works.emplace_back(sub, command.declare(*sub));
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);  // --help, --version
    const std::vector<CLI::App*> asked = app.get_subcommands();
    const CLI::App& at = asked.empty() ? app : *asked.front();
    std::cerr << "torvane: " << fault_of(app, at, error) << "\nTry: torvane "
              << (asked.empty() ? "" : at.get_name() + " ") << "--help\n";
    return kUsage;
  }
  for (const auto& [sub, work] : works)
    if (sub->parsed()) return work();
  return kUsage;
}

}  // namespace torvane
