#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <string>
#include <utility>
#include <vector>

#include "cli/command.h"

namespace torvane {
namespace {

constexpr CliCommand kCommands[] = {
    {"parse", "Parse text into dependency trees", declare_parse},
    {"convert", "Turn trees from one format into another", declare_convert},
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
    works.emplace_back(sub, command.declare(*sub));
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);  // --help, --version
    std::cerr << "torvane: " << error.what() << "\nTry: torvane --help\n";
    return kUsage;
  }
  for (const auto& [sub, work] : works)
    if (sub->parsed()) return work();
  return kUsage;
}

}  // namespace torvane
